#include "platform/core/HexText.h"

#include <QTest>

using namespace pelorin;

class TestHexText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trailingRunOfDigitsIsTheValue_data();
    void trailingRunOfDigitsIsTheValue();
    void typedTextIsReadUpToTheFirstOddCharacter_data();
    void typedTextIsReadUpToTheFirstOddCharacter();
};

void TestHexText::trailingRunOfDigitsIsTheValue_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint32>("value");

    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("two digits") << QByteArray("1A") << 26;
    QTest::newRow("lower case") << QByteArray("1a") << 26;
    QTest::newRow("odd character before the run") << QByteArray("G1A") << 26;
    QTest::newRow("odd character at the end") << QByteArray("1AG") << 0;
    QTest::newRow("blank inside") << QByteArray("12 34") << 52;
    QTest::newRow("only the last eight digits count") << QByteArray("123456789") << 0x23456789;
    QTest::newRow("sign bit") << QByteArray("FFFFFFFF") << -1;
    QTest::newRow("smallest") << QByteArray("80000000") << std::numeric_limits<qint32>::min();
    QTest::newRow("six digits stay positive") << QByteArray("FFFFF6") << 16777206;
    QTest::newRow("byte beyond ASCII") << QByteArray("12\xE4"
                                                     "05")
                                       << 5;
}

void TestHexText::trailingRunOfDigitsIsTheValue()
{
    QFETCH(QByteArray, text);
    QFETCH(qint32, value);

    QCOMPARE(hexToLong(text), value);
    QCOMPARE(hexToLong(QString::fromLatin1(text)), value);
}

void TestHexText::typedTextIsReadUpToTheFirstOddCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("value");
    QTest::addColumn<bool>("whole");

    QTest::newRow("empty") << "" << 0U << false;
    QTest::newRow("blanks only") << "  " << 0U << false;
    QTest::newRow("one digit") << "D" << 13U << true;
    QTest::newRow("lower case and blanks") << "\t0d " << 13U << true;
    QTest::newRow("prefix") << "0x4f" << 0x4FU << true;
    QTest::newRow("capital prefix") << "0X4F" << 0x4FU << true;
    QTest::newRow("prefix without digits") << "0x" << 0U << false;
    QTest::newRow("prefix before an odd character") << "0xG" << 0U << false;
    QTest::newRow("more than a byte") << "1FF" << 0x1FFU << true;
    QTest::newRow("32 bits") << "FFFFFFEC" << 0xFFFFFFECU << true;
    QTest::newRow("leading zeros") << "000000000001" << 1U << true;
    QTest::newRow("more than 32 bits") << "123456789" << 0x23456789U << false;
    QTest::newRow("odd character behind") << "5G" << 5U << false;
    QTest::newRow("odd character in front") << "G5" << 0U << false;
    QTest::newRow("sign") << "-1" << 0U << false;
    QTest::newRow("blank inside") << "12 34" << 0x12U << false;
    QTest::newRow("fullwidth digit") << QString(QChar(0xFF11)) << 0U << false;
}

void TestHexText::typedTextIsReadUpToTheFirstOddCharacter()
{
    QFETCH(QString, text);
    QFETCH(quint32, value);
    QFETCH(bool, whole);

    QCOMPARE(hexToInt(text), value);
    QCOMPARE(isHex(text), whole);
}

QTEST_APPLESS_MAIN(TestHexText)
#include "TestHexText.moc"
