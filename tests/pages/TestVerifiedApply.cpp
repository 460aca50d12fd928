#include "app/Commands.h"
#include "app/NoticeStrip.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/FactoryParamsPage.h"
#include "pages/OutputSetupPage.h"
#include "platform/core/UserFolders.h"
#include "sensor/Journal.h"
#include "support/FileContent.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <array>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Fault = SimulatedFault::Kind;

/// The page of the output setup, or that of the factory parameters, in the real main window on a
/// type 2 sensor. The user changes one value, shown as "25" or "20": the data bits to 24, or the
/// suffix of the cycle code to 7F.
class Rig : public MainWindowRig
{
public:
    /// @param offset what the sensor has; with one that is not 0 Apply asks about its multiplier
    explicit Rig(bool factory, const char* offset = "000000", bool safe = true)
        : MainWindowRig({.type = 2}, safe ? kSafeWrites : kPlainWrites), m_factory(factory)
    {
        sensor().setParameter('N', offset);
        wrapPorts([this](std::unique_ptr<ComPort> port) {
            return std::make_unique<WatchedPort>(std::move(port), [this](std::string_view bytes) {
                if (bytes.starts_with("CN"))
                    afterClosing();
            });
        });
    }

    /// Shows the page, and has the user change the value.
    [[nodiscard]] bool open()
    {
        return startConnected() && choosePage(m_factory ? 4 : 2) && edit();
    }
    [[nodiscard]] bool edit()
    {
        if (m_factory) {
            clickCell(kValueRow, 1);
            auto* editor = list().findChild<QLineEdit*>();
            QTest::keyClick(editor, Qt::Key_Delete);
            QTest::keyClicks(editor, entered());
            clickCell(0, 0);
        } else {
            for (int step = 0; step < bits().count() && shown() != entered(); ++step)
                QTest::keyClick(&bits(), step == 0 ? Qt::Key_Home : Qt::Key_Down);
        }
        return shown() == entered();
    }
    [[nodiscard]] QString entered() const { return m_factory ? u"7F"_qs : u"24"_qs; }
    [[nodiscard]] QString shown()
    {
        return m_factory ? list().item(kValueRow, 1)->text() : bits().currentText();
    }
    [[nodiscard]] QString former() const { return m_factory ? u"20"_qs : u"25"_qs; }
    /// The frame that writes the value, and the parameter in words.
    [[nodiscard]] std::string frame() const { return m_factory ? "MN" : "DN"; }
    [[nodiscard]] QString parameter() const
    {
        return m_factory ? QStringLiteral("(M)") : QStringLiteral("(D)");
    }
    /// Somebody else changes the same value.
    void changeSensor()
    {
        sensor().setParameter(m_factory ? 'M' : 'D', m_factory ? "081F21" : "4A051A");
    }
    [[nodiscard]] bool hasEntered()
    {
        return m_factory ? sensor().parameter('M') == "081F7F"
                         : sensor().parameter('D') == "4A0518";
    }

    void fail(Fault kind, const std::string& command, int times = 0)
    {
        sensor().setFault({kind, 1, times}, command);
    }
    /// What happens as soon as the sensor has heard the closing command.
    std::function<void()> afterClosing = [] {};

    [[nodiscard]] QPushButton& applyButton()
    {
        return m_factory ? *page<FactoryParamsPage>().getControl<QPushButton>(1037)
                         : *page<OutputSetupPage>().getControl<QPushButton>(1028);
    }
    /// Clicks a button, answers the box that it leads to, and waits until all has ended.
    /// @param answer the caption of the box's button; Escape without one
    /// @return the box's text
    [[nodiscard]] QString press(QPushButton& button, const char* answer = "OK")
    {
        (void)frames();
        QString text;
        const ModalAnswer<QMessageBox> box([&](QMessageBox& shown) {
            text = shown.text();
            for (QAbstractButton* choice : shown.buttons()) {
                if (choice->isVisible() && choice->text().remove(u'&') == QLatin1String(answer))
                    return QTest::mouseClick(choice, Qt::LeftButton);
            }
            QWidget* focus = shown.focusWidget();
            QTest::keyClick(focus ? focus : &shown, *answer ? Qt::Key_Return : Qt::Key_Escape);
            if (shown.isVisible())
                shown.reject(); // no button was the default one
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        const auto isDone = [] { return !QApplication::activeModalWidget(); };
        return waitIdle() && waitFor(isDone) && waitIdle() ? text : QStringLiteral("busy");
    }
    [[nodiscard]] QString apply(const char* answer = "OK") { return press(applyButton(), answer); }

    [[nodiscard]] NoticeStrip& strip() { return page<NoticeStrip>(); }
    [[nodiscard]] QPushButton& stripButton(int number)
    {
        return *strip().findChild<QPushButton*>(QStringLiteral("noticeButton%1").arg(number));
    }
    /// A file is where the journal's folder goes.
    [[nodiscard]] bool blockJournal() const { return putContent(journalFolder(), ""); }
    [[nodiscard]] QList<JournalEntry> journal() const { return Journal().entries(); }

private:
    static constexpr int kValueRow = 7;

    [[nodiscard]] QTableWidget& list()
    {
        return *page<FactoryParamsPage>().getControl<QTableWidget>(1036);
    }
    [[nodiscard]] QComboBox& bits() { return *page<OutputSetupPage>().getControl<QComboBox>(1004); }
    void clickCell(int row, int column)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row, column)).center());
    }

    const bool m_factory;
};

