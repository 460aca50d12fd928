#include "app/Commands.h"
#include "pages/ManualCommDialog.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;
using Fault = SimulatedFault::Kind;

namespace {

constexpr int kOk = 1;
constexpr int kExecute = 1054;
constexpr auto kAskForVersion = "56,41,0D";

/// The user of the dialog, in the main window on a simulated sensor.
struct Rig : MainWindowRig
{
    /// Connects, chooses the command on a page and runs the steps on the dialog, which is closed
    /// then. @return false if they fail or it did not come
    [[nodiscard]] bool open(int page, const std::function<void()>& steps)
    {
        sensor().setParameter('V', "300100");
        return startConnected() && (page == 0 || choosePage(page)) && show(steps);
    }
    [[nodiscard]] bool show(const std::function<void()>& steps)
    {
        const ModalAnswer<ManualCommDialog> answer([&](ManualCommDialog& shown) {
            dialog = &shown;
            steps();
            shown.close();
        });
        const auto isClosed = [&] {
            return answer.wasShown() && !QApplication::activeModalWidget();
        };
        return clickCommand(kManualCommCommand) && waitFor(isClosed) && !QTest::currentTestFailed();
    }
    void click(int button) const
    {
        QTest::mouseClick(dialog->getControl<QPushButton>(button), Qt::LeftButton);
    }
    [[nodiscard]] QLineEdit& edit() const { return *dialog->getControl<QLineEdit>(1051); }
    void type(const char* text) const
    {
        edit().selectAll();
        QTest::keyClick(&edit(), Qt::Key_Delete);
        QTest::keyClicks(&edit(), QString::fromUtf8(text));
    }
    void execute(const char* text) const
    {
        type(text);
        click(kExecute);
    }
    /// @return what is then to be sent
    [[nodiscard]] QString press(Qt::Key key) const
    {
        QTest::keyClick(&edit(), key);
        return edit().text();
    }
    [[nodiscard]] QString received() const
    {
        return dialog->getControl<QPlainTextEdit>(1053)->toPlainText();
    }
    [[nodiscard]] QString outcome() const { return dialog->getControl<QLabel>(1056)->text(); }

    ManualCommDialog* dialog = nullptr;
};

} // namespace

