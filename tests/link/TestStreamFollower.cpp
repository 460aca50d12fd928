#include "link/StreamFollower.h"

#include "support/Rows.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

namespace {

constexpr StreamFollower::TimePoint kBegin{100s};

/// Bytes that are taken together.
struct Chunk
{
    int milliseconds; ///< since the stream is waited for
    std::string_view bytes;
};

} // namespace

/// A byte takes a millisecond here, and the position is a count of a thousandth.
class TestStreamFollower : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreFoundInTheirTime()
    {
        struct Row
        {
            const char* name;
            std::vector<Chunk> chunks;
            QByteArray samples; ///< milliseconds and position of each
            int malformed;
            int untilWhole; ///< milliseconds
        };
        const std::vector<Row> rows = {
            {"nothing", {}, "", 0, 9},
            {"one", {{9, "00000001\r"}}, "9:1", 0, 9},
            {"byte by byte", {{8, "FFFFFFF"}, {9, "F"}, {10, "\r"}}, "10:-1", 0, 9},
            {"several at once", {{30, "00000001\r00000002\r000"}}, "18:1 27:2", 0, 6},
            {"more than the line can",
             {{30, "00000001\r"}, {31, "00000002\r000"}},
             "30:1 30:2",
             0,
             6},
            {"begun in the middle", {{20, "0009\r00000001\r"}}, "20:1", 0, 9},
            {"begun at its end", {{20, "\r00000001\r"}}, "20:1", 0, 9},
            {"one digit less", {{27, "\r0000001\r00000002\r"}}, "27:2", 1, 9},
            {"one digit more", {{27, "\r000000001\r00000002\r"}}, "27:2", 1, 9},
            {"no digit", {{27, "\r0000000G\r00000002\r"}}, "27:2", 1, 9},
            {"ninth byte", {{27, "\r00000001?00000002\r00000003\r"}}, "27:3", 2, 9},
            {"no end", {{27, "000000010000000200000003"}}, "", 2, 3},
            {"empty ones", {{27, "\r\r\r"}}, "", 2, 9},
        };
        forEachRow(rows, [](const Row& row) {
            StreamFollower follower({32, 1.0}, 1ms, kBegin);
            for (const auto& [time, bytes] : row.chunks)
                follower.take(bytes, kBegin + time * 1ms);
            QCOMPARE(follower.untilWhole(), row.untilWhole * 1ms);
            QCOMPARE(follower.hasBatch(), row.malformed > 0 || !row.samples.isEmpty());
            const auto [samples, malformed] = follower.takeBatch();
            QByteArrayList texts;
            for (const auto& [time, millimetres] : samples)
                texts << QByteArray::number(qint64{(time - kBegin) / 1ms}) + ':' +
                             QByteArray::number(millimetres);
            QCOMPARE(texts.join(' '), row.samples);
            QCOMPARE(malformed, row.malformed);
            QCOMPARE(follower.lastWhole(), samples.isEmpty() ? kBegin : samples.last().time);
        });
    }
};

QTEST_APPLESS_MAIN(TestStreamFollower)
#include "TestStreamFollower.moc"
