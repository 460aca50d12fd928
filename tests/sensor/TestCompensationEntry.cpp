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
    void typedTextsBecomeAnEntry_data();
    void typedTextsBecomeAnEntry();
    void numbersBeyondAllBoundsAreCut();
    void shownEntryHasAPointAndIsReadBackUnchanged();
};

void TestCompensationEntry::typedTextsBecomeAnEntry_data()
{
    QTest::addColumn<QString>("pointText");
    QTest::addColumn<QString>("valueText");
    QTest::addColumn<int>("point");
    QTest::addColumn<int>("value");
    const auto row = [](const char* name, const QString& pointText, const QString& valueText,
                        int point, qint32 value) {
        QTest::newRow(name) << pointText << valueText << point << value;
    };
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    const bool comma = QLocale().decimalPoint() == text(",");

    row("empty", {}, {}, 0, 0);
    row("cut towards zero", text("25.3"), text("7.9"), 50, 7);
    row("negative, cut towards zero", text("-10.25"), text("-7.9"), -20, -7);
    row("half unit", text("25.5"), text("-1"), 51, -1);
    row("below a half unit", text("-0.49"), text("0.9"), 0, 0);
    row("signs and blanks", text(" +1 "), text(" +12 "), 2, 12);
    row("units behind", text("25 mm"), text("7 mV"), 0, 0);
    row("letters", text("abc"), text("x"), 0, 0);
    row("exponents", text("1e3"), text("1e3"), 0, 0);
    row("hexadecimal", text("0x10"), text("FF"), 0, 0);
    row("both separators", text("1.234,5"), text("1,234.5"), 0, 0);
    row("three decimals, no thousands", text("1.234"), text("1.234"), 2, 1);
    row("comma", text("25,5"), text("7,0"), comma ? 51 : 0, comma ? 7 : 0);
    row("highest", text("16383.5"), text("2147483647"), 32767, kHighest);
    row("lowest", text("-16384"), text("-2147483648"), -32768, kLowest);
    row("one above", text("16384"), text("2147483648"), -32768, kHighest);
    row("one below", text("-16384.5"), text("-2147483649"), 32767, kLowest);
    row("far above", text("20000"), text("99999999999"), 40000 - 65536, kHighest);
}

void TestCompensationEntry::typedTextsBecomeAnEntry()
{
    QFETCH(QString, pointText);
    QFETCH(QString, valueText);
    const CompensationEntry entry = entryOf({pointText, valueText});
    QTEST(static_cast<int>(entry.point), "point");
    QTEST(static_cast<int>(entry.value), "value");
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
