#include "sensor/FactoryParameters.h"

#include "sensor/ParameterCodec.h"
#include "support/Languages.h"

#include <QTest>

#include <clocale>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kAllRows = FactoryParameters::kRowCount;

/// Parameters as read from a sensor, one of them with another reply.
FactoryParameters read(char id = 0, const QByteArray& reply = {})
{
    QMap<char, QByteArray> replies = {
        {'F', "SN012345"}, {'D', "0A0519"}, {'L', "0A1250"}, {'U', "283000"}, {'P', "0000A71E"},
        {'A', "00000005"}, {'N', "FFFFF6"}, {'M', "081F20"}, {'J', "000001"}, {'O', "00003C"}};
    if (id != 0)
        replies[id] = reply;
    FactoryParameters parameters;
    for (auto read = replies.cbegin(); read != replies.cend(); ++read)
        parameters.take(read.key(), read.value());
    return parameters;
}

FactoryParameters::Texts entriesOf(const FactoryParameters& parameters)
{
    FactoryParameters::Texts texts;
    for (int row = 0; row < kAllRows; ++row)
        texts[static_cast<std::size_t>(row)] = parameters.text(row);
    return texts;
}

/// The entries as read, one of them edited.
FactoryParameters::Texts edited(int row, const char* text)
{
    auto texts = entriesOf(read());
    texts[static_cast<std::size_t>(row)] = QString::fromUtf8(text);
    return texts;
}

/// What is written for the parameter of a row that is read, shown and not edited.
QByteArray comesBack(FactoryParameters& parameters, int row, const QByteArray& reply)
{
    const char id = FactoryParameters::parameterOf(row);
    parameters.take(id, reply);
    FactoryParameters::Texts entries;
    entries[static_cast<std::size_t>(row)] = parameters.text(row);
    return parameters.composeWriteValue(id, entries);
}

} // namespace

/// Runs a second time in a locale with a decimal comma.
class TestFactoryParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rowsShowWhatWasRead();
    void blanksBeforeDigitsAreTaken();
    void editedRowsAreWrittenAs();
    void numbersComeBackAsTheyWereRead();
    void badEntriesAreRefusedInTheirRow();
    void rangeOfTheOffsetFollowsTheMultiplier();
    void repliesThatCannotBeWrittenBackAreRefused();

private:
    Languages m_languages{1};
};

void TestFactoryParameters::initTestCase()
{
    std::setlocale(LC_ALL, "");
    QLocale::setDefault(QLocale::system());
}

/// Reply, row, and the text that it shows.
void TestFactoryParameters::rowsShowWhatWasRead()
{
    for (const char* line :
         {"F=sn#12 0 sn#12", "L=0A0050 1 0A", "L=0A0050 2 50", "U=2750 3 27.50", "U=29 3 0.29",
          "D=3A0519 4 0", "D=7A0519 4 2", "D=8A0519 4 4", "D=ca0519 4 8", "P=0000a71e 5 0000a71e",
          "N=fffff6 6 -0.050", "N=00000A 6 0.050", "N=FFFFFFF6 6 -0.050", "A=00000100 6 -1.000",
          "M=081F2a 7 2a", "J=000002 8 000002", "O=00003c 9 00003c"}) {
        const QStringList words = QString::fromLatin1(line).split(QLatin1Char(' '));
        const QByteArray reply = words[0].toLatin1();
        QVERIFY2(read(reply[0], reply.mid(2)).text(words[1].toInt()) == words[2], line);
    }
    for (int row = 0; row < kAllRows; ++row)
        QCOMPARE(FactoryParameters().text(row), QString());
}

/// They are written back with zeros.
void TestFactoryParameters::blanksBeforeDigitsAreTaken()
{
    FactoryParameters parameters = read('L', "0A  50");
    parameters.take('U', "  2750");
    const auto entries = entriesOf(parameters);
    QCOMPARE(parameters.findFault(entries, kAllRows).message, QString());
    QCOMPARE(parameters.composeWriteValue('L', entries), QByteArray("0A0050"));
    QCOMPARE(parameters.composeWriteValue('U', entries), QByteArray("002750"));
}

/// Row, the text that is entered, and what is written. Halves are rounded away from zero.
void TestFactoryParameters::editedRowsAreWrittenAs()
{
    for (const char* line : {"0 AB F=000000AB",       "1 7C L=7C1250",      "2 50 L=0A0050",
                             "2 0000043 L=0A0000043", "3 27.5 U=002750",    "3 0.005 U=000001",
                             "3 9999.99 U=999999",    "3 2830 S=046C00",    "3 9999.99 S=0F9FFE",
                             "2 1250 Z=081F32",       "2 0 Z=021032",       "2 250 Z=07E932",
                             "2 299 Z=090E32",        "2 300 Z=042C32",     "2 599 Z=07AB32",
                             "2 600 Z=045232",        "2 43639 Z=FFFF32",   "2 250 M=024620",
                             "2 43639 M=FFFF20",      "5 1 P=00000001",     "4 2 D=4A0519",
                             "4 4 D=8A0519",          "4 8 D=CA0519",       "6 0.0525 N=00000B",
                             "6 -0.0525 N=FFFFF5",    "6 -327.68 N=FF0000", "6 83558.395 N=FEFFFF",
                             "4 2 N=FFFFEC",          "4 4 N=FFFFD8",       "4 8 N=FFFFB0",
                             "7 0xf M=081F0F",        "8 2 J=000002",       "9 fFfFfF O=FFFFFF"}) {
        const QStringList words = QString::fromLatin1(line).split(QLatin1Char(' '));
        const QByteArray write = words[2].toLatin1();
        auto entries = edited(words[0].toInt(), words[1].toLatin1().constData());
        QCOMPARE(read().findFault(entries, kAllRows).message, QString());
        QVERIFY2(read().composeWriteValue(write[0], entries) == write.mid(2), line);

        // A typed number may have the user's separator.
        for (QString& entry : entries)
            entry.replace(QLatin1Char('.'), QLocale().decimalPoint());
        QVERIFY2(read().composeWriteValue(write[0], entries) == write.mid(2), line);
    }
}

