#include "link/CommLog.h"

#include <QTest>

#include <thread>

using namespace pelorin;

class TestCommLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void snapshotsStayWholeWhileLinesComeAndGo()
    {
        constexpr int kLast = 30'000; // many blocks
        CommLog log;
        std::thread worker([&log] {
            for (int line = 0; line <= kLast; ++line) {
                if (line % 7'000 == 0)
                    log.clear();
                log.append(u'\u00B5' + QString::number(line));
            }
        });
        bool inOrder = true;
        for (int last = 0; inOrder && last < kLast;) {
            const auto lines = log.snapshot();
            for (int index = 0; index < lines.size(); ++index) {
                const int line = lines.line(index).mid(1).toInt();
                inOrder = inOrder && (index == 0 || line == last + 1);
                last = line;
            }
        }
        worker.join();
        QVERIFY(inOrder);
    }
};

QTEST_APPLESS_MAIN(TestCommLog)
#include "TestCommLog.moc"
