#include "link/CommLog.h"

#include "support/LogLines.h"

#include <QTest>

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
    std::thread worker([&log] {
        for (int index = 0; index < kLines; ++index)
            log.append(QString::number(index));
    });

    int highest = -1;
    bool inOrder = true;
    while (highest < kLines - 1) {
        const auto lines = log.snapshot();
        for (int index = 1; index < lines.size(); ++index)
            inOrder = inOrder && lines.line(index).toInt() == lines.line(index - 1).toInt() + 1;
        if (lines.size() > 0)
            highest = lines.line(lines.size() - 1).toInt();
        if (lines.size() > 5'000 && highest < kLines / 2)
            log.clear();
    }
    worker.join();
    QVERIFY(inOrder);
}

QTEST_APPLESS_MAIN(TestCommLog)
#include "TestCommLog.moc"
