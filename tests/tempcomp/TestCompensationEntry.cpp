#include "tempcomp/CompensationEntry.h"

#include <QLocale>
#include <QTest>

#include <array>
#include <clocale>
#include <limits>

using namespace pelorin;

/// Runs once in the C locale and once in a German locale, whose C library reads and writes
/// decimal commas.
class TestCompensationEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { QLocale::setDefault(QLocale::system()); }
    void numberBecomesHalfUnitsCutTowardsZero_data();
    void numberBecomesHalfUnitsCutTowardsZero();
    void entryIsShownWithAPoint_data();
    void entryIsShownWithAPoint();
    void typedTextsBecomeAnEntry_data();
    void typedTextsBecomeAnEntry();
    void shownEntryIsReadBackUnchanged();
};

void TestCompensationEntry::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, ""));
    if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("de_DE"))) {
        QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(","));
        QCOMPARE(QLocale().decimalPoint(), QStringLiteral(","));
    }
}

void TestCompensationEntry::numberBecomesHalfUnitsCutTowardsZero_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<qint32>("halfUnits");
    QTest::addColumn<double>("shown"); ///< what the low 16 bits stand for

    QTest::newRow("zero") << 0.0 << 0 << 0.0;
    QTest::newRow("whole") << 25.0 << 50 << 25.0;
    QTest::newRow("half") << 25.5 << 51 << 25.5;
    QTest::newRow("cut") << 25.3 << 50 << 25.0;
    QTest::newRow("just below a half") << 25.499 << 50 << 25.0;
    QTest::newRow("negative, cut") << -10.25 << -20 << -10.0;
    QTest::newRow("negative, below a half unit") << -0.49 << 0 << 0.0;
    QTest::newRow("highest") << 16383.5 << 32767 << 16383.5;
    QTest::newRow("lowest") << -16384.0 << -32768 << -16384.0;
    QTest::newRow("one above the highest") << 16384.0 << 32768 << -16384.0;
    QTest::newRow("one below the lowest") << -16384.5 << -32769 << 16383.5;
    QTest::newRow("wraps") << 20000.0 << 40000 << -12768.0;
    QTest::newRow("wraps at 32 bits") << 2147483649.0 << 2 << 1.0;
    QTest::newRow("wraps at 32 bits, negative") << -2147483649.0 << -2 << -1.0;
    QTest::newRow("far too large") << 1e300 << 0 << 0.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0 << 0.0;
    QTest::newRow("largest") << std::numeric_limits<double>::max() << 0 << 0.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0 << 0.0;
}

void TestCompensationEntry::numberBecomesHalfUnitsCutTowardsZero()
{
    QFETCH(double, number);
    QFETCH(qint32, halfUnits);

    QCOMPARE(pointFromNumber(number), halfUnits);
    QTEST(pointToNumber(static_cast<qint16>(halfUnits)), "shown");
}

void TestCompensationEntry::entryIsShownWithAPoint_data()
{
    QTest::addColumn<int>("point");
    QTest::addColumn<qint32>("value");
    QTest::addColumn<QString>("pointText");
    QTest::addColumn<QString>("valueText");

    QTest::newRow("zeros") << 0 << 0 << "0.0"
                           << "0";
    QTest::newRow("half") << 51 << 7 << "25.5"
                          << "7";
    QTest::newRow("negative half") << -1 << -1 << "-0.5"
                                   << "-1";
    QTest::newRow("highest") << 32767 << std::numeric_limits<qint32>::max() << "16383.5"
                             << "2147483647";
    QTest::newRow("lowest") << -32768 << std::numeric_limits<qint32>::min() << "-16384.0"
                            << "-2147483648";
}

void TestCompensationEntry::entryIsShownWithAPoint()
{
    QFETCH(int, point);
    QFETCH(qint32, value);

    const EntryTexts texts = textsOf({static_cast<qint16>(point), value});
    QTEST(texts.point, "pointText");
    QTEST(texts.value, "valueText");
}

void TestCompensationEntry::typedTextsBecomeAnEntry_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("pointText");
    QTest::addColumn<QString>("valueText");
    QTest::addColumn<int>("point");
    QTest::addColumn<qint32>("value");

    for (const char* locale : {"en_US", "de_DE"}) {
        const auto row = [locale](const char* title) -> QTestData& {
            return QTest::addRow("%s: %s", locale, title) << locale;
        };
        row("empty") << ""
                     << "" << 0 << 0;
        row("numbers") << "25.3"
                       << "7" << 50 << 7;
        row("signs and blanks") << " -10.25 "
                                << " +12 " << -20 << 12;
        row("fraction of a value") << "1"
                                   << "-7.9" << 2 << -7;
        row("units behind") << "25 mm"
                            << "7 mV" << 0 << 0;
        row("letters") << "abc"
                       << "x" << 0 << 0;
        row("exponents") << "1e3"
                         << "1e3" << 0 << 0;
        row("hexadecimal") << "0x10"
                           << "FF" << 0 << 0;
        row("both separators") << "1.234,5"
                               << "1,234.5" << 0 << 0;
        row("value too large") << "0"
                               << "99999999999" << 0 << 2147483647;
        row("value too small") << "0"
                               << "-99999999999" << 0 << -2147483647 - 1;
        row("point out of range") << "20000"
                                  << "0" << 40000 - 65536 << 0;
    }
    QTest::newRow("de_DE: comma") << "de_DE"
                                  << "25,5"
                                  << "7,0" << 51 << 7;
    QTest::newRow("en_US: comma") << "en_US"
                                  << "25,5"
                                  << "7,0" << 0 << 0;
    QTest::newRow("de_DE: three decimals, not thousands") << "de_DE"
                                                          << "1.234"
                                                          << "1.234" << 2 << 1;
}

void TestCompensationEntry::typedTextsBecomeAnEntry()
{
    QFETCH(QString, locale);
    QFETCH(QString, pointText);
    QFETCH(QString, valueText);
    QLocale::setDefault(QLocale(locale));

    const CompensationEntry entry = entryOf({pointText, valueText});
    QTEST(static_cast<int>(entry.point), "point");
    QTEST(entry.value, "value");
}

void TestCompensationEntry::shownEntryIsReadBackUnchanged()
{
    constexpr std::array kValues = {std::numeric_limits<qint32>::min(),
                                    std::numeric_limits<qint32>::min() + 1,
                                    -1,
                                    0,
                                    1,
                                    1234,
                                    std::numeric_limits<qint32>::max() - 1,
                                    std::numeric_limits<qint32>::max()};
    for (int point = -32768; point <= 32767; ++point) {
        const auto value = kValues[static_cast<std::size_t>(point + 32768) % kValues.size()];
        const CompensationEntry entry{static_cast<qint16>(point), value};
        if (entryOf(textsOf(entry)) != entry)
            QFAIL(qPrintable(textsOf(entry).point + QLatin1Char(' ') + textsOf(entry).value));
    }
}

QTEST_GUILESS_MAIN(TestCompensationEntry)
#include "TestCompensationEntry.moc"
