#include "pages/ParameterCodec.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <limits>

using namespace pelorin;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

constexpr std::array kResolutions = {1, 2, 5, 10, 20, 50, 100}; // micrometres
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
    void dataFormatIsTakenApart_data();
    void dataFormatIsTakenApart();
    void everySkipCountAndWidthComesBack();
    void extensionIsThreeBytes();
    void unknownExtensionComesBackAsItWas();
    void resolutionIsEightDigits_data();
    void resolutionIsEightDigits();
    void strokeStandsBehindThePackageCode_data();
    void strokeStandsBehindThePackageCode();
    void gradientIsWrittenInHundredths_data();
    void gradientIsWrittenInHundredths();
    void scaleFollowsFromGradientAndResolution_data();
    void scaleFollowsFromGradientAndResolution();
    void offsetTextIsReadAsCounts_data();
    void offsetTextIsReadAsCounts();
    void offsetIsWrittenAsWholeCounts_data();
    void offsetIsWrittenAsWholeCounts();
    void everyOffsetThatWasReadIsGivenBack();
};

/// The numbers on the wire stand any locale; one run of this program has a decimal comma.
void TestParameterCodec::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, ""));
}

void TestParameterCodec::dataFormatIsTakenApart_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("skipCount");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("multiplier");
    QTest::newRow("Gray, synchronous, two cycles") << QByteArray("4A0519") << 0x4A << 5 << 25 << 2;
    QTest::newRow("binary") << QByteArray("000018") << 0 << 0 << 24 << 1;
    QTest::newRow("reverse, four cycles") << QByteArray("814218") << 0x81 << 66 << 24 << 4;
    QTest::newRow("eight cycles, all bits") << QByteArray("FFFFFF") << 255 << 255 << 255 << 8;
}

void TestParameterCodec::dataFormatIsTakenApart()
{
    QFETCH(QByteArray, text);
    const DataFormat format = DataFormat::decode(text);
    QTEST(int{format.flags}, "flags");
    QTEST(int{format.errorSkipCount}, "skipCount");
    QTEST(int{format.dataBits}, "dataBits");
    QTEST(format.multiplier(), "multiplier");
    QCOMPARE(format.encode(), text);
    QCOMPARE(DataFormat::decode(text.toLower()).encode(), text);
}

void TestParameterCodec::everySkipCountAndWidthComesBack()
{
    for (int skipCount = 0; skipCount <= 255; ++skipCount) {
        for (int dataBits = 0; dataBits <= 32; ++dataBits) {
            const DataFormat format{DataFormat::kGray, static_cast<quint8>(skipCount),
                                    static_cast<quint8>(dataBits)};
            const DataFormat back = DataFormat::decode(format.encode());
            QCOMPARE(format.encode().size(), 6);
            QCOMPARE(int{back.flags}, 2);
            QCOMPARE(int{back.errorSkipCount}, skipCount);
            QCOMPARE(int{back.dataBits}, dataBits);
        }
    }
}

void TestParameterCodec::extensionIsThreeBytes()
{
    QCOMPARE((Extension{1, 0, 1}.encode()), QByteArray("010001"));
    QCOMPARE((Extension{2, 1, 2}.encode()), QByteArray("020102"));
    const Extension read = Extension::decode("010201");
    QCOMPARE(read.extension, 1);
    QCOMPARE(read.mode, 2);
    QCOMPARE(read.magnets, 1);
}

void TestParameterCodec::unknownExtensionComesBackAsItWas()
{
    QCOMPARE(Extension::decode("030A00").mode, 10);
    QCOMPARE(Extension::decode("030A00").encode(), QByteArray("030A00"));
}

void TestParameterCodec::resolutionIsEightDigits_data()
{
    QTest::addColumn<int>("micrometres");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("millimetres");
    QTest::newRow("1") << 1 << QByteArray("00000001") << 0.001;
    QTest::newRow("2") << 2 << QByteArray("00000002") << 0.002;
    QTest::newRow("5") << 5 << QByteArray("00000005") << 0.005;
    QTest::newRow("10") << 10 << QByteArray("00000010") << 0.010;
    QTest::newRow("20") << 20 << QByteArray("00000020") << 0.020;
    QTest::newRow("50") << 50 << QByteArray("00000050") << 0.050;
    QTest::newRow("100") << 100 << QByteArray("00000100") << 0.100;
}

