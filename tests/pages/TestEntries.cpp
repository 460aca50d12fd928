#include "app/Commands.h"
#include "pages/FactoryParamsPage.h"
#include "pages/OutputSetupPage.h"
#include "pages/PageRig.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kDataBits = 1004;
const QString kAsked = QStringLiteral("Changes on this page that have not been applied: 1. Discard "
                                      "them?");

const QString kWarning = QStringLiteral(" \u26A0");

/// A writing page in the real window.
template <class Page, int kRow, int kApply>
struct Rig : PageRig<Page, kRow, kApply>
{
    /// Its offset is not multiplied.
    Rig() : PageRig<Page, kRow, kApply>(2, "D0A0519", kSafeWrites) { (void)this->frames(); }

    /// Clicks Apply and waits until it has ended. @return the text of a box, which is answered
    [[nodiscard]] QString apply(int button = QMessageBox::Ok)
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
            text = box.text();
            agree(box, button);
        });
        this->clickApply();
        return this->waitIdle() ? text : QStringLiteral("busy");
    }

    void click(int id)
    {
        QWidget* button = this->control(id);
        QTest::mouseClick(button, Qt::LeftButton, {}, {12, button->height() / 2});
    }

    [[nodiscard]] QString counted()
    {
        return this->window().template findChild<QLabel*>(QStringLiteral("entriesText"))->text();
    }

    /// Does something. @return the texts of the boxes that come up; each is answered by a button,
    /// without one by Escape
    [[nodiscard]] QStringList asked(const std::function<void()>& act, const char* button)
    {
        QStringList texts;
        const auto answer = [&texts, button](QMessageBox& box) {
            texts << box.text();
            for (QAbstractButton* each : box.buttons())
                if (each->text() == QLatin1String(button))
                    return QTest::mouseClick(each, Qt::LeftButton);
            QTest::keyClick(&box, Qt::Key_Escape);
        };
        const ModalAnswer<QMessageBox> first(answer);
        const ModalAnswer<QMessageBox> second(answer);
        act();
        QCoreApplication::processEvents(); // what that has posted
        return texts;
    }
};

struct OutputRig : Rig<OutputSetupPage, 2, 1028>
{
    /// @param end Qt::Key_Home for 24 bits, Qt::Key_End for 25
    void setBits(Qt::Key end = Qt::Key_Home) { QTest::keyClick(control(kDataBits), end); }
    [[nodiscard]] QString bits() { return control<QComboBox>(kDataBits)->currentText(); }
    /// The explanations of what is marked as changed on the output setup page.
    [[nodiscard]] QString marked()
    {
        QStringList texts;
        for (auto* label : page<OutputSetupPage>().findChildren<QLabel*>())
            if (label->font().bold())
                texts << label->buddy()->toolTip();
        for (auto* group : page<OutputSetupPage>().findChildren<QGroupBox*>())
            if (group->font().bold())
                texts << group->toolTip();
        return texts.join(u'|');
    }
};

struct FactoryRig : Rig<FactoryParamsPage, 4, 1037>
{
    [[nodiscard]] QTableWidget& list() { return *control<QTableWidget>(1036); }
    [[nodiscard]] QLineEdit* editor()
    {
        return qobject_cast<QLineEdit*>(list().indexWidget(list().currentIndex()));
    }
    void clickCell(int row, int column)
    {
        const QRect cell = list().visualItemRect(list().item(row, column));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, cell.center());
    }
    /// Opens a cell and types, and does not commit.
    void typeInto(int row, const char* text)
    {
        clickCell(row, 1);
        QTest::keyClicks(editor(), QString::fromLatin1(text)); // all is selected
    }
    /// The explanations of the rows that are marked as changed.
    [[nodiscard]] QString marked()
    {
        QStringList texts;
        for (int row = 0; row < list().rowCount(); ++row)
            if (list().item(row, 0)->font().bold() && list().item(row, 1)->font().bold())
                texts << list().item(row, 1)->toolTip();
        return texts.join(u'|');
    }
};

} // namespace

class TestEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesAreMarkedWithWhatWasReadUntilTheyAreUndone()
    {
        OutputRig rig;
        struct Row
        {
            const char* name;
            std::function<void()> act;
            const char* marks; ///< the explanations, then the number of changes
        };
        forEachRow(
            std::vector<Row>{
                {"nothing", [] {}, ""},
                {"a list", [&] { rig.setBits(); }, "Read: 251"},
                {"a button that brings another", [&] { rig.click(1026); },
                 "Read: 25|Read: 1 Magnet|Read: Normal Position Output3"},
                {"the list undone", [&] { rig.setBits(Qt::Key_End); },
                 "Read: 1 Magnet|Read: Normal Position Output2"},
                {"in German", [&] { rig.languages().loadLanguage(2); },
                 "Gelesen: 1 Magnet|Gelesen: Normale Positionsausgabe2"},
                {"all undone", [&] { rig.click(1025); }, ""},
            },
            [&](const Row& row) {
                row.act();
                QCoreApplication::processEvents();
                QCOMPARE(rig.marked() + rig.counted().right(1), QString::fromUtf8(row.marks));
                QCOMPARE(rig.control(1028)->toolTip(), rig.counted());
            });
    }

    void typedTextCountsBeforeItIsCommittedAndEscapePutsItBack()
    {
        FactoryRig rig;
        rig.typeInto(6, "1.5");
        QCOMPARE(rig.marked(), QStringLiteral("Read: 0.050"));
        QCOMPARE(rig.counted(), QStringLiteral("Changes not applied: 1"));
        QTest::keyClick(rig.editor(), Qt::Key_Escape);
        QCOMPARE(rig.editor()->text(), QStringLiteral("0.050"));
        QCOMPARE(rig.marked() + rig.counted(), QString());
        rig.typeInto(6, "1.5");
        rig.clickCell(0, 1); // commits
        QTest::keyClicks(rig.editor(), QStringLiteral("N"));
        QCOMPARE(rig.marked(), QStringLiteral("Read: SN012345|Read: 0.050"));
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.marked() + rig.counted(), QString());
    }

    /// Stay keeps all, Discard goes on, and nothing asks twice.
    void whatWouldLoseEntriesAsks()
    {
        struct Row
        {
            const char* name;
            std::function<void(OutputRig&)> act;
            int page; ///< after Discard
        };
        const auto command = [](int id) {
            return [id](OutputRig& rig) { QVERIFY(rig.clickCommand(id)); };
        };
        forEachRow(
            std::vector<Row>{
                {"page list", [](OutputRig& rig) { rig.clickPage(3); }, 3},
                {"Ctrl+4",
                 [](OutputRig& rig) {
                     QTest::keyClick(&rig.window(), Qt::Key_4, Qt::ControlModifier);
                 },
                 3},
                {"Refresh button", [](OutputRig& rig) { rig.clickRefresh(); }, 2},
                {"Connect", command(kConnectCommand), 0},
                {"Send E", command(kWriteECommand), 0},
            },
            [](const Row& row) {
                for (const char* button : {"", "Stay", "Discard"}) {
                    OutputRig rig;
                    rig.setBits();
                    QCOMPARE(rig.asked([&] { row.act(rig); }, button), QStringList(kAsked));
                    if (button != std::string_view("Discard")) {
                        QCOMPARE(rig.window().currentPage(), 2);
                        QCOMPARE(rig.bits(), QStringLiteral("24"));
                        QCOMPARE(rig.frames(), QString());
                    } else {
                        QVERIFY(waitFor([&] { return rig.window().currentPage() == row.page; }));
                        QVERIFY(rig.waitIdle());
                        QCOMPARE(rig.counted(), QString());
                        QCOMPARE(rig.bits(), QStringLiteral("25"));
                    }
                }
            });
    }

    /// The factory page, and a command with a dialog of its own, which comes after the question.
    void discardedCellsAreAsTheyWereRead()
    {
        FactoryRig rig;
        rig.typeInto(2, "900");
        rig.typeInto(6, "1.5");
        const auto selectPort = [&rig] { QVERIFY(rig.clickCommand(kSelectPortCommand)); };
        const QString two = QString(kAsked).replace(u'1', u'2');
        QCOMPARE(rig.asked(selectPort, "Stay"), QStringList(two));
        QCOMPARE(rig.list().item(2, 1)->text() + rig.editor()->text(), QStringLiteral("9001.5"));
        const ModalAnswer<SelectPortDialog> cancel([](auto& dialog) { dialog.reject(); });
        QCOMPARE(rig.asked(selectPort, "Discard"), QStringList(two));
        QVERIFY(waitFor([&] { return cancel.wasShown(); }));
        QCOMPARE(rig.list().item(2, 1)->text() + rig.editor()->text(), QStringLiteral("12500.050"));
        QCOMPARE(rig.counted(), QString());
    }

    void closingByHandAsksAndAnyOtherCloseDoesNot()
    {
        struct Row
        {
            const char* name;
            std::function<void(OutputRig&)> act;
            bool asks;
        };
        forEachRow(
            std::vector<Row>{
                {"Exit", [](OutputRig& rig) { QVERIFY(rig.clickCommand(kExitCommand)); }, true},
                {"the window's button", [](OutputRig& rig) { rig.closeByHand(); }, true},
                {"a signal", [](OutputRig& rig) { rig.window().close(); }, false},
                {"a signal while it is asked",
                 [](OutputRig& rig) {
                     const ModalAnswer<QMessageBox> signal([&rig](QMessageBox& box) {
                         rig.window().close();
                         QVERIFY(!box.isVisible());
                     });
                     rig.closeByHand();
                     QVERIFY(waitFor([&] { return signal.wasShown(); }));
                 },
                 false}},
            [](const Row& row) {
                OutputRig rig;
                rig.setBits();
                const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
                if (row.asks) {
                    QCOMPARE(rig.asked([&] { row.act(rig); }, ""), QStringList(kAsked));
                    QVERIFY(rig.window().isVisible() && closed.isEmpty());
                    QCOMPARE(rig.asked([&] { row.act(rig); }, "Discard"), QStringList(kAsked));
                } else {
                    row.act(rig);
                }
                QVERIFY(waitFor([&] { return closed.size() == 1; }));
            });
    }

    void portThatIsGivenUpLeavesTheEntriesToTheUser()
    {
        OutputRig rig;
        rig.setBits();
        const QStringList asked = rig.asked(
            [&rig] {
                rig.sensor().vanish();
                QVERIFY(waitFor([&rig] { return !rig.link().hasOpened(); }));
            },
            "Cancel"); // of the question about the port; Escape stays
        QCOMPARE(asked.mid(1), QStringList(languageString(strings::kEndsWithoutPort) +
                                           QStringLiteral("\n\n") + kAsked));
        QVERIFY(rig.waitIdle() && rig.window().isVisible());
        rig.sensor().comeBack();
        const ModalAnswer<SelectPortDialog> lastPort(
            [](SelectPortDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
        QVERIFY(rig.clickCommand(kSelectPortCommand)); // and no question
        QVERIFY(waitFor([&rig] { return rig.link().isIdentified(); }) && rig.waitIdle());
        QCOMPARE(rig.link().portNumber(), MainWindowRig::kPort);
        QCOMPARE(rig.marked() + rig.bits(), QStringLiteral("Read: 2524"));
    }

    /// The scale factor is written and read back, but not shown: another page may change it.
    void refreshForgetsWhatWasReadBackBefore()
    {
        OutputRig rig;
        rig.setBits();
        QCOMPARE(rig.apply(), QString());
        rig.hold("S046C01");
        (void)rig.refresh();
        rig.setBits(Qt::Key_End);
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.sensor().parameter('S'), std::string("046C00"));
    }

    void connectOfTheProgramKeepsEntriesAndApplyWaitsForRefresh()
    {
        OutputRig rig;
        rig.setBits();
        rig.sensor().vanish();
        QVERIFY(waitFor([&] { return rig.link().lossCount() == 1; }));
        rig.sensor().comeBack();
        QVERIFY(waitFor(
            [&] { return rig.statusText() == QStringLiteral("Connected to the sensor."); }));
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.window().currentPage(), 2);
        QCOMPARE(rig.marked() + rig.bits(), QStringLiteral("Read: 2524"));
        (void)rig.frames();
        QVERIFY(rig.apply().startsWith(QLatin1String("The values on this page have not")));
        QCOMPARE(rig.asked([&] { rig.clickRefresh(); }, "Discard"), QStringList(kAsked));
        QVERIFY(waitFor([&] { return rig.bits() == QStringLiteral("25"); }));
        QVERIFY(rig.waitIdle());
        rig.setBits();
        QCOMPARE(rig.apply(), QString());
    }

    void applyWithoutAChangeWritesOnlyWhenConfirmed()
    {
        FactoryRig rig;
        rig.clickCell(0, 1);
        rig.clickCell(0, 0); // commits
        for (const int answer : {QMessageBox::No, QMessageBox::Yes}) {
            QVERIFY(rig.apply(answer).startsWith(QLatin1String("Nothing was changed.")));
            QCOMPARE(rig.frames().contains(QLatin1String("FNSN012345 ")),
                     answer == QMessageBox::Yes);
        }
    }

    /// By a sign besides the explanation; Apply can be clicked again.
    void whatDiffersAfterwardsIsMarked()
    {
        OutputRig rig;
        rig.sensor().setFault({SimulatedFault::Kind::Deaf}, "DN");
        rig.setBits();
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.control<QLabel>(1003)->text(), QStringLiteral("Data Bits") + kWarning);
        QCOMPARE(rig.control(kDataBits)->toolTip(),
                 QStringLiteral("Data Bits: written 24; the sensor has 25"));
        QCOMPARE(rig.bits() + rig.marked() + rig.counted(), QStringLiteral("25"));
        rig.sensor().clearFaults();
        QVERIFY(rig.control(1028)->isEnabled());
        rig.setBits();
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.control<QLabel>(1003)->text(), QStringLiteral("Data Bits"));
    }

    void rowOfWhatDiffersIsMarkedUntilRefresh()
    {
        FactoryRig rig;
        rig.sensor().setFault({SimulatedFault::Kind::Deaf}, "NN");
        rig.typeInto(6, "1.5");
        QCOMPARE(rig.apply(), QString());
        QVERIFY(rig.list().item(6, 0)->text().endsWith(kWarning));
        QCOMPARE(rig.list().item(6, 1)->toolTip(),
                 QStringLiteral("Offset: written 1.500; the sensor has 0.050"));
        (void)rig.refresh();
        QCOMPARE(rig.list().item(6, 0)->toolTip(), QString());
    }

    void wheelChangesOnlyTheListThatHasTheFocus()
    {
        OutputRig rig;
        auto* list = rig.control<QComboBox>(kDataBits);
        const auto turn = [list] {
            QWheelEvent event({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                              {}, Qt::NoScrollPhase, false);
            QSpontaneKeyEvent::setSpontaneous(&event);
            (void)qApp->notify(list, &event);
        };
        rig.control(1006)->setFocus();
        turn();
        QCOMPARE(rig.bits(), QStringLiteral("25"));
        list->setFocus();
        turn();
        QCOMPARE(rig.bits(), QStringLiteral("24"));
    }
};

QTEST_MAIN(TestEntries)
#include "TestEntries.moc"
