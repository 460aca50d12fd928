#include "platform/core/WholeFile.h"

#include "pages/CommLogFile.h"
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

using Outcome = WholeFile::Outcome;
using Failure = Outcome::Failure;
using Write = std::function<Outcome(const QString& path)>;
using Read = std::function<QString(const QString& path)>; ///< why it failed

namespace {

const QString kOlder = QStringLiteral("older");
const QString kNew = QStringLiteral("new %1 \u00E4");
const QByteArray kOlderText = "[Setup]\nCOMPort=7\n";

Outcome writeLog(const QString& path)
{
    CommLog log; // is written in several pieces
    for (int line = 0; line < 50'000; ++line)
        log.append(QStringLiteral("RX: [%1]").arg(line));
    return saveCommLog(path, log.snapshot());
}

Outcome writeBackup(const QString& path)
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
    void init();
    void whatCannotBeSavedLeavesAllAsItWas_data();
    void whatCannotBeSavedLeavesAllAsItWas();
    void linksAndDevicesStayWhatTheyAre();
    void preparedFileIsEmptyUntilItIsSavedAndGoneIfItCannotBe();
    void whatIsNoFitFileIsRefusedWithTheReason_data();
    void whatIsNoFitFileIsRefusedWithTheReason();

private:
    [[nodiscard]] QString path(const QString& name) const { return m_folder->path(name); }

    std::unique_ptr<TestFolder> m_folder;
};

void TestWholeFile::init()
{
    m_folder = std::make_unique<TestFolder>();
    QVERIFY(m_folder->put(kOlder, kOlderText));
}

void TestWholeFile::whatCannotBeSavedLeavesAllAsItWas_data()
{
    QTest::addColumn<Write>("write");
    const auto row = [](const char* name, const Write& write) { QTest::newRow(name) << write; };
    row("log", writeLog);
    row("backup", writeBackup);
    row("table", [](const QString& path) { return writeLookupTableFile(path, {{1, 2}}); });
    row("profile", [](const QString& path) { return Profile(path).write({{kOlder, 4711}}); });
}

void TestWholeFile::whatCannotBeSavedLeavesAllAsItWas()
{
    QFETCH(Write, write);
    const auto fails = [&](const QString& name, int error) {
        const Outcome outcome = write(path(name));
        const bool full = error == EFBIG;
        return (!full || outcome.failure == Failure::Writing) && outcome.path == path(name) &&
               outcome.systemError == error && outcome.reason() == qt_error_string(error);
    };
    QVERIFY(write(path(kNew)).isDone());
    const QByteArray whole = m_folder->content(kNew);
    QVERIFY(QFile::remove(path(kNew)));
    for (const qsizetype room : {qsizetype{0}, whole.size() / 2, whole.size() - 1}) {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        QVERIFY(fails(kNew, EFBIG));
        QVERIFY(fails(kOlder, EFBIG));
    }
    QVERIFY(fails(kOlder + QStringLiteral("/below"), ENOTDIR));
    QVERIFY(fails(QString(), EISDIR));
    QCOMPARE(m_folder->names(), kOlder);
    QCOMPARE(m_folder->content(kOlder), kOlderText);

    QCOMPARE(mkfifo(QFile::encodeName(path(kNew)).constData(), 0600), 0);
    QVERIFY(fails(kNew, EINVAL)); // and does not wait
    QVERIFY(!QFileInfo(path(kNew)).isFile());

    QVERIFY(write(path(kOlder)).isDone());
    QVERIFY(m_folder->content(kOlder) != kOlderText);
}

void TestWholeFile::linksAndDevicesStayWhatTheyAre()
{
    QVERIFY(QFile::link(path(kOlder), path(kNew)));
    QVERIFY(WholeFile(path(kNew)).save("linked").isDone());
    QVERIFY(QFileInfo(path(kNew)).isSymLink());
    QCOMPARE(m_folder->content(kOlder), QByteArray("linked"));

    QVERIFY(QFile::remove(path(kOlder))); // the link leads nowhere now
    QVERIFY(WholeFile(path(kNew)).save("again").isDone());
    QCOMPARE(m_folder->content(kOlder), QByteArray("again"));

    const QFileInfo device(QStringLiteral("/dev/full"));
    const Outcome full = WholeFile(device.filePath()).save("text");
    QCOMPARE(full.failure, Failure::Writing);
    QCOMPARE(full.systemError, ENOSPC);
    QVERIFY(device.exists() && !device.isFile());
}

void TestWholeFile::preparedFileIsEmptyUntilItIsSavedAndGoneIfItCannotBe()
{
    for (const QString& name : {kNew, kOlder}) {
        const bool older = name == kOlder;
        WholeFile file(path(name));
        QVERIFY(file.prepareSaving().isDone());
        QCOMPARE(m_folder->content(name), older ? kOlderText : QByteArray());
        QVERIFY(QFileInfo::exists(path(name)));
        {
            const FileSizeLimit limit(3);
            QVERIFY(!file.save("text").isDone());
        }
        QCOMPARE(QFileInfo::exists(path(name)), older);
        QVERIFY(file.save("text").isDone());
        QCOMPARE(m_folder->content(name), QByteArray("text"));
    }
}

void TestWholeFile::whatIsNoFitFileIsRefusedWithTheReason_data()
{
    QTest::addColumn<Read>("read");
    const auto row = [](const char* name, const Read& read) { QTest::newRow(name) << read; };
    row("backup", [](const QString& path) { return BackupFile(path).read().reason(); });
    row("table", [](const QString& path) { return readLookupTableFile(path).outcome.reason(); });
    row("profile", [](const QString& path) { return Profile(path).unreadable().reason(); });
    row("settings", [](const QString& path) {
        return RegistryFile::read(path).damage().value_or(RegistryFile::Damage()).reason;
    });
}

void TestWholeFile::whatIsNoFitFileIsRefusedWithTheReason()
{
    QFETCH(Read, read);
    const QString pipe = path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    QVERIFY(QFile::resize(path(kOlder), 100'000'000));
    for (const auto& [name, error] : std::initializer_list<std::pair<QString, int>>{
             {path({}), EISDIR},
             {pipe, EINVAL}, // and does not wait
             {QStringLiteral("/dev/zero"), EINVAL},
             {QStringLiteral("/proc/self/mem"), EIO}, // opens, has no byte 0
             {path(kOlder), EFBIG}})
        QCOMPARE(read(name), qt_error_string(error));
}

QTEST_GUILESS_MAIN(TestWholeFile)
#include "TestWholeFile.moc"
