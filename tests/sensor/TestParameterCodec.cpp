#include "sensor/ParameterCodec.h"

#include <QTest>

#include <clocale>
#include <limits>

using namespace pelorin;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kLowestCounts = -65536;
constexpr int kHighestCounts = 16711679;

/// What a refused value is shown as.
QByteArray textOf(const std::optional<QByteArray>& encoded)
{
    return encoded.value_or(QByteArrayLiteral("refused"));
}

} // namespace

class TestParameterCodec : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void dataFormatIsTakenApart();
    void extensionIsThreeBytes();
    void valuesBecomeTexts();
    void textsBecomeValues();
    void everyOffsetThatWasReadIsGivenBack();
    void disturbedReplyIsNoValue();
};

/// The numbers on the wire stand any locale; one run of this program has a decimal comma.
void TestParameterCodec::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, ""));
}

void TestParameterCodec::dataFormatIsTakenApart()
{
    for (const auto& [text, flags, skipCount, dataBits, multiplier] :
         {std::tuple("4A0519", 0x4A, 5, 25, 2), std::tuple("000018", 0, 0, 24, 1),
          std::tuple("814218", 0x81, 66, 24, 4), std::tuple("c0FfFf", 0xC0, 255, 255, 8)}) {
        const DataFormat format = DataFormat::decode(text);
        QCOMPARE(int{format.flags}, flags);
        QCOMPARE(int{format.errorSkipCount}, skipCount);
        QCOMPARE(int{format.dataBits}, dataBits);
        QCOMPARE(format.multiplier(), multiplier);
        QCOMPARE(format.encode(), QByteArray(text).toUpper());
    }
}

void TestParameterCodec::extensionIsThreeBytes()
{
    QCOMPARE((Extension{2, 1, 3}.encode()), QByteArray("020103"));
    const Extension read = Extension::decode("010A02"); // also a mode that nobody knows
    QCOMPARE((QList<int>{read.extension, read.mode, read.magnets}), (QList<int>{1, 10, 2}));
    QCOMPARE(read.encode(), QByteArray("010A02"));
}

void TestParameterCodec::valuesBecomeTexts()
{
    using Made = std::optional<QByteArray>;
    for (const auto& [made, text] : std::initializer_list<std::pair<Made, const char*>>{
             {encodeResolution(5), "00000005"},
             {encodeStroke("0A", "500"), "0A0500"},
             {encodeStroke("0B", "10160"), "0B10160"},
             {encodeGradient(0.29), "000029"},
             {encodeGradient(0.125), "000013"},
             {encodeGradient(9999999.99), "999999999"},
             {encodeGradient(10000000.0), "refused"},
             {encodeGradient(kNan), "refused"},
             {encodeScale(1.99, 0.1), "00000A"},
             {encodeScale(0.39, 0.002), "000063"},
             {encodeScale(32767.99, 0.001), "FFFFFA"},
             {encodeScale(32768.01, 0.001), "refused"},
             {encodeScale(2830.0, 0.0), "refused"},
             {encodeOffset(0.05, 0.001, 4), "0000C8"},
             {encodeOffset(-0.05, 0.005, 8), "FFFFB0"},
             {encodeOffset(0.0074, 0.005, 4), "000004"},
             {encodeOffset(0.25, 0.1, 1), "000003"},
             {encodeOffset(-65.536, 0.001, 1), "FF0000"},
             {encodeOffset(-65.537, 0.001, 1), "refused"},
             {encodeOffset(16711.679, 0.001, 1), "FEFFFF"},
             {encodeOffset(16711.680, 0.001, 1), "refused"},
             {encodeOffset(-32.769, 0.001, 2), "refused"},
             {encodeOffset(4177.920, 0.001, 4), "refused"},
             {encodeOffset(kNan, 0.001, 1), "refused"},
             {encodeOffset(-kInfinity, 0.001, 1), "refused"},
             {encodeOffset(0.05, 0.0, 1), "refused"},
         })
        QCOMPARE(textOf(made), QByteArray(text));
}

void TestParameterCodec::textsBecomeValues()
{
    QCOMPARE(decodeResolutionMm("00000005"), 0.005);
    QCOMPARE(decodeStrokeMm("0B10160"), 10160.0);
    QCOMPARE(decodeGradient("283000"), 2830.0);
    for (const auto& [text, counts] :
         {std::pair("00000A", 10), std::pair("FFFFF6", -10), std::pair("fFfff6", -10),
          std::pair("FFFFFFF6", -10), std::pair("FF0000", kLowestCounts),
          std::pair("FEFFFF", kHighestCounts), std::pair("", 0)})
        QCOMPARE(decodeOffsetCounts(text), counts);
}

/// An offset is kept in millimetres between reading and writing.
void TestParameterCodec::everyOffsetThatWasReadIsGivenBack()
{
    QVERIFY(!encodeOffsetCounts(kLowestCounts - 1));
    QVERIFY(!encodeOffsetCounts(kHighestCounts + 1));
    for (int counts = kLowestCounts; counts <= kHighestCounts; counts += counts < 2000 ? 1 : 997) {
        const QByteArray text = textOf(encodeOffsetCounts(counts));
        QCOMPARE(decodeOffsetCounts(text), counts);
        for (const int micrometres : {1, 2, 5, 10, 20, 50, 100}) {
            const double resolutionMm = micrometres * 0.001;
            QCOMPARE(textOf(encodeOffset(counts * resolutionMm, resolutionMm, 1)), text);
        }
    }
}

void TestParameterCodec::disturbedReplyIsNoValue()
{
    const auto check = [](const char* ids, const QList<QByteArray>& good,
                          const QList<QByteArray>& disturbed) {
        for (const char id : QByteArray(ids)) {
            for (const QByteArray& reply : good)
                QVERIFY2(isWellFormed(id, reply), id + reply);
            for (const QByteArray& reply : disturbed)
                QVERIFY2(!isWellFormed(id, reply), id + reply);
        }
    };
    check("AU", {"00000005", "      10", "283000"}, {"0000001P", "28300.", "1 0000", "      ", ""});
    check("L", {"0A1250", "?!   0", " ~10160"},
          {"0A12 0", "0A    ", "0A-125",
           "\xB0"
           "A1250",
           "0A"});
    check("DKSZM", {"4A0519", "4a0519"},
          {"4A051900", "4A051",
           "4\xCA"
           "0519",
           " 4A051"});
    check("NJO", {"FFFFF6", "FFFFFFF6"}, {"00-00A", "0x000A", "FFFFF", "FFFFFFFF6"});
    check("FPV", {"SN012345", " ~!0a?"},
          {"SN01",
           "SN\x7F"
           "12345",
           "SN\xE4"
           "12345",
           "SN0123456"});
    QVERIFY(!isWellFormed('E', "000000"));
}

QTEST_APPLESS_MAIN(TestParameterCodec)
#include "TestParameterCodec.moc"
