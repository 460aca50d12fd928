#include "platform/core/DecimalText.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <cmath>

using namespace pelorin;

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

bool sameNumber(double actual, double expected)
{
    return std::isnan(expected) ? std::isnan(actual) : actual == expected;
}

} // namespace

/// Runs once in the C locale and once in a German locale, whose C library reads and
/// writes decimal commas.
class TestDecimalText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void typedNumberIsReadWithPointAndUsersSeparator_data();
    void typedNumberIsReadWithPointAndUsersSeparator();
    void deviceTextIsReadUpToTheFirstOddCharacter_data();
    void deviceTextIsReadUpToTheFirstOddCharacter();
    void shownNumberIsReadBackUnchanged_data();
    void shownNumberIsReadBackUnchanged();
};

void TestDecimalText::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, ""));
    if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("de_DE")))
        QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(","));
}

void TestDecimalText::typedNumberIsReadWithPointAndUsersSeparator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");

    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale swedish(QLocale::Swedish, QLocale::Sweden);
    const QLocale swiss(QLocale::German, QLocale::Switzerland);
    for (const auto& locale : {english, german, QLocale::c()}) {
        const auto row = [&locale](const char* title) -> QTestData& {
            return QTest::addRow("%s: %s", qPrintable(locale.name()), title) << locale;
        };
        row("point") << "0.050" << 0.05;
        row("point and three digits") << "1.234" << 1.234;
        row("integer") << "1000" << 1000.0;
        row("sign and blanks") << " -50.8\t" << -50.8;
        row("plus") << "+7" << 7.0;
        row("no digit before the point") << ".5" << 0.5;
        row("no digit after the point") << "5." << 5.0;
        row("empty") << "" << kNoNumber;
        row("blanks") << "  " << kNoNumber;
        row("point alone") << "." << kNoNumber;
        row("sign alone") << "-" << kNoNumber;
        row("two signs") << "--1" << kNoNumber;
        row("letters behind") << "12mm" << kNoNumber;
        row("blank inside") << "1 2" << kNoNumber;
        row("two points") << "1.234.5" << kNoNumber;
        row("exponent") << "1e3" << kNoNumber;
        row("capital exponent") << "1E3" << kNoNumber;
        row("infinity") << "inf" << kNoNumber;
        row("infinity sign") << QString(QChar(0x221E)) << kNoNumber;
        row("nan") << "nan" << kNoNumber;
        row("hexadecimal") << "0x10" << kNoNumber;
        row("point and comma") << "1.234,5" << kNoNumber;
        row("comma and point") << "1,234.5" << kNoNumber;
        row("too large") << QString(400, QLatin1Char('9')) << kNoNumber;
    }
    QTest::newRow("German comma") << german << "0,050" << 0.05;
    QTest::newRow("German comma and three digits") << german << "-1,234" << -1.234;
    QTest::newRow("German, two commas") << german << "1,2,3" << kNoNumber;
    QTest::newRow("English comma") << english << "1,234" << kNoNumber;
    QTest::newRow("Swedish exponent") << swedish << QString::fromUtf8("1×10^3") << kNoNumber;
    QTest::newRow("Swedish minus") << swedish << QString::fromUtf8("−1,5") << -1.5;
    QTest::newRow("Swiss group") << swiss << QString::fromUtf8("1’000") << kNoNumber;
}

void TestDecimalText::typedNumberIsReadWithPointAndUsersSeparator()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QFETCH(double, number);

    QLocale::setDefault(locale);
    const double read = intlAtof(text);
    QLocale::setDefault(QLocale::system());
    QVERIFY2(sameNumber(read, number), qPrintable(QString::number(read, 'g', 17)));
}

void TestDecimalText::deviceTextIsReadUpToTheFirstOddCharacter_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<qint32>("integer");

    QTest::newRow("empty") << QByteArray("") << 0.0 << 0;
    QTest::newRow("leading zeros") << QByteArray("000283000") << 283000.0 << 283000;
    QTest::newRow("blanks and sign") << QByteArray(" \t-12") << -12.0 << -12;
    QTest::newRow("plus") << QByteArray("+12") << 12.0 << 12;
    QTest::newRow("two signs") << QByteArray("+-12") << 0.0 << 0;
    QTest::newRow("fraction") << QByteArray("50.8") << 50.8 << 50;
    QTest::newRow("point first") << QByteArray(".5") << 0.5 << 0;
    QTest::newRow("comma ends it") << QByteArray("50,8") << 50.0 << 50;
    QTest::newRow("letter ends it") << QByteArray("12A4") << 12.0 << 12;
    QTest::newRow("no exponent") << QByteArray("1E3") << 1.0 << 1;
    QTest::newRow("letter first") << QByteArray("A12") << 0.0 << 0;
    QTest::newRow("infinity") << QByteArray("inf") << 0.0 << 0;
    QTest::newRow("not a number") << QByteArray("nan") << 0.0 << 0;
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647.0 << 2147483647;
    QTest::newRow("too large") << QByteArray("2147483648") << 2147483648.0 << 2147483647;
    QTest::newRow("far too small") << QByteArray("-99999999999999999999") << -99999999999999999999.0
                                   << std::numeric_limits<qint32>::min();
}

void TestDecimalText::deviceTextIsReadUpToTheFirstOddCharacter()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    QFETCH(qint32, integer);

    QCOMPARE(decimalPrefix(text), number);
    QCOMPARE(decimalPrefix(QString::fromLatin1(text)), number);
    QCOMPARE(integerPrefix(text), integer);
}

void TestDecimalText::shownNumberIsReadBackUnchanged_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"0.001", "-0.050", "1250", "2830.00", "25.0", "-16384.0"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestDecimalText::shownNumberIsReadBackUnchanged()
{
    QFETCH(QString, text);

    const auto point = text.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : static_cast<int>(text.size() - point - 1);
    QCOMPARE(QString::asprintf("%01.*f", decimals, intlAtof(text)), text);
}

QTEST_APPLESS_MAIN(TestDecimalText)
#include "TestDecimalText.moc"
