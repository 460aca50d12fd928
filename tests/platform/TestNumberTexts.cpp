#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <cmath>
#include <tuple>

using namespace pelorin;

/// Runs once in the C locale and once in a German locale, whose C library reads and
/// writes decimal commas.
class TestNumberTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(std::setlocale(LC_ALL, ""));
        if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("de_DE")))
            QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(","));
    }

    void typedNumberIsReadWithPointAndUsersSeparator()
    {
        using Numbers = std::vector<std::pair<const char*, double>>;
        using Texts = std::vector<const char*>; // that are no numbers
        const QByteArray tooLarge(400, '9');
        const Numbers numbers{std::pair("0.050", 0.05),     std::pair("1.234", 1.234),
                              std::pair(" -50.8\t", -50.8), std::pair("+7", 7.0),
                              std::pair(".5", 0.5),         std::pair("5.", 5.0)};
        const Texts refused{
            "",    "  ",  ".",   "-",   "--1",  "12mm",    "1 2",     "1.234.5",
            "1e3", "1E3", "inf", "nan", "0x10", "1.234,5", "1,234.5", tooLarge.constData()};
        for (const auto& [locale, read, notRead] :
             std::vector<std::tuple<const char*, Numbers, Texts>>{
                 {"C", numbers, refused},
                 {"en_US", numbers, refused},
                 {"en_US", {}, {"1,234"}},
                 {"de_DE", numbers, refused},
                 {"de_DE", {{"0,050", 0.05}, {"-1,234", -1.234}}, {"1,2,3"}},
                 {"sv_SE", {{"−1,5", -1.5}}, {"1×10^3"}},
                 {"de_CH", {}, {"1’000"}}}) {
            QLocale::setDefault(QLocale(QLatin1String(locale)));
            for (const auto& [text, number] : read)
                QVERIFY2(intlAtof(QString::fromUtf8(text)) == number, text);
            for (const char* text : notRead)
                QVERIFY2(std::isnan(intlAtof(QString::fromUtf8(text))), text);
        }
        QLocale::setDefault(QLocale::system());
    }

    void devicesNumbersAreReadAsFarAsTheyAreNumbers()
    {
        using Row = std::tuple<const char*, double, qint32>;
        for (const auto& [text, number, integer] :
             {Row("", 0, 0), Row("000283000", 283000, 283000), Row(" \t-12", -12, -12),
              Row("+12", 12, 12), Row("+-12", 0, 0), Row("50.8", 50.8, 50), Row(".5", 0.5, 0),
              Row("50,8", 50, 50), Row("12A4", 12, 12), Row("1E3", 1, 1), Row("A12", 0, 0),
              Row("inf", 0, 0), Row("nan", 0, 0), Row("2147483648", 2147483648.0, 2147483647),
              Row("-99999999999999999999", -99999999999999999999.0,
                  std::numeric_limits<qint32>::min())}) {
            QVERIFY2(decimalPrefix(text) == number, text);
            QVERIFY2(integerPrefix(text) == integer, text);
        }

        // Of hexadecimal digits the run at the end counts.
        for (const auto& [text, value] :
             {std::pair("", 0), std::pair("1a", 26), std::pair("G1A", 26), std::pair("1AG", 0),
              std::pair("12 34", 0x34), std::pair("FFFFF6", 16777206), std::pair("FFFFFFFF", -1),
              std::pair("80000000", std::numeric_limits<qint32>::min()),
              std::pair("123456789", 0x23456789), // the last eight digits count
              std::pair("12\xE4\x30\x35", 5)})
            QVERIFY2(hexToLong(text) == value, text);
    }

    void typedHexIsReadUpToTheFirstOddCharacter()
    {
        using Row = std::tuple<const char*, quint32, bool>;
        for (const auto& [text, value, whole] :
             {Row("", 0, false), Row("  ", 0, false), Row("\t0d ", 13, true),
              Row("0x4f", 0x4F, true), Row("0X4F", 0x4F, true), Row("0x", 0, false),
              Row("0xG", 0, false), Row("FFFFFFEC", 0xFFFFFFEC, true), Row("000000000001", 1, true),
              Row("123456789", 0x23456789, false), Row("5g", 5, false), Row("G5", 0, false),
              Row("-1", 0, false), Row("12 34", 0x12, false),
              Row("\uFF11", 0, false)}) { // a digit of full width
            QVERIFY2(hexToInt(QString::fromUtf8(text)) == value, text);
            QVERIFY2(isHex(QString::fromUtf8(text)) == whole, text);
        }
    }
};

QTEST_APPLESS_MAIN(TestNumberTexts)
#include "TestNumberTexts.moc"