class TestManualComm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesAreSentAndShownAsTheyAre()
    {
        Rig rig;
        QByteArray sent; // not to be read during an exchange
        rig.wrapPorts([&sent](auto port) {
            const auto note = [&sent](std::string_view bytes) { sent += bytes; };
            return std::make_unique<WatchedPort>(std::move(port), note);
        });
        const auto check = [&](const char* text, const QByteArray& bytes, const QString& mark) {
            sent.clear();
            rig.execute(text);
            QCOMPARE(rig.dialog->getControl<QLabel>(1055)->text(), mark);
            rig.click(kExecute); // while the first one runs
            QVERIFY(rig.waitIdle());
            QCOMPARE(sent, bytes);
            QCOMPARE(rig.received() + rig.outcome(), QString());
        };
        QVERIFY(rig.open(0, [&] {
            QVERIFY(rig.edit().hasFocus());
            Pacing::setSpeeds({100, 200, 5}); // of the sensor's silence
            check("1FF,d, 0d ,0x4f, 0X4f ", "\xFF\r\rOO", {});
            const QString begin = u"Not hexadecimal, but sent all the same: "_s;
            check("41,,42", {"A\0B", 3}, begin + u"field 2 \"\" as 00"_s);
            check("41, ", {"A\0", 2}, begin + u"field 2 \" \" as 00"_s);
            check("5G,-1", {"\5\0", 2}, begin + u"field 1 \"5G\" as 05; field 2 \"-1\" as 00"_s);
            check("<b>%1", {"\0", 1}, begin + u"field 1 \"<b>%1\" as 00"_s);
            check("x,y,z,u", {"\0\0\0\0", 4},
                  begin +
                      u"field 1 \"x\" as 00; field 2 \"y\" as 00; field 3 \"z\" as 00; \u2026"_s);
            check("50,52,4F,47,0D,", "PROG\r", {});

            Pacing::setSpeeds({100, 200, 1});
            std::string answer;
            QString shown;
            for (unsigned byte = 0; byte < 256; ++byte) {
                answer += static_cast<char>(byte);
                shown += QString::asprintf("%02X,", byte);
            }
            rig.sensor().setParameter('V', answer);
            rig.execute(kAskForVersion);
            QVERIFY(rig.waitIdle());
            QCOMPARE(rig.received(), shown + u"0D"_s);
            rig.execute(""); // clears the answer and sends nothing
            QVERIFY(rig.received().isEmpty() && !rig.window().isBusy());
        }));
    }

    void enterSendsAndKeysBringBackWhatWasSent()
    {
        Rig rig;
        QVERIFY(rig.open(0, [&rig] {
            for (const char* text : {kAskForVersion, "44,41,0D", kAskForVersion}) {
                rig.type(text);
                QCOMPARE(rig.press(Qt::Key_Return), QLatin1String(text));
                QVERIFY(rig.waitIdle() && rig.dialog->isVisible());
            }
            QCOMPARE(rig.dialog->getControl<QPlainTextEdit>(1058)->toPlainText(),
                     u"300100\u00B7"_s);
        }));
        QVERIFY(rig.show([&rig] {
            rig.type("4");
            QCOMPARE(rig.press(Qt::Key_Up), QLatin1String(kAskForVersion));
            QCOMPARE(rig.press(Qt::Key_Up), u"44,41,0D"_s);
            QCOMPARE(rig.press(Qt::Key_Up), u"44,41,0D"_s);
            QCOMPARE(rig.press(Qt::Key_Down), QLatin1String(kAskForVersion));
            QCOMPARE(rig.press(Qt::Key_Down), u"4"_s);
            QCOMPARE(rig.press(Qt::Key_Down), u"4"_s);
            const auto presets = rig.dialog->getControl<QPushButton>(1059)->menu()->actions();
            QCOMPARE(presets.size(), 14);
            presets[4]->trigger();
            QCOMPARE(rig.edit().text(), QLatin1String(kAskForVersion));
        }));
    }

    void exchangeIsCutOffByTimeAndByTheEndOfTheWindow()
    {
        Rig rig;
        QVERIFY(rig.open(0, [&rig] {
            Pacing::setSpeeds({1e6, 200, 1}); // the 60 seconds are over at once
            rig.execute(kAskForVersion);
            QVERIFY(rig.waitIdle());
            QCOMPARE(rig.received(), u"33"_s);
            QCOMPARE(rig.outcome(), u"Cut off: the sensor was still sending after 60 seconds "
                                    "or 1 MiB."_s);

            Pacing::setSpeeds({100, 200, 0.001}); // no exchange ends by itself
            rig.execute("31");
            QVERIFY(rig.window().isBusy() && rig.outcome().isEmpty());
            rig.window().close();
        }));
        QVERIFY(waitFor([&rig] { return !rig.window().isVisible(); }));
    }

    void exchangeLocksAllElseAndIsNotLogged()
    {
        Rig rig;
        QStringList logged;
        QVERIFY(rig.open(1, [&] {
            rig.execute(kAskForVersion); // ends the position stream
            QVERIFY(rig.waitIdle());
            (void)rig.frames();
            logged = rig.logged();
            rig.execute(kAskForVersion);
            rig.click(kOk);
            QVERIFY(rig.dialog->isVisible() && rig.waitIdle());
            QCOMPARE(rig.received(), u"33,30,30,31,30,30,0D"_s); // "300100" and CR
            QCOMPARE(rig.frames(), u"VA"_s);
            QCOMPARE(rig.logged(), logged);
        }));
        // The stream goes on, and so does the log.
        const auto sensorMode = [&rig] { return rig.sensor().mode(); };
        QVERIFY(waitFor([&] { return sensorMode() == SimulatedSensor::Mode::Streaming; }));
        QVERIFY(rig.waitIdle() && rig.logged().size() > logged.size());
    }

    /// Where it comes back, the Connect waits until the dialog is closed.
    void lostPortIsToldAndConnectedAgainAfterwards()
    {
        Rig rig;
        QVERIFY(rig.open(0, [&rig] {
            rig.sensor().setFault({Fault::Vanish, 0, 1}, "VA");
            rig.execute(kAskForVersion);
            QVERIFY(rig.waitIdle());
            QCOMPARE(rig.outcome(), u"The serial port was lost during the exchange. What was sent "
                                    "or received may be incomplete."_s);
            rig.click(kExecute);
            QCOMPARE(rig.outcome(), u"The serial port is not available. Nothing was sent."_s);
            rig.sensor().comeBack();
            QVERIFY(waitFor([&rig] { return rig.link().linkFailed() == 0; }) && rig.waitIdle());
            rig.click(kExecute);
            QCOMPARE(rig.outcome(),
                     u"The connection to the sensor was lost. Nothing was sent. The sensor is "
                     "connected again when this dialog is closed."_s);
        }));
        QVERIFY(waitFor([&rig] { return rig.link().isIdentified(); }) && rig.waitIdle());
    }
};

QTEST_MAIN(TestManualComm)
#include "TestManualComm.moc"
