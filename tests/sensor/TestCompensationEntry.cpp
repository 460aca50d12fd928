#include "sensor/CompensationEntry.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>

using namespace pelorin;

namespace {

constexpr qint32 kLowest = std::numeric_limits<qint32>::min();
constexpr qint32 kHighest = std::numeric_limits<qint32>::max();

} // namespace

class TestCompensationEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(std::setlocale(LC_ALL, "")); }
    void typedTextsBecomeAnEntry();
    void numbersBeyondAllBoundsAreCut();
    void shownEntryHasAPointAndIsReadBackUnchanged();
};

void TestCompensationEntry::typedTextsBecomeAnEntry()
{
    const bool comma = QLocale().decimalPoint() == QLatin1String(",");
    for (const auto& [pointText, valueText, point, value] :
         std::initializer_list<std::tuple<const char*, const char*, int, qint32>>{
             {"", "", 0, 0},
             {"25.3", "7.9", 50, 7},
             {"-10.25", "-7.9", -20, -7},
             {"25.5", "-1", 51, -1},
             {"-0.49", "0.9", 0, 0},
             {" +1 ", " +12 ", 2, 12},
             {"25 mm", "7 mV", 0, 0},
             {"abc", "x", 0, 0},
             {"1e3", "1e3", 0, 0},
             {"0x10", "FF", 0, 0},
             {"1.234,5", "1,234.5", 0, 0},
             {"1.234", "1.234", 2, 1},
             {"25,5", "7,0", comma ? 51 : 0, comma ? 7 : 0},
             {"16383.5", "2147483647", 32767, kHighest},
             {"-16384", "-2147483648", -32768, kLowest},
             {"16384", "2147483648", -32768, kHighest},
             {"-16384.5", "-2147483649", 32767, kLowest},
             {"20000", "99999999999", 40000 - 65536, kHighest},
         }) {
        const CompensationEntry entry =
            entryOf({QString::fromLatin1(pointText), QString::fromLatin1(valueText)});
        QVERIFY2(entry.point == point && entry.value == value, pointText);
    }
}

void TestCompensationEntry::numbersBeyondAllBoundsAreCut()
{
    QCOMPARE(pointFromNumber(20000), 40000);
    QCOMPARE(pointFromNumber(-2147483649.0), -2); // wraps at 32 bits
    for (const double number : {1e300, std::numeric_limits<double>::max(), HUGE_VAL, std::nan("")})
        QCOMPARE(pointFromNumber(number), 0);
}

void TestCompensationEntry::shownEntryHasAPointAndIsReadBackUnchanged()
{
    const EntryTexts lowest = textsOf({-32768, kLowest});
    QCOMPARE(lowest.point, QStringLiteral("-16384.0"));
    QCOMPARE(lowest.value, QStringLiteral("-2147483648"));
    QCOMPARE(textsOf({51, 0}).point, QStringLiteral("25.5"));
    for (int point = -32768; point <= 32767; ++point) {
        const int step = point + 32768;
        const CompensationEntry entry{static_cast<qint16>(point),
                                      step % 2 == 0 ? kLowest + step : kHighest - step};
        if (entryOf(textsOf(entry)) != entry)
            QFAIL(qPrintable(textsOf(entry).point + QLatin1Char(' ') + textsOf(entry).value));
    }
}

QTEST_GUILESS_MAIN(TestCompensationEntry)
#include "TestCompensationEntry.moc"
