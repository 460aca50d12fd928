#include "platform/core/WholeFile.h"

#include "link/CommLogFile.h"
#include "platform/core/Profile.h"
#include "platform/core/RegistryFile.h"
#include "sensor/BackupFile.h"
#include "sensor/LookupTableFile.h"
#include "support/FileSizeLimit.h"
#include "support/TestFolder.h"

#include <QTest>

#include <cerrno>

#include <sys/stat.h>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

using Outcome = WholeFile::Outcome;
using Failure = Outcome::Failure;
using Path = const QString&;

namespace {

const QString kOlder = u"older"_s;
const QString kNew = u"new %1 \u00E4"_s;
const QByteArray kOlderText = "[Setup]\nCOMPort=7\n";

Outcome writeLog(Path path)
{
    CommLog log; // is written in several pieces
    for (int line = 0; line < 50'000; ++line)
        log.append(u"RX: [%1]"_s.arg(line));
    return saveCommLog(path, log.snapshot());
}

Outcome writeBackup(Path path)
{
    BackupFile file(path);
    const Outcome outcome = file.prepareSaving();
    return outcome.isDone() ? file.save({{'D', "4A0519"}}) : outcome;
}

} // namespace

/// What all that saves and reads files of the user has in common.
class TestWholeFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatCannotBeSavedLeavesAllAsItWas()
    {
        using Writer = std::pair<const char*, std::function<Outcome(Path)>>;
        const auto writeTable = [](Path path) { return writeLookupTableFile(path, {{1, 2}}); };
        const auto writeProfile = [](Path path) { return Profile(path).write({{kOlder, 1}}); };
        for (const auto& [name, write] :
             {Writer("log", writeLog), Writer("backup", writeBackup), Writer("table", writeTable),
              Writer("profile", writeProfile)}) {
            const TestFolder folder;
            const auto fails = [&folder, &save = write](const QString& file, int error) {
                const Outcome outcome = save(folder.path(file));
                return (error != EFBIG || outcome.failure == Failure::Writing) &&
                       outcome.path == folder.path(file) && outcome.systemError == error;
            };
            QVERIFY2(write(folder.path(kNew)).isDone(), name);
            const auto whole = folder.content(kNew).size();
            QVERIFY(QFile::remove(folder.path(kNew)) && folder.put(kOlder, kOlderText));
            for (const auto room : {qsizetype{0}, whole / 2, whole - 1}) {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                QVERIFY2(fails(kNew, EFBIG) && fails(kOlder, EFBIG), name);
            }
            QVERIFY2(fails(kOlder + u"/below"_s, ENOTDIR) && fails({}, EISDIR), name);
            QVERIFY2(folder.names() == kOlder && folder.content(kOlder) == kOlderText, name);

            // A pipe is not waited for.
            QCOMPARE(mkfifo(folder.path(kNew).toUtf8().constData(), 0600), 0);
            QVERIFY2(fails(kNew, EINVAL) && !QFileInfo(folder.path(kNew)).isFile(), name);
            QVERIFY2(write(folder.path(kOlder)).isDone() && folder.content(kOlder) != kOlderText,
                     name);
        }
    }

    void linksAndDevicesStayAndPreparedFilesGoUnlessSaved()
    {
        const TestFolder folder;
        QVERIFY(QFile::link(folder.path(kOlder), folder.path(kNew)));
        for (const char* text : {"made", "replaced"}) { // the link leads nowhere at first
            QVERIFY(WholeFile(folder.path(kNew)).save(text).isDone());
            QVERIFY(QFileInfo(folder.path(kNew)).isSymLink());
            QCOMPARE(folder.content(kOlder), QByteArray(text));
        }
        const Outcome full = WholeFile(u"/dev/full"_s).save("text");
        QVERIFY(full.failure == Failure::Writing && full.systemError == ENOSPC);
        QVERIFY(QFileInfo::exists(u"/dev/full"_s) && !QFileInfo(u"/dev/full"_s).isFile());

        QVERIFY(QFile::remove(folder.path(kNew)) && QFile::remove(folder.path(kOlder)));
        WholeFile file(folder.path(kNew));
        QVERIFY(file.prepareSaving().isDone());
        QCOMPARE(folder.names(), kNew);
        {
            const FileSizeLimit limit(3);
            QVERIFY(!file.save("text").isDone());
        }
        QCOMPARE(folder.names(), QString());
        QVERIFY(file.save("text").isDone());
    }

    void whatIsNoFitFileIsRefusedWithTheReason()
    {
        const TestFolder folder;
        const QString pipe = folder.path(kNew);
        const QString huge = folder.path(kOlder);
        QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
        QVERIFY(folder.put(kOlder, {}) && QFile::resize(huge, 100'000'000));
        for (const auto& [path, error] :
             {std::pair(folder.path({}), EISDIR), std::pair(pipe, EINVAL), // and does not wait
              std::pair(u"/dev/zero"_s, EINVAL), std::pair(huge, EFBIG),
              std::pair(u"/proc/self/mem"_s, EIO)}) { // opens, has no byte 0
            const QStringList reasons{
                BackupFile(path).read().reason(), readLookupTableFile(path).outcome.reason(),
                Profile(path).unreadable().reason(),
                RegistryFile::read(path).damage().value_or(RegistryFile::Damage()).reason};
            QCOMPARE(reasons, QStringList(4, qt_error_string(error)));
        }
    }
};

QTEST_GUILESS_MAIN(TestWholeFile)
#include "TestWholeFile.moc"
