#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <cmath>

using namespace pelorin;

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

/// Runs once in the C locale and once in a German locale, whose C library reads and
/// writes decimal commas.
class TestNumberTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void typedNumberIsReadWithPointAndUsersSeparator_data();
    void typedNumberIsReadWithPointAndUsersSeparator();
    void devicesDecimalsAreReadUpToTheFirstOddCharacter_data();
    void devicesDecimalsAreReadUpToTheFirstOddCharacter();
    void devicesHexIsTheTrailingRunOfDigits_data();
    void devicesHexIsTheTrailingRunOfDigits();
    void typedHexIsReadUpToTheFirstOddCharacter_data();
    void typedHexIsReadUpToTheFirstOddCharacter();
};

void TestNumberTexts::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, ""));
    if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("de_DE")))
        QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(","));
}

void TestNumberTexts::typedNumberIsReadWithPointAndUsersSeparator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");

    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale swedish(QLocale::Swedish, QLocale::Sweden);
    const QLocale swiss(QLocale::German, QLocale::Switzerland);
    const QString tooLarge(400, QLatin1Char('9'));
    for (const auto& locale : {english, german, QLocale::c()}) {
        const auto row = [&locale](const QString& text, double number) {
            QTest::addRow("%s: '%s'", qPrintable(locale.name()), qPrintable(text.left(9)))
                << locale << text << number;
        };
        for (const auto& [text, number] :
             {std::pair("0.050", 0.05), std::pair("1.234", 1.234), std::pair("1000", 1000.0),
              std::pair(" -50.8\t", -50.8), std::pair("+7", 7.0), std::pair(".5", 0.5),
              std::pair("5.", 5.0), std::pair("-16384.0", -16384.0)})
            row(QString::fromLatin1(text), number);
        for (const char* text : {"", "  ", ".", "-", "--1", "12mm", "1 2", "1.234.5", "1e3", "1E3",
                                 "inf", "nan", "0x10", "1.234,5", "1,234.5"})
            row(QString::fromLatin1(text), kNoNumber);
        row(tooLarge, kNoNumber);
    }
    QTest::newRow("German comma") << german << "0,050" << 0.05;
    QTest::newRow("German comma and three digits") << german << "-1,234" << -1.234;
    QTest::newRow("German, two commas") << german << "1,2,3" << kNoNumber;
    QTest::newRow("English comma") << english << "1,234" << kNoNumber;
    QTest::newRow("Swedish exponent") << swedish << QString::fromUtf8("1×10^3") << kNoNumber;
    QTest::newRow("Swedish minus") << swedish << QString::fromUtf8("−1,5") << -1.5;
    QTest::newRow("Swiss group") << swiss << QString::fromUtf8("1’000") << kNoNumber;
}

void TestNumberTexts::typedNumberIsReadWithPointAndUsersSeparator()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QFETCH(double, number);

    QLocale::setDefault(locale);
    const double read = intlAtof(text);
    QLocale::setDefault(QLocale::system());
    QVERIFY2(std::isnan(number) ? std::isnan(read) : read == number,
             qPrintable(QString::number(read, 'g', 17)));
}

void TestNumberTexts::devicesDecimalsAreReadUpToTheFirstOddCharacter_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<qint32>("integer");

    const auto row = [](const char* text, double number, qint32 integer) {
        QTest::addRow("'%s'", text) << QByteArray(text) << number << integer;
    };
    row("", 0, 0);
    row("000283000", 283000, 283000);
    row(" \t-12", -12, -12);
    row("+12", 12, 12);
    row("+-12", 0, 0);
    row("50.8", 50.8, 50);
    row(".5", 0.5, 0);
    row("50,8", 50, 50);
    row("12A4", 12, 12);
    row("1E3", 1, 1);
    row("A12", 0, 0);
    row("inf", 0, 0);
    row("nan", 0, 0);
    row("2147483648", 2147483648.0, 2147483647);
    row("-99999999999999999999", -99999999999999999999.0, std::numeric_limits<qint32>::min());
}

void TestNumberTexts::devicesDecimalsAreReadUpToTheFirstOddCharacter()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    QFETCH(qint32, integer);

    QCOMPARE(decimalPrefix(text), number);
    QCOMPARE(integerPrefix(QString::fromLatin1(text)), integer);
}

void TestNumberTexts::devicesHexIsTheTrailingRunOfDigits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint32>("value");

    const auto row = [](const char* title, const char* text, qint32 value) {
        QTest::newRow(title) << QByteArray(text) << value;
    };
    row("empty", "", 0);
    row("lower case", "1a", 26);
    row("odd character before the run", "G1A", 26);
    row("odd character at the end", "1AG", 0);
    row("blank inside", "12 34", 0x34);
    row("only the last eight digits count", "123456789", 0x23456789);
    row("sign bit", "FFFFFFFF", -1);
    row("smallest", "80000000", std::numeric_limits<qint32>::min());
    row("six digits stay positive", "FFFFF6", 16777206);
    row("byte beyond ASCII", "12\xE4\x30\x35", 5);
}

void TestNumberTexts::devicesHexIsTheTrailingRunOfDigits()
{
    QFETCH(QByteArray, text);
    QFETCH(qint32, value);
    QCOMPARE(hexToLong(text), value);
}

void TestNumberTexts::typedHexIsReadUpToTheFirstOddCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("value");
    QTest::addColumn<bool>("whole");

    const auto row = [](const char* text, quint32 value, bool whole) {
        QTest::addRow("'%s'", text) << QString::fromLatin1(text) << value << whole;
    };
    row("", 0, false);
    row("  ", 0, false);
    row("\t0d ", 13, true);
    row("0x4f", 0x4F, true);
    row("0X4F", 0x4F, true);
    row("0x", 0, false);
    row("0xG", 0, false);
    row("1FF", 0x1FF, true);
    row("FFFFFFEC", 0xFFFFFFEC, true);
    row("000000000001", 1, true);
    row("123456789", 0x23456789, false);
    row("5G", 5, false);
    row("G5", 0, false);
    row("-1", 0, false);
    row("12 34", 0x12, false);
    QTest::newRow("fullwidth digit") << QString(QChar(0xFF11)) << 0U << false;
}

void TestNumberTexts::typedHexIsReadUpToTheFirstOddCharacter()
{
    QFETCH(QString, text);
    QFETCH(quint32, value);
    QFETCH(bool, whole);

    QCOMPARE(hexToInt(text), value);
    QCOMPARE(isHex(text), whole);
}

QTEST_APPLESS_MAIN(TestNumberTexts)
#include "TestNumberTexts.moc"
