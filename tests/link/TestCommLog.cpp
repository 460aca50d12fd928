#include "link/CommLog.h"

#include <QTest>

#include <thread>

using namespace pelorin;

class TestCommLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesComeBackInOrderAcrossBlocks();
    void snapshotKeepsItsLinesWhateverHappensLater();
    void appendSnapshotAndClearRunBesideEachOther();
};

void TestCommLog::linesComeBackInOrderAcrossBlocks()
{
    constexpr int kLines = 10'000;
    CommLog log;
    for (int index = 0; index < kLines; ++index)
        log.append(QStringLiteral("RX: [%1]\u00B5").arg(index));

    const auto lines = log.snapshot();
    QCOMPARE(lines.size(), kLines);
    for (int index = 0; index < kLines; ++index)
        QCOMPARE(lines.line(index), QStringLiteral("RX: [%1]\u00B5").arg(index));
    QCOMPARE(lines.longestLine(), int(qstrlen("RX: [9999]\xC2\xB5")));
}

void TestCommLog::snapshotKeepsItsLinesWhateverHappensLater()
{
    CommLog log;
    log.append(QStringLiteral("first"));
    const auto before = log.snapshot();
    log.append(QStringLiteral("second"));
    const auto after = log.snapshot();
    log.clear();

    QCOMPARE(before.size(), 1);
    QCOMPARE(after.size(), 2);
    QCOMPARE(after.line(0), QStringLiteral("first"));
    QCOMPARE(after.line(1), QStringLiteral("second"));
    QCOMPARE(log.snapshot().size(), 0);
    QCOMPARE(log.snapshot().longestLine(), 0);
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
    while (highest < kLines - 1) {
        const auto lines = log.snapshot();
        for (int index = 1; index < lines.size(); ++index)
            QCOMPARE(lines.line(index).toInt(), lines.line(index - 1).toInt() + 1);
        if (lines.size() > 0)
            highest = lines.line(lines.size() - 1).toInt();
        if (lines.size() > 5'000 && highest < kLines / 2)
            log.clear();
    }
    worker.join();
}

QTEST_APPLESS_MAIN(TestCommLog)
#include "TestCommLog.moc"
