#include "pages/FactoryParameters.h"

#include "pages/ParameterCodec.h"
#include "support/Languages.h"

#include <QTest>

#include <clocale>

using namespace pelorin;
using namespace pelorin::test;

using Replies = QMap<char, QByteArray>;

namespace {

const Replies kReplies = {{'F', "SN012345"}, {'D', "0A0519"},   {'L', "0A1250"}, {'U', "283000"},
                          {'P', "0000A71E"}, {'A', "00000005"}, {'N', "FFFFF6"}, {'M', "081F20"},
                          {'J', "000001"},   {'O', "00003C"}};

/// The parameters with some of the replies replaced.
FactoryParameters read(const Replies& others = {})
{
    Replies replies = kReplies;
    replies.insert(others);
    FactoryParameters parameters;
    for (auto reply = replies.cbegin(); reply != replies.cend(); ++reply)
        parameters.take(reply.key(), reply.value());
    return parameters;
}

FactoryParameters::Texts entriesOf(const FactoryParameters& parameters)
{
    FactoryParameters::Texts texts;
    for (int row = 0; row < FactoryParameters::kRowCount; ++row)
        texts[static_cast<std::size_t>(row)] = parameters.text(row);
    return texts;
}

/// The entries as read, one of them edited.
FactoryParameters::Texts edited(const FactoryParameters& parameters, int row, const char* text)
{
    auto texts = entriesOf(parameters);
    texts[static_cast<std::size_t>(row)] = QString::fromUtf8(text);
    return texts;
}

QByteArray sixDigits(int value)
{
    return QByteArray::number(value).rightJustified(6, '0');
}

} // namespace

class TestFactoryParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rowsShowWhatWasRead_data();
    void rowsShowWhatWasRead();
    void editedRowsAreWrittenAs_data();
    void editedRowsAreWrittenAs();
    void uneditedRowsAreWrittenAsTheyWereRead();
    void everyGradientComesBackAsItWasRead();
    void everyReadableOffsetComesBackAsItWasRead_data();
    void everyReadableOffsetComesBackAsItWasRead();
    void badEntriesAreRefusedInTheirRow_data();
    void badEntriesAreRefusedInTheirRow();
    void rowsThatTheSensorLacksAreNotLookedAt();
    void repliesThatCannotBeWrittenBackAreRefused_data();
    void repliesThatCannotBeWrittenBackAreRefused();

private:
    Languages m_languages{1};
};

/// Runs a second time in a locale with a decimal comma.
void TestFactoryParameters::initTestCase()
{
    std::setlocale(LC_ALL, "");
    QLocale::setDefault(QLocale::system());
}

void TestFactoryParameters::rowsShowWhatWasRead_data()
{
    QTest::addColumn<Replies>("replies");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, char id, const char* reply, int number,
                        const char* shown) {
        QTest::newRow(name) << Replies{{id, reply}} << number << QString::fromLatin1(shown);
    };
    row("F unchanged", 'F', "sn 12", 0, "sn 12");
    row("kind of L", 'L', "0A1250", 1, "0A");
    row("stroke of L", 'L', "0A1250", 2, "1250");
    row("short stroke", 'L', "0A0050", 2, "50");
    row("U", 'U', "2750", 3, "27.50");
    row("small U", 'U', "29", 3, "0.29");
    row("D 00", 'D', "0A0519", 4, "0");
    row("D 40", 'D', "4A0519", 4, "2");
    row("D 80", 'D', "8A0519", 4, "4");
    row("D C0", 'D', "C01234", 4, "8");
    row("D in small letters", 'D', "ca0519", 4, "8");
    row("P unchanged", 'P', "0000a71e", 5, "0000a71e");
    row("N negative", 'N', "FFFFF6", 6, "-0.050");
    row("N negative in small letters", 'N', "fffff6", 6, "-0.050");
    row("N positive", 'N', "00000A", 6, "0.050");
    row("N of eight digits", 'N', "FFFFFFF6", 6, "-0.050");
    row("N by A", 'A', "00000100", 6, "-1.000");
    row("end of M", 'M', "081F2a", 7, "2a");
    row("J unchanged", 'J', "000002", 8, "000002");
    row("O unchanged", 'O', "00003c", 9, "00003c");
}

void TestFactoryParameters::rowsShowWhatWasRead()
{
    QFETCH(Replies, replies);
    QFETCH(int, row);
    QFETCH(QString, shown);
    QCOMPARE(read(replies).text(row), shown);
    QCOMPARE(FactoryParameters().text(row), QString());
}