constexpr std::array kPages{false, true};

} // namespace

class TestVerifiedApply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageShowsWhatTheSensorHasAfterwards()
    {
        struct Row
        {
            const char* name;
            std::function<void(Rig&)> before;
            const char* outcome; ///< how the notice begins
            const char* reason;  ///< what else it says
            bool written;        ///< the sensor has the new value
            bool current;        ///< the page shows what was read back
            bool again;          ///< the same can be written again
        };
        const std::vector<Row> rows{
            {"all taken", [](Rig&) {}, "Verified: ", "", true, true, false},
            {"one write not heard", [](Rig& rig) { rig.fail(Fault::Deaf, rig.frame()); },
             "Differs: nothing was changed", ": written ", false, true, true},
            {"closing command not heard", [](Rig& rig) { rig.fail(Fault::Deaf, "CN"); },
             "Differs: nothing was changed", ": written ", false, true, true},
            {"another sensor after the restart",
             [](Rig& rig) {
                 rig.afterClosing = [&rig] { rig.sensor().setParameter('V', "3A0199"); };
             },
             "Not checked: ", "Another sensor", true, false, false},
            {"silent after the restart",
             [](Rig& rig) { rig.afterClosing = [&rig] { rig.fail(Fault::Silent, ""); }; },
             "Not checked: ", "could not be read back", true, false, false},
        };
        forEachRow(rows, [](const Row& row) {
            for (const bool factory : kPages) {
                Rig rig(factory);
                QVERIFY(rig.open());
                row.before(rig);
                QCOMPARE(rig.apply(), QString());
                const QString notice = rig.noticeText();
                QVERIFY2(notice.startsWith(QLatin1String(row.outcome)) &&
                             notice.contains(QLatin1String(row.reason)),
                         qPrintable(notice));
                QCOMPARE(notice.contains(rig.parameter()), row.again);
                QVERIFY(notice.startsWith(rig.statusText().left(7)));
                QCOMPARE(rig.stripButton(1).isVisible(), row.again);
                QCOMPARE(rig.hasEntered(), row.written);
                QCOMPARE(rig.shown(), row.written ? rig.entered() : rig.former());
                QCOMPARE(rig.applyButton().isEnabled(), row.again || !row.current);
                QCOMPARE(rig.journal().size(), 1);
                if (!row.current)
                    QVERIFY(!rig.apply().isEmpty() && rig.writtenFrames().isEmpty());
            }
        });
    }

    /// The next Apply calculates the offset with the sensor's stroke, which was not read back.
    void readingBackKeepsTheStroke()
    {
        Rig rig(false);
        QVERIFY(rig.open());
        QCOMPARE(rig.apply(), QString());
        QTest::keyClick(
            rig.page<OutputSetupPage>().findChild<QComboBox*>(QStringLiteral("modeCombo")),
            Qt::Key_Home);
        QTest::keyClick(
            rig.page<OutputSetupPage>().findChild<QComboBox*>(QStringLiteral("directionCombo")),
            Qt::Key_End);
        QString stroke;
        const ModalAnswer<CalculateOffsetDialog> offset([&stroke](CalculateOffsetDialog& dialog) {
            stroke = dialog.findChild<QLineEdit*>(QStringLiteral("strokeEdit"))->text();
            dialog.reject();
        });
        QTest::mouseClick(&rig.applyButton(), Qt::LeftButton);
        QTRY_COMPARE(stroke, QStringLiteral("1250.0"));
        QVERIFY(rig.waitIdle());
    }

    void verifiedIsSaidOnlyOfTheSensorThatIsConnected()
    {
        for (const bool heard : {true, false}) {
            Rig rig(true);
            QVERIFY(rig.open());
            if (!heard)
                rig.fail(Fault::Deaf, rig.frame());
            QCOMPARE(rig.apply(), QString());
            QVERIFY(rig.clickCommand(kConnectCommand));
            QVERIFY(waitFor([&] { return rig.window().currentPage() == 0; }) && rig.waitIdle());
            QCOMPARE(rig.strip().isEmpty(), heard); // what differs can still be mended
        }
    }

    void nothingIsWrittenToASensorThatIsNotAsThePageShowsIt()
    {
        struct Row
        {
            const char* name;
            std::function<void(Rig&)> before;
            const char* told;
            bool lit; ///< the link's light
        };
        const std::vector<Row> rows{
            {"changed by somebody else", [](Rig& rig) { rig.changeSensor(); }, "Click Refresh",
             true},
            {"silent", [](Rig& rig) { rig.fail(Fault::Silent, ""); }, "could not be read", false},
        };
        forEachRow(rows, [](const Row& row) {
            for (const bool factory : kPages) {
                Rig rig(factory);
                QVERIFY(rig.open());
                const QString lit = rig.lightText();
                row.before(rig);
                const QString told = rig.apply();
                QVERIFY2(told.contains(QLatin1String(row.told)), qPrintable(told));
                QCOMPARE(rig.writtenFrames(), QString());
                QCOMPARE(rig.lightText() == lit, row.lit);
                QVERIFY(rig.noticeText().startsWith(QStringLiteral("Nothing was written.")));
                QCOMPARE(rig.journal().size(), 0);
                QCOMPARE(rig.shown(), rig.entered()); // it can be tried again
                rig.sensor().clearFaults();
                const ModalAnswer<QMessageBox> discard([](QMessageBox& box) {
                    QTest::mouseClick(box.findChild<QAbstractButton*>(QStringLiteral("answer1")),
                                      Qt::LeftButton);
                });
                rig.clickRefresh();
                QVERIFY(waitFor([&] { return rig.shown() == rig.former() || !row.lit; }));
                QVERIFY(rig.waitIdle() && rig.edit());
                QCOMPARE(rig.apply(), QString());
                QVERIFY(rig.noticeText().startsWith(QStringLiteral("Verified: ")));
            }
        });
    }

    void whatWasWrittenWhenTheLinkWasLostIsComparedOnceItIsBack()
    {
        struct Row
        {
            const char* name;
            std::function<void(Rig&)> before;
            const char* told;
            const char* outcome;
        };
        const std::vector<Row> rows{
            {"before the closing command", [](Rig& rig) { rig.fail(Fault::Vanish, "CN", 1); },
             "Parameter 67 could not be written", "Differs: nothing was changed"},
            {"in the first write", [](Rig& rig) { rig.fail(Fault::Vanish, rig.frame(), 1); },
             "could not be written", "Differs: nothing was changed"},
            {"after the closing command",
             [](Rig& rig) {
                 rig.afterClosing = [&rig] {
                     rig.sensor().vanish();
                     rig.sensor().comeBack();
                 };
             },
             "", "Verified: "},
        };
        forEachRow(rows, [](const Row& row) {
            for (const bool factory : kPages) {
                Rig rig(factory);
                QVERIFY(rig.open());
                row.before(rig);
                const QString told = rig.apply();
                QVERIFY2(told.contains(QLatin1String(row.told)), qPrintable(told));
                QVERIFY(waitFor([&] { return rig.window().currentPage() == 0; }));
                QVERIFY(rig.waitIdle());
                const QString notice = rig.noticeText();
                QVERIFY2(notice.startsWith(QLatin1String(row.outcome)), qPrintable(notice));
                QVERIFY(rig.choosePage(factory ? 4 : 2));
                QCOMPARE(rig.shown(), *row.told ? rig.former() : rig.entered());
            }
        });
    }

    void withoutAJournalTheUserDecides()
    {
        for (const bool factory : kPages) {
            for (const char* answer : {"Write All the Same", "Do Not Write", ""}) {
                Rig rig(factory);
                QVERIFY(rig.open() && rig.blockJournal());
                const QString question = rig.apply(answer);
                QVERIFY(QFile::remove(journalFolder()));
                QVERIFY2(question.contains(journalFolder()), qPrintable(question));
                const bool written = *answer == 'W';
                QCOMPARE(rig.hasEntered(), written);
                QCOMPARE(rig.writtenFrames().isEmpty(), !written);
                QVERIFY(rig.noticeText().startsWith(written ? QStringLiteral("Verified: ")
                                                            : QStringLiteral("Nothing was")));
                QCOMPARE(rig.applyButton().isEnabled(), !written);
            }
        }
    }

    void whatIsBeingWrittenWhenTheWindowIsClosedIsBroughtToItsEnd()
    {
        for (const bool factory : kPages) {
            Rig rig(factory);
            QVERIFY(rig.open());
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            QTest::mouseClick(&rig.applyButton(), Qt::LeftButton);
            QString writes;
            QVERIFY(waitFor([&] { return !(writes += rig.writtenFrames()).isEmpty(); }));
            rig.window().close();
            QVERIFY(waitFor([&] { return closed.size() == 1; }));
            QVERIFY(rig.hasEntered());
            QCOMPARE(rig.journal().size(), 1);
            QVERIFY((rig.journal().constFirst().end ==
                     JournalEntry::End{WriteResult::Kind::NotChecked, WriteResult::Reason::Closed,
                                       false}));
        }
    }

    void closeEndsTheQuestionAboutTheJournal()
    {
        for (const bool factory : kPages) {
            Rig rig(factory);
            QVERIFY(rig.open() && rig.blockJournal());
            (void)rig.frames();
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            const ModalAnswer<QMessageBox> question([&](auto&) { rig.window().close(); });
            QTest::mouseClick(&rig.applyButton(), Qt::LeftButton);
            QVERIFY(waitFor([&] { return closed.size() == 1; }));
            QVERIFY(QFile::remove(journalFolder()));
            QVERIFY(question.wasShown());
            QCOMPARE(rig.writtenFrames(), QString());
        }
    }

    void differenceIsWrittenAgainWithTheSameTexts()
    {
        struct Row
        {
            const char* name;
            std::function<void(Rig&)> before;
            const char* notice;
            bool written;
        };
        const std::vector<Row> rows{
            {"as it was read back", [](Rig&) {}, "Verified: ", true},
            {"changed since", [](Rig& rig) { rig.changeSensor(); }, "Nothing was written.", false},
            {"no longer identified", [](Rig& rig) { rig.link().forgetIdentification(); },
             "Nothing was written.", false},
            {"another sensor that has the same values",
             [](Rig& rig) { rig.sensor().setParameter('F', "SN099999"); }, "Nothing was written.",
             false},
            {"another sensor was connected",
             [](Rig& rig) {
                 rig.sensor().setParameter('V', "3A0199");
                 QVERIFY(rig.clickCommand(kConnectCommand));
                 QVERIFY(waitFor([&rig] { return rig.window().currentPage() == 0; }));
                 QVERIFY(rig.waitIdle());
             },
             "Differs: ", false},
        };
        forEachRow(rows, [](const Row& row) {
            for (const bool factory : kPages) {
                Rig rig(factory, "00000A");
                QVERIFY(rig.open());
                rig.fail(Fault::Deaf, rig.frame());
                QVERIFY(rig.apply("Keep the Length").startsWith(QStringLiteral("The data format")));
                const QString heard = rig.writtenFrames();
                rig.sensor().clearFaults();
                row.before(rig);
                const QString told = rig.press(rig.stripButton(1));
                QCOMPARE(told.isEmpty(), row.written);
                const QString lost = QString::fromStdString(rig.frame()) + u"[^ ]* "_qs;
                QCOMPARE(rig.writtenFrames().remove(QRegularExpression(lost)),
                         row.written ? heard : QString());
                QVERIFY2(rig.noticeText().startsWith(QLatin1String(row.notice)),
                         qPrintable(rig.noticeText()));
                QCOMPARE(rig.hasEntered(), row.written);
                if (row.written)
                    QCOMPARE(rig.shown(), rig.entered());
                QCOMPARE(rig.sensor().parameter('N'), std::string("00000A"));
            }
        });
    }

    void offsetThatWasOnlyReadIsWrittenAsTheUserWantsIt()
    {
        struct Row
        {
            const char* name;
            const char* answer;
            const char* offset; ///< written; nothing is without one
        };
        const std::vector<Row> rows{
            {"kept", "Keep the Length", "NN00000A"},
            {"multiplied", "Write It Multiplied", "NN000014"},
            {"cancelled", "Cancel", ""},
            {"closed", "", ""},
            {"no default button", "Return", ""},
        };
        forEachRow(rows, [](const Row& row) {
            for (const auto& [factory, safe] : {std::pair(false, true), std::pair(true, true),
                                                std::pair(false, false), std::pair(true, false)}) {
                Rig rig(factory, "00000A", safe);
                QVERIFY(rig.open());
                const QString question = rig.apply(row.answer);
                QVERIFY(question.startsWith(QStringLiteral("The data format has the multiplier")));
                const QString writes = rig.writtenFrames();
                QCOMPARE(writes.isEmpty(), !*row.offset);
                QVERIFY2(writes.contains(QLatin1String(row.offset)), qPrintable(writes));
                QCOMPARE(rig.applyButton().isEnabled(), writes.isEmpty());
            }
        });
    }
};

QTEST_MAIN(TestVerifiedApply)
#include "TestVerifiedApply.moc"
