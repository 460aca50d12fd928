#include "sensor/Journal.h"

#include "support/FileSizeLimit.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QTest>

#include <functional>
#include <utility>

#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pelorin;
using namespace pelorin::test;

namespace {

bool g_lockable = true; ///< whether the folder's file system has locks
std::function<void()> g_beforeLock;

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;
using End = JournalEntry::End;

JournalEntry state()
{
    JournalEntry entry{.time = QDateTime({2026, 3, 4}, {5, 6, 7, 89}, Qt::UTC), .port = 33};
    entry.device = QStringLiteral("/dev/serial/by-id/usb-Wandler_Ü1");
    entry.version = "3A0102";
    entry.ssiType = 2;
    entry.typeChosen = true;
    entry.values = {{'D', "4A0519"}, {'F', "SN012345"}, {'N', "00000A"}};
    entry.written = {{'N', "000122"}};
    return entry;
}

struct Kept
{
    const TestFolder folder;
    const Journal journal{folder.path(QString())};
};

} // namespace

extern "C" int flock(int descriptor, int operation) noexcept
{
    if (const auto before = std::exchange(g_beforeLock, {}))
        before();
    if (g_lockable)
        return static_cast<int>(::syscall(SYS_flock, descriptor, operation));
    errno = ENOLCK;
    return -1;
}

class TestJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedEntriesAreCountedAndLeftAlone()
    {
        struct Row
        {
            const char* name;
            const char* suffix; ///< of the file that is damaged
            const char* part;   ///< that is another one then; null for all of the file
            const char* other;
            int readable = 0;
            int unreadable = 1;
        };
        forEachRow(std::vector<Row>{{"whole", ".dat", "", "", 1, 0},
                                    {"other line ends", ".dat", "\r\n", "\n", 1, 0},
                                    {"values gone", ".dat", nullptr, nullptr},
                                    {"a value cut", ".dat", "A\r\n", ""},
                                    {"a value missing", ".dat", "4E:00000A\r\n", ""},
                                    {"no circumstances yet", ".json", nullptr, nullptr, 0, 0},
                                    {"circumstances cut", ".json", "}\n", ""},
                                    {"unknown outcome", ".json", "verified", "erased"},
                                    {"unknown reason", ".json", ": \"\"", ": \"moon\""},
                                    {"unknown writer", ".json", "output", "robot"}},
                   [](const Row& row) {
                       const Kept kept;
                       const auto begun = kept.journal.begin(state());
                       QVERIFY(begun.writing->finish({Kind::Verified}).isDone());
                       const QString name = begun.writing->entry().id + QLatin1String(row.suffix);
                       const QByteArray content = kept.folder.content(name);
                       QVERIFY(row.part ? kept.folder.put(name, QByteArray(content).replace(
                                                                    row.part, row.other))
                                        : QFile::remove(kept.folder.path(name)));
                       QVERIFY(kept.folder.put(name + QStringLiteral(".Xa12b3"), "{"));
                       const QString before = kept.folder.names();
                       const auto [entries, unreadable] = kept.journal.contents();
                       QCOMPARE(int(entries.size()), row.readable);
                       QCOMPARE(unreadable, row.unreadable);
                       QCOMPARE(kept.folder.names(), before);
                   });
    }

    void entriesComeBackAsTheyWereKeptTheNewestFirst()
    {
        const Kept kept;
        QList<JournalEntry> expected;
        for (int word = 0; word < 9; ++word) { // every word in the files, some in one second
            JournalEntry entry = state();
            entry.time = entry.time.addMSecs(-400 * word);
            entry.by = WriteRequest::By(word % 5);
            const auto begun = kept.journal.begin(entry);
            entry.id = begun.writing->entry().id;
            entry.end = End{Kind(word % 4), Reason(word), word < 4};
            QVERIFY(begun.writing->finish(*entry.end).isDone());
            expected << entry;
        }
        QVERIFY(kept.journal.entries() == expected);
    }

    void folderThatRefusesLeavesAnEntryWholeOrAbsent()
    {
        int begunOnly = 0;
        for (rlim_t bytes = 0; bytes < 1024; bytes += 32) {
            const Kept kept;
            const FileSizeLimit limit(bytes);
            const auto begun = kept.journal.begin(state());
            const bool finished = begun.writing && begun.writing->finish({}).isDone();
            const auto [entries, unreadable] = kept.journal.contents();
            QCOMPARE(entries.size(), begun.outcome.isDone() ? 1 : 0);
            QCOMPARE(unreadable, 0);
            QVERIFY(begun.outcome.isDone() || kept.folder.names().isEmpty());
            QCOMPARE(!entries.isEmpty() && entries[0].end, finished);
            begunOnly += begun.writing && !finished ? 1 : 0;
        }
        QVERIFY(begunOnly > 0);
        const Journal below(QStringLiteral("/dev/null/journal"));
        QCOMPARE(below.begin(state()).outcome.systemError, ENOTDIR);
        const Kept unlockable;
        g_lockable = false; // others would take it for left unfinished
        QCOMPARE(unlockable.journal.begin(state()).outcome.systemError, ENOLCK);
        g_lockable = true;
        QCOMPARE(unlockable.folder.names(), QString());
    }

    void onlyWhatNobodyWorksOnIsUnfinishedAndCanBeRemoved()
    {
        const Kept kept;
        const Journal& journal = kept.journal;
        auto begun = journal.begin(state());
        const JournalEntry entry = begun.writing->entry();
        QCOMPARE(journal.unfinished().size(), 0);
        QCOMPARE(journal.remove(entry).systemError, EBUSY);
        g_beforeLock = [&begun] { // it ends just when somebody asks
            QVERIFY(begun.writing->finish({}).isDone());
            begun.writing.reset();
        };
        QCOMPARE(journal.unfinished().size(), 0);
        QVERIFY(!begun.writing);

        const pid_t child = ::fork();
        if (child == 0) { // a run that dies on the way
            const auto died = journal.begin(state());
            ::_exit(died.outcome.isDone() ? 0 : 1);
        }
        QCOMPARE(::waitpid(child, nullptr, 0), child);
        const auto unfinished = journal.unfinished();
        QCOMPARE(unfinished.size(), 1);
        QVERIFY(unfinished[0].id != entry.id);
        QVERIFY(journal.giveUp(unfinished[0]).isDone());
        QCOMPARE(journal.unfinished().size(), 0);
        for (const JournalEntry& one : journal.entries()) {
            QVERIFY(journal.remove(one).isDone());
            QVERIFY(journal.giveUp(one).isDone()); // does not bring it back
        }
        QCOMPARE(kept.folder.names(), QString());
    }
};

QTEST_GUILESS_MAIN(TestJournal)
#include "TestJournal.moc"