void TestFactoryParameters::numbersComeBackAsTheyWereRead()
{
    FactoryParameters parameters;
    for (int value = 0; value <= 999999; value += 7) { // primes, so that all digits come by
        const QByteArray reply = QByteArray::number(value).rightJustified(6, '0');
        QCOMPARE(comesBack(parameters, FactoryParameters::Gradient, reply), reply);
    }
    for (const char* resolution : {"00000001", "00000003", "00099999", "99999999"}) {
        parameters = read('A', resolution);
        for (int count = -0x10000; count <= 0xFEFFFF; count += 1237) {
            const QByteArray reply =
                QString::asprintf("%06X", static_cast<unsigned>(count)).right(6).toLatin1();
            QCOMPARE(comesBack(parameters, FactoryParameters::Offset, reply), reply);
        }
    }
}

void TestFactoryParameters::badEntriesAreRefusedInTheirRow()
{
    struct Case
    {
        QList<int> rows;
        QList<const char*> texts;
        const char* message;
    };
    const QList<Case> cases = {
        {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {""}, "A value is missing. Please complete it first."},
        {{0, 1, 5},
         {"\u00F6!", "\t!", "\x7F!"},
         "This value may only contain unaccented letters, digits, spaces and ASCII punctuation."},
        {{0, 5}, {"123456789"}, "This value must not be longer than 8 characters."},
        {{1}, {"A", "0AB"}, "This value must have exactly 2 characters."},
        {{2}, {"12.5", "-1", " 50", "0x10"}, "This value must consist of the digits 0 to 9 only."},
        {{2}, {"00000500"}, "This value must not be longer than 7 characters."},
        {{2}, {"43640", "9999999"}, "This value must be a number from 0 to 43639."},
        {{3},
         {"fast", "1.000.5", "1e3", "inf", "-0.01", "10000"},
         "This value must be a number from 0.00 to 9999.99."},
        {{4}, {"1", " 2", "16"}, "This value must be 0, 2, 4 or 8."},
        {{6},
         {"zero", "-327.685", "83558.4", "1e300"},
         "This value must be a number from -327.680 to 83558.395."},
        {{7}, {"100", "G", "-1"}, "This value must be a hexadecimal number from 0 to FF."},
        {{8}, {"3", "-1", "1.5", "one"}, "This value must be 0, 1 or 2."},
        {{9}, {"1000000", "3C mm"}, "This value must be a hexadecimal number from 0 to FFFFFF."}};
    for (const auto& [rows, texts, message] : cases)
        for (const int row : rows)
            for (const char* text : texts) {
                const auto fault = read().findFault(edited(row, text), kAllRows);
                QVERIFY2(fault.message == QLatin1String(message) && fault.row == row, text);
                // A row that the sensor lacks is not looked at.
                QCOMPARE(read().findFault(edited(row, text), row).message, QString());
            }
}

/// What the message names as the highest is taken, and nothing above it.
void TestFactoryParameters::rangeOfTheOffsetFollowsTheMultiplier()
{
    auto entries = edited(FactoryParameters::Multiplier, "2");
    QString& offset = entries[FactoryParameters::Offset];
    offset = QStringLiteral("41779.195");
    QCOMPARE(read().composeWriteValue('N', entries), QByteArray("FEFFFE"));
    offset = QStringLiteral("41779.198");
    QCOMPARE(read().findFault(entries, kAllRows).message,
             QStringLiteral("This value must be a number from -163.840 to 41779.195."));
}

void TestFactoryParameters::repliesThatCannotBeWrittenBackAreRefused()
{
    for (const QByteArray misread :
         {"L0A12.5", "U28.300", "A0000G5", "D4AG519", "N00-00A", "M08_F20"}) {
        const auto fault = read(misread[0], misread.mid(1)).findFault(edited(0, "A"), kAllRows);
        QCOMPARE(
            fault.message,
            QStringLiteral("Parameter %1 was read as \"%2\", which is not a value of it: the "
                           "answer may have been disturbed. Refresh the page. Nothing was written.")
                .arg(QLatin1String(misread.left(1)), QLatin1String(misread.mid(1))));
        QCOMPARE(fault.row, -1);
    }
    QCOMPARE(read('A', "00000000").findFault(edited(0, "A"), kAllRows).message,
             QStringLiteral("The sensor has no valid resolution, so its offset is not known. "
                            "Nothing was written."));
}

QTEST_MAIN(TestFactoryParameters)
#include "TestFactoryParameters.moc"