void TestParameterCodec::resolutionIsEightDigits()
{
    QFETCH(int, micrometres);
    QFETCH(QByteArray, text);
    QFETCH(double, millimetres);
    QCOMPARE(encodeResolution(micrometres), text);
    QCOMPARE(decodeResolutionMm(text), millimetres);
}

void TestParameterCodec::strokeStandsBehindThePackageCode_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("stroke");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("four digits") << QByteArray("0A1250") << 1250.0 << QByteArray("1250");
    QTest::newRow("fewer digits") << QByteArray("0A0500") << 500.0 << QByteArray("500");
    QTest::newRow("more digits") << QByteArray("0B10160") << 10160.0 << QByteArray("10160");
}

void TestParameterCodec::strokeStandsBehindThePackageCode()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, digits);
    QTEST(decodeStrokeMm(text), "stroke");
    QCOMPARE(encodeStroke(text.left(2), digits), text);
}

void TestParameterCodec::gradientIsWrittenInHundredths_data()
{
    QTest::addColumn<double>("gradient");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("usual") << 2830.0 << QByteArray("283000");
    QTest::newRow("small") << 27.5 << QByteArray("002750");
    QTest::newRow("rounded, not cut") << 0.29 << QByteArray("000029");
    QTest::newRow("half a hundredth") << 0.125 << QByteArray("000013");
    QTest::newRow("nine digits") << 9999999.99 << QByteArray("999999999");
    QTest::newRow("ten digits") << 10000000.0 << QByteArray("refused");
    QTest::newRow("negative") << -0.01 << QByteArray("refused");
    QTest::newRow("no number") << kNan << QByteArray("refused");
}

void TestParameterCodec::gradientIsWrittenInHundredths()
{
    QFETCH(double, gradient);
    QTEST(textOf(encodeGradient(gradient)), "text");
    if (const auto text = encodeGradient(gradient))
        QVERIFY(std::abs(decodeGradient(*text) - gradient) < 0.0051);
}

void TestParameterCodec::scaleFollowsFromGradientAndResolution_data()
{
    QTest::addColumn<QByteArray>("gradient");
    QTest::addColumn<QByteArray>("resolution");
    QTest::addColumn<QByteArray>("scale");
    const auto row = [](const char* name, const char* gradient, const char* resolution,
                        const char* scale) {
        QTest::newRow(name) << QByteArray(gradient) << QByteArray(resolution) << QByteArray(scale);
    };
    row("0.005 mm", "283000", "00000005", "046C00");
    row("0.010 mm", "283000", "00000010", "023600");
    row("0.020 mm", "281500", "00000020", "011980");
    row("cut, not rounded", "000199", "00000100", "00000A");              // 10.19
    row("cut just below a whole number", "000039", "00000002", "000063"); // 99.84
    row("the largest", "3276799", "00000001", "FFFFFA");
    row("beyond six digits", "3276801", "00000001", "refused");
    row("no resolution", "283000", "00000000", "refused");
    row("neither", "000000", "00000000", "refused");
    row("negative", "-28300", "00000010", "refused");
    row("no gradient", "000000", "00000010", "000000");
}

void TestParameterCodec::scaleFollowsFromGradientAndResolution()
{
    QFETCH(QByteArray, gradient);
    QFETCH(QByteArray, resolution);
    QTEST(textOf(encodeScale(decodeGradient(gradient), decodeResolutionMm(resolution))), "scale");
}

