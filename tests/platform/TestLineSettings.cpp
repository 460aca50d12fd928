#include "platform/core/LineSettings.h"

#include <QTest>

using namespace pelorin;

class TestLineSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsTextIsReadWholeOrNotAtAll_data();
    void settingsTextIsReadWholeOrNotAtAll();
};

void TestLineSettings::settingsTextIsReadWholeOrNotAtAll_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("baud");
    QTest::addColumn<char>("parity");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("stopBits");

    QTest::newRow("parameter mode") << QByteArray("4800,N,8,1") << 4800 << 'N' << 8 << 1;
    QTest::newRow("stream mode") << QByteArray("38400,N,8,1") << 38400 << 'N' << 8 << 1;
    QTest::newRow("even parity") << QByteArray("9600,E,7,2") << 9600 << 'E' << 7 << 2;
    for (const char* bad : {"", "4800", "4800,N,8", "4800,N,8,1,", "4800,N,8,1 ", "x,N,8,1",
                            "4800,NO,8,1", "4800,Q,8,1", "4800,N,9,1", "4800,N,8,3", "-1,N,8,1"})
        QTest::addRow("refused '%s'", bad) << QByteArray(bad) << 0 << ' ' << 0 << 0;
}

void TestLineSettings::settingsTextIsReadWholeOrNotAtAll()
{
    QFETCH(QByteArray, text);
    QFETCH(int, baud);
    QFETCH(char, parity);
    QFETCH(int, dataBits);
    QFETCH(int, stopBits);

    const auto line = LineSettings::parse(text.toStdString());
    QCOMPARE(line.has_value(), baud != 0);
    if (line)
        QCOMPARE(*line, (LineSettings{baud, parity, dataBits, stopBits}));
}

QTEST_APPLESS_MAIN(TestLineSettings)
#include "TestLineSettings.moc"