void TestFactoryParameters::editedRowsAreWrittenAs_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<char>("id");
    QTest::addColumn<QByteArray>("written");
    const auto row = [](const char* text, int number, char id, const char* written) {
        QTest::addRow("row %d %s gives %c %s", number, text, id, written)
            << number << QByteArray(text) << id << QByteArray(written);
    };
    row("AB", 0, 'F', "000000AB");
    row("12345678", 0, 'F', "12345678");
    row("7C", 1, 'L', "7C1250");
    row("50", 2, 'L', "0A0050");
    row("0000043", 2, 'L', "0A0000043");
    row("27.5", 3, 'U', "002750");
    row("0.29", 3, 'U', "000029");
    row("0.005", 3, 'U', "000001"); // halves go up
    row("9999.99", 3, 'U', "999999");
    row("0", 3, 'U', "000000");
    row("2830", 3, 'S', "046C00");
    row("9999.99", 3, 'S', "0F9FFE");
    row("0", 3, 'S', "000000");
    row("1250", 2, 'Z', "081F32");
    row("250", 2, 'Z', "07E932");
    row("0", 2, 'Z', "021032");
    row("299", 2, 'Z', "090E32");
    row("300", 2, 'Z', "042C32");
    row("599", 2, 'Z', "07AB32");
    row("600", 2, 'Z', "045232");
    row("43639", 2, 'Z', "FFFF32");
    row("250", 2, 'M', "024620");
    row("0", 2, 'M', "00D020");
    row("43639", 2, 'M', "FFFF20");
    row("1", 5, 'P', "00000001");
    row("2", 4, 'D', "4A0519");
    row("4", 4, 'D', "8A0519");
    row("8", 4, 'D', "CA0519");
    row("-0.05", 6, 'N', "FFFFF6");
    row("0.0525", 6, 'N', "00000B"); // halves go away from zero
    row("-0.0525", 6, 'N', "FFFFF5");
    row("-327.68", 6, 'N', "FF0000");
    row("83558.395", 6, 'N', "FEFFFF");
    row("2", 4, 'N', "FFFFEC");
    row("4", 4, 'N', "FFFFD8");
    row("8", 4, 'N', "FFFFB0");
    row("F", 7, 'M', "081F0F");
    row("0x7f", 7, 'M', "081F7F");
    row("2", 8, 'J', "000002");
    row("fFfFfF", 9, 'O', "FFFFFF");
}

void TestFactoryParameters::editedRowsAreWrittenAs()
{
    QFETCH(int, row);
    QFETCH(QByteArray, text);
    QFETCH(char, id);
    QFETCH(QByteArray, written);
    const FactoryParameters parameters = read();
    auto entries = edited(parameters, row, text);
    QCOMPARE(parameters.findFault(entries, 10).message, QString());
    QCOMPARE(parameters.composeWriteValue(id, entries), written);

    // A typed number may have the user's separator.
    auto& entry = entries[static_cast<std::size_t>(row)];
    entry.replace(QLatin1Char('.'), QLocale().decimalPoint());
    QCOMPARE(parameters.composeWriteValue(id, entries), written);
}

void TestFactoryParameters::uneditedRowsAreWrittenAsTheyWereRead()
{
    const FactoryParameters parameters = read();
    for (const char id : {'F', 'L', 'U', 'P', 'D', 'N', 'M', 'J', 'O'})
        QCOMPARE(parameters.composeWriteValue(id, entriesOf(parameters)), kReplies[id]);
}

void TestFactoryParameters::everyGradientComesBackAsItWasRead()
{
    FactoryParameters parameters;
    for (int value = 0; value <= 999999; ++value) {
        const QByteArray reply = sixDigits(value);
        parameters.take('U', reply);
        FactoryParameters::Texts entries;
        entries[FactoryParameters::Gradient] = parameters.text(FactoryParameters::Gradient);
        if (parameters.composeWriteValue('U', entries) != reply)
            QFAIL(reply.constData());
    }
}

void TestFactoryParameters::everyReadableOffsetComesBackAsItWasRead_data()
{
    QTest::addColumn<QByteArray>("resolution");
    for (const char* resolution : {"00000001", "00000002", "00000003", "00000005", "00000010",
                                   "00000100", "00099999", "99999999"})
        QTest::newRow(resolution) << QByteArray(resolution);
}

void TestFactoryParameters::everyReadableOffsetComesBackAsItWasRead()
{
    QFETCH(QByteArray, resolution);
    constexpr int kStep = 1237; // a prime, so that all kinds of digits come by
    FactoryParameters parameters = read({{'A', resolution}});
    auto entries = entriesOf(parameters);
    for (int count = -0x10000; count <= 0xFEFFFF; count += kStep) {
        const QByteArray reply =
            QString::asprintf("%06X", static_cast<unsigned>(count)).right(6).toLatin1();
        parameters.take('N', reply);
        entries[FactoryParameters::Offset] = parameters.text(FactoryParameters::Offset);
        if (parameters.composeWriteValue('N', entries) != reply)
            QFAIL(reply.constData());
    }
}

