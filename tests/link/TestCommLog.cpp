#include "link/CommLog.h"

#include "support/LogLines.h"

#include <QTest>

#include <atomic>
#include <thread>

using namespace pelorin;

class TestCommLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void snapshotHoldsItsLinesInOrderWhateverHappensLater();
    void appendSnapshotAndClearRunBesideEachOther();
};

void TestCommLog::snapshotHoldsItsLinesInOrderWhateverHappensLater()
{
    QStringList expected; // more than one block of lines
    CommLog log;
    for (int index = 0; index < 5'000; ++index) {
        expected << QStringLiteral("RX: [%1]\u00B5").arg(index);
        log.append(expected.back());
    }
    const auto before = log.snapshot();
    QCOMPARE(test::logLines(log), expected);
    QCOMPARE(before.longestLine(), int(qstrlen("RX: [4999]\xC2\xB5")));

    log.append(QStringLiteral("later"));
    QCOMPARE(log.snapshot().size(), 5'001);
    log.clear();
    QCOMPARE(log.snapshot().size(), 0);
    QCOMPARE(log.snapshot().longestLine(), 0);
    QCOMPARE(before.size(), 5'000);
    QCOMPARE(before.line(4'999), expected.back());
}

void TestCommLog::appendSnapshotAndClearRunBesideEachOther()
{
    constexpr int kLines = 30'000;
    CommLog log;
    std::atomic<bool> appended = false;
    std::thread worker([&] {
        for (int index = 0; index < kLines; ++index)
            log.append(QString::number(index));
        appended = true;
    });

    bool inOrder = true;
    const auto look = [&] {
        const auto lines = log.snapshot();
        for (int index = 1; index < lines.size(); ++index)
            inOrder = inOrder && lines.line(index).toInt() == lines.line(index - 1).toInt() + 1;
        return lines;
    };
    while (!appended) {
        if (look().size() > 5'000)
            log.clear();
    }
    worker.join();
    const auto rest = look(); // nothing, if it was cleared last
    QVERIFY(rest.size() == 0 || rest.line(rest.size() - 1).toInt() == kLines - 1);
    QVERIFY(inOrder);
}

QTEST_APPLESS_MAIN(TestCommLog)
#include "TestCommLog.moc"
