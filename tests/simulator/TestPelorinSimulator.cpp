#include "platform/core/TermiosComPort.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QProcess>
#include <QTest>

#include <csignal>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

std::string readFrame(ComPort& port)
{
    std::string frame;
    auto result = port.read();
    for (; result.received && result.byte != '\r'; result = port.read())
        frame += result.byte;
    return result.error == 0 ? frame : std::strerror(result.error);
}

/// What a device answers in programming mode.
std::string ask(ComPort& port, std::string_view frame)
{
    const std::string entry = QByteArray("PROG\r").repeated(10).toStdString();
    const bool sent = port.write(entry).written == 50 && port.purge(ComPort::Purge::Both) == 0 &&
                      port.write(frame).error == 0;
    return sent ? readFrame(port) : "not sent";
}

} // namespace

class TestPelorinSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void devicesAnswerOverTheirTerminalsUntilASignalEndsTheProgram()
    {
        const QString displayLink = m_folder.path(u"display"_s);
        QProcess program;
        program.start(kProgram, {u"--type"_s, u"1"_s, u"--display"_s, u"--link"_s, m_link,
                                 u"--link"_s, displayLink, u"--fault"_s, u"vanish:100@AA"_s,
                                 u"--fault"_s, u"short:4@V"_s});
        QVERIFY(waitFor([&program] { return program.canReadLine(); }));
        QCOMPARE(QString::fromUtf8(program.readAll()),
                 u"sensor of type 1: %1\ndisplay unit: %2\n"_s.arg(
                     QFileInfo(m_link).symLinkTarget(), QFileInfo(displayLink).symLinkTarget()));
        TermiosComPort display(displayLink.toStdString());
        QCOMPARE(display.open(), 0);
        QCOMPARE(display.setLine({19200}), 0);
        QCOMPARE(ask(display, "$1WE\r"), std::string("*"));

        TermiosComPort sensor(m_link.toStdString());
        QCOMPARE(sensor.open(), 0);
        QCOMPARE(ask(sensor, "DN4E0519\rEN\rVA\rNA\r"), std::string("2A01FFFFF6"));
        QCOMPARE(sensor.setLine({38400}), 0); // the sensor restarts
        QCOMPARE(readFrame(sensor), std::string("0009BF00"));
        QCOMPARE(sensor.setLine({4800}), 0);
        QCOMPARE(ask(sensor, "DA\r"), std::string("4E0519"));

        std::string gone = ask(sensor, "AA\r");
        if (gone.empty()) // a read that the hang-up meets may end without a byte
            gone = readFrame(sensor);
        QCOMPARE(gone, std::string(std::strerror(ENODEV)));
        QVERIFY(waitFor([&sensor] { return sensor.isOpen() || sensor.open() == 0; }));
        QCOMPARE(ask(sensor, "DA\r"), std::string("4E0519")); // it is back at its link

        QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGINT), 0);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(m_folder.names(), QString());
    }

    void meaninglessOptionsAreRefusedAndNoFileIsReplaced()
    {
        QVERIFY(m_folder.put(u"precious"_s, "kept"));
        for (const QStringList& arguments : {QStringList{u"--type"_s, u"3"_s},
                                             {u"--type"_s, u"x"_s},
                                             {u"--fault"_s, u"loud"_s},
                                             {u"surplus"_s},
                                             {u"-h"_s},
                                             {u"--speed"_s, u"9"_s},
                                             {u"--link"_s, m_folder.path(u"precious"_s)},
                                             {u"--link"_s, m_link, u"--link"_s, m_link}}) {
            QProcess program;
            program.start(kProgram, arguments);
            QVERIFY2(program.waitForFinished(), qPrintable(arguments.join(u' ')));
            QCOMPARE(program.exitStatus(), QProcess::NormalExit);
            const bool wrongLink = arguments.value(0) == u"--link"_s && arguments.size() == 2;
            QVERIFY2(program.exitCode() == (wrongLink ? 1 : 2), qPrintable(arguments.join(u' ')));
            QVERIFY(!program.readAllStandardError().isEmpty());
        }
        QCOMPARE(m_folder.content(u"precious"_s), QByteArray("kept"));
    }

private:
    const QString kProgram = QStringLiteral(PELORIN_SIMULATOR);
    const TestFolder m_folder;
    const QString m_link = m_folder.path(u"sensor"_s);
};

QTEST_GUILESS_MAIN(TestPelorinSimulator)
#include "TestPelorinSimulator.moc"
