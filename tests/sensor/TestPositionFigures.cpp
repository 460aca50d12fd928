#include "sensor/PositionFigures.h"

#include "support/Rows.h"

#include <QTest>

#include <cmath>
#include <functional>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr double kClose = 1e-6;

/// Positions at 400 a second.
std::vector<PositionPoint> points(int count, const std::function<double(int)>& position)
{
    std::vector<PositionPoint> all;
    for (int i = 0; i < count; ++i)
        all.push_back({i / 400.0, position(i)});
    return all;
}

bool isClose(std::optional<double> value, std::optional<double> expected)
{
    return value.has_value() == expected.has_value() &&
           std::abs(value.value_or(0) - expected.value_or(0)) < kClose;
}

} // namespace

class TestPositionFigures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void figuresSayWhatThePositionsTell()
    {
        struct Row
        {
            const char* name;
            std::vector<PositionPoint> points;
            double minimum, maximum, mean;
            std::optional<double> deviation, velocity, perSecond;
            double longestGap;
            double silent = 0.0; ///< seconds, at the end
        };
        const auto none = std::nullopt;
        const auto turning = [](int i) { return i < 1000 ? i / 400.0 : 5.0 - i / 400.0; };
        forEachRow<Row>(
            {{"no position", {}, 0, 0, 0, none, none, none, 0},
             {"one", {{7.0, -3.5}}, -3.5, -3.5, -3.5, none, none, none, 0},
             {"two at one moment", {{7.0, 1}, {7.0, 2}}, 1, 2, 1.5, std::sqrt(0.5), none, none, 0},
             {"at rest", points(801, [](int) { return 12.345; }), 12.345, 12.345, 12.345, 0, 0, 400,
              0.0025},
             {"ramp", points(3, [](int i) { return i * 2.0; }), 0, 4, 2, 2, 800, 400, 0.0025},
             {"noise far from zero", points(2, [](int i) { return 1e7 + i % 2 * 0.001; }), 1e7,
              1e7 + 0.001, 1e7 + 0.0005, std::sqrt(0.5) * 0.001, 0.4, 400, 0.0025},
             {"velocity is that of the end", points(2001, turning), 0, 2.5, 1.249375312,
              0.722229350, -1, 400, 0.0025},
             {"silence is no part of the rate",
              {{0, 1}, {0.1, 2}, {7.1, 2}, {7.5, 1}},
              1,
              2,
              1.5,
              std::sqrt(1.0 / 3),
              -2.5,
              4,
              7},
             {"start of the stream ends no gap",
              {{0, 1}, {0.1, 2}, {7.1, 2, true}, {7.5, 1}},
              1,
              2,
              1.5,
              std::sqrt(1.0 / 3),
              -2.5,
              4,
              0.4},
             {"velocity is not known while silent", points(3, [](int i) { return i * 2.0; }), 0, 4,
              2, 2, none, 400, 0.6, 0.6}},
            [](const Row& row) {
                const PositionFigures figures = positionFigures(
                    row.points,
                    (row.points.empty() ? 0.0 : row.points.back().seconds) + row.silent);
                QCOMPARE(figures.count, static_cast<qsizetype>(row.points.size()));
                QVERIFY(isClose(figures.minimum, row.minimum));
                QVERIFY(isClose(figures.span(), row.maximum - row.minimum));
                QVERIFY2(isClose(figures.mean, row.mean),
                         qPrintable(QString::number(figures.mean, 'f', 9)));
                QVERIFY2(isClose(figures.deviation, row.deviation),
                         qPrintable(QString::number(figures.deviation.value_or(-1), 'f', 9)));
                QVERIFY(isClose(figures.velocity, row.velocity));
                QVERIFY(isClose(figures.perSecond, row.perSecond));
                QVERIFY(isClose(figures.longestGap, row.longestGap));
            });
    }

    void columnsKeepEveryPeak()
    {
        auto all = points(252'000, [](int) { return 5.0; });
        all[100'001].millimetres = 9.0;
        all[100'002].millimetres = -1.0;
        const auto columns = positionColumns(all, 0.0, 1.0); // a second each
        QCOMPARE(columns.size(), std::size_t{630});
        for (const PositionColumn& column : columns) {
            const bool peak = column.column == 250;
            QCOMPARE(column.minimum, peak ? -1.0 : 5.0);
            QCOMPARE(column.maximum, peak ? 9.0 : 5.0);
        }
        QCOMPARE(columns[1].first.seconds, 1.0);
        QCOMPARE(columns[1].last.seconds, 799 / 400.0);
    }

    void pointsAreFoundByTheirTime()
    {
        const std::vector<PositionPoint> all{{1, 10}, {2, 20}, {3, 30}};
        const auto nearest = [&all](double at) { return pointNearest(all, at)->millimetres; };
        for (const auto& [at, value] :
             {std::pair(-5.0, 10.0), {1.4, 10.0}, {1.6, 20.0}, {99.0, 30.0}})
            QCOMPARE(nearest(at), value);
        QVERIFY(!pointNearest({}, 1.0));
        QCOMPARE(pointsBetween(all, 1.0, 2.0).size(), std::size_t{2});
        QCOMPARE(pointsBetween(all, 2.5, 2.6).size(), std::size_t{0});
    }

    void decimalsAreThoseOfTheResolution()
    {
        for (const auto& [resolution, decimals] :
             {std::pair(0.0, 4), {1.0, 0}, {0.1, 1}, {0.05, 2}, {0.02, 2}, {0.005, 3}, {0.0005, 4}})
            QCOMPARE(positionDecimals(resolution), decimals);
    }
};

QTEST_APPLESS_MAIN(TestPositionFigures)
#include "TestPositionFigures.moc"