void TestFactoryParameters::badEntriesAreRefusedInTheirRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](int number, const char* text, const char* message) {
        QTest::addRow("row %d \"%s\"", number, text)
            << number << QByteArray(text) << QString::fromUtf8(message);
    };
    const char* missing = "A value is missing. Please complete it first.";
    const char* characters = "This value may only contain letters without accents, digits, blanks "
                             "and the punctuation of the ASCII characters.";
    const char* digits = "This value must consist of the digits 0 to 9 only.";
    const char* eight = "This value must not be longer than 8 characters.";
    const char* two = "This value must have exactly 2 characters.";
    const char* gradient = "This value must be a number from 0.00 to 9999.99.";
    const char* offset = "This value must be a number from -327.680 to 83558.395.";
    const char* suffix = "This value must be a hexadecimal number from 0 to FF.";
    const char* j = "This value must be 0, 1 or 2.";
    const char* o = "This value must be a hexadecimal number from 0 to FFFFFF.";
    for (int number = 0; number < FactoryParameters::kRowCount; ++number)
        row(number, "", missing);
    row(0, "123456789", eight);
    row(0, "Größe", characters);
    row(0, "a\tb", characters);
    row(1, "A", two);
    row(1, "0AB", two);
    row(1, "\x7F\x7F", characters);
    row(2, "12.5", digits);
    row(2, "-1", digits);
    row(2, " 50", digits);
    row(2, "0x10", digits);
    row(2, "00000500", "This value must not be longer than 7 characters.");
    row(2, "43640", "This value must be a number from 0 to 43639.");
    row(2, "9999999", "This value must be a number from 0 to 43639.");
    row(3, "fast", gradient);
    row(3, "1.000.5", gradient);
    row(3, "1e3", gradient);
    row(3, "inf", gradient);
    row(3, "-0.01", gradient);
    row(3, "10000", gradient);
    row(4, "1", "This value must be 0, 2, 4 or 8.");
    row(4, " 2", "This value must be 0, 2, 4 or 8.");
    row(4, "16", "This value must be 0, 2, 4 or 8.");
    row(5, "000000000", eight);
    row(6, "zero", offset);
    row(6, "-327.685", offset);
    row(6, "83558.4", offset);
    row(6, "1e300", offset);
    row(7, "100", suffix);
    row(7, "G", suffix);
    row(7, "-1", suffix);
    row(8, "3", j);
    row(8, "-1", j);
    row(8, "1.5", j);
    row(8, "one", j);
    row(9, "1000000", o);
    row(9, "3C mm", o);
}

void TestFactoryParameters::badEntriesAreRefusedInTheirRow()
{
    QFETCH(int, row);
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const FactoryParameters parameters = read();
    QCOMPARE(parameters.findFault(entriesOf(parameters), 10).message, QString());
    const auto fault = parameters.findFault(edited(parameters, row, text), 10);
    QCOMPARE(fault.message, message);
    QCOMPARE(fault.row, row);
}

void TestFactoryParameters::rowsThatTheSensorLacksAreNotLookedAt()
{
    const FactoryParameters parameters = read();
    QCOMPARE(parameters.findFault(edited(parameters, 7, ""), 7).message, QString());
    QCOMPARE(parameters.findFault(edited(parameters, 8, "7"), 8).message, QString());
}

void TestFactoryParameters::repliesThatCannotBeWrittenBackAreRefused_data()
{
    QTest::addColumn<char>("id");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("message");
    const auto misread = [](char id, const char* reply) {
        QTest::addRow("%c %s", id, reply)
            << id << QByteArray(reply)
            << QStringLiteral("Parameter %1 was read as \"%2\". This page cannot write that back "
                              "unchanged. Nothing was written.")
                   .arg(QString(QLatin1Char(id)), QLatin1String(reply));
    };
    misread('L', "0A12.5");
    misread('L', "0A-125");
    misread('U', "28.300");
    misread('U', "-00001");
    misread('A', "0000G5");
    misread('A', "000.50");
    misread('D', "G10519");
    misread('D', "4A051900"); // too wide to keep its first byte
    misread('N', "00-00A");
    QTest::newRow("A 0") << 'A' << QByteArray("00000000")
                         << QStringLiteral("The resolution read from the sensor is 0. Nothing was "
                                           "written.");
}

void TestFactoryParameters::repliesThatCannotBeWrittenBackAreRefused()
{
    QFETCH(char, id);
    QFETCH(QByteArray, reply);
    QFETCH(QString, message);
    const FactoryParameters parameters = read({{id, reply}});
    const auto fault = parameters.findFault(entriesOf(read()), 10);
    QCOMPARE(fault.message, message);
    QCOMPARE(fault.row, -1);
}

QTEST_MAIN(TestFactoryParameters)
#include "TestFactoryParameters.moc"