void TestParameterCodec::offsetTextIsReadAsCounts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("counts");
    QTest::newRow("positive") << QByteArray("00000A") << 10;
    QTest::newRow("negative") << QByteArray("FFFFF6") << -10;
    QTest::newRow("negative in small letters") << QByteArray("fffff6") << -10;
    QTest::newRow("negative in mixed letters") << QByteArray("fFFff6") << -10;
    QTest::newRow("negative in eight digits") << QByteArray("FFFFFFF6") << -10;
    QTest::newRow("the lowest") << QByteArray("FF0000") << kLowestCounts;
    QTest::newRow("the highest") << QByteArray("FEFFFF") << kHighestCounts;
    QTest::newRow("nothing") << QByteArray() << 0;
}

void TestParameterCodec::offsetTextIsReadAsCounts()
{
    QFETCH(QByteArray, text);
    QTEST(decodeOffsetCounts(text), "counts");
}

void TestParameterCodec::offsetIsWrittenAsWholeCounts_data()
{
    QTest::addColumn<double>("offsetMm");
    QTest::addColumn<double>("resolutionMm");
    QTest::addColumn<int>("multiplier");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, double offsetMm, double resolutionMm, int multiplier,
                        const char* text) {
        QTest::newRow(name) << offsetMm << resolutionMm << multiplier << QByteArray(text);
    };
    row("finer resolution", 0.05, 0.001, 1, "000032");
    row("four cycles", 0.05, 0.001, 4, "0000C8");
    row("two cycles", 0.05, 0.005, 2, "000014");
    row("eight cycles", -0.05, 0.005, 8, "FFFFB0");
    row("negative", -0.05, 0.005, 1, "FFFFF6");
    row("rounded before it is multiplied", 0.0074, 0.005, 4, "000004");
    row("half a count away from zero", 0.25, 0.1, 1, "000003");
    row("half a count away from zero, negative", -0.25, 0.1, 1, "FFFFFD");
    row("the lowest", -65.536, 0.001, 1, "FF0000");
    row("below the lowest", -65.537, 0.001, 1, "refused");
    row("the highest", 16711.679, 0.001, 1, "FEFFFF");
    row("above the highest", 16711.680, 0.001, 1, "refused");
    row("below the lowest by the factor", -32.769, 0.001, 2, "refused");
    row("above the highest by the factor", 4177.920, 0.001, 4, "refused");
    row("24 bits and more", 100000.0, 0.001, 1, "refused");
    row("more than any integer", kLargest, 0.001, 1, "refused");
    row("no number", kNan, 0.001, 1, "refused");
    row("infinite", -kInfinity, 0.001, 1, "refused");
    row("no resolution", 0.05, 0.0, 1, "refused");
    row("neither", 0.0, 0.0, 1, "refused");
}

void TestParameterCodec::offsetIsWrittenAsWholeCounts()
{
    QFETCH(double, offsetMm);
    QFETCH(double, resolutionMm);
    QFETCH(int, multiplier);
    QTEST(textOf(encodeOffset(offsetMm, resolutionMm, multiplier)), "text");
}

/// An offset is kept in millimetres between reading and writing.
void TestParameterCodec::everyOffsetThatWasReadIsGivenBack()
{
    QVERIFY(!encodeOffsetCounts(kLowestCounts - 1));
    QVERIFY(!encodeOffsetCounts(kHighestCounts + 1));
    for (int counts = kLowestCounts;;) {
        const QByteArray text = textOf(encodeOffsetCounts(counts));
        if (text.size() != 6 || decodeOffsetCounts(text) != counts)
            QFAIL(qPrintable(QStringLiteral("%1 became ").arg(counts) + QString::fromLatin1(text)));
        for (const int micrometres : kResolutions) {
            const double resolutionMm = decodeResolutionMm(encodeResolution(micrometres));
            const double offsetMm = decodeOffsetCounts(text) * resolutionMm;
            if (encodeOffset(offsetMm, resolutionMm, 1) != text)
                QFAIL(qPrintable(QStringLiteral("%1 at %2").arg(counts).arg(micrometres)));
        }
        if (counts == kHighestCounts)
            break;
        const bool small = counts > -1000 && counts < 2000;
        counts = std::min(counts + (small ? 1 : 997), kHighestCounts); // a prime: all low digits
    }
}

QTEST_APPLESS_MAIN(TestParameterCodec)
#include "TestParameterCodec.moc"
