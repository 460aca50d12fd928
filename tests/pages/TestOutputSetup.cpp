#include "app/Commands.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PageRig.h"
#include "pages/PasswordDialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QWheelEvent>

#include <optional>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// The controls of the page.
enum Control : int {
    kDataBits = 1004,
    kFormat = 1006,
    kDirection = 1008,
    kMode = 1010,
    kResolution = 1012,
    kSkipCount = 1014,
    kOneMagnet = 1017,
    kTwoMagnets = 1018,
    kUnlock = 1019,
    kNoExtension = 1021,
    kParity = 1022,
    kTemperature = 1023,
    kNormal = 1025,
    kDifferential = 1026,
    kVelocity = 1027,
    kApply = 1028
};

constexpr auto kMissing = "A value is missing. Please complete it first.";
constexpr auto kReadFirst = "The values on this page have not all been read";
constexpr auto kDoesNotFit = "The sensor cannot hold the scale factor or the offset";
constexpr auto kSteady = "STEADYNOW";

struct Rig : PageRig<OutputSetupPage, 2, kApply>
{
    explicit Rig(int type = 2, const QByteArrayList& holding = {}) : PageRig({.type = type})
    {
        for (const QByteArray& text : holding)
            sensor().setParameter(text[0], text.mid(1).toStdString());
    }

    [[nodiscard]] QString listText(int id) { return control<QComboBox>(id)->currentText(); }
    [[nodiscard]] QString skipCountText() { return control<QLineEdit>(kSkipCount)->text(); }

    /// The buttons that are checked.
    [[nodiscard]] QList<int> checkedButtons()
    {
        QList<int> checked;
        for (int id = kOneMagnet; id <= kVelocity; ++id)
            if (auto* button = control<QRadioButton>(id); button && button->isChecked())
                checked << id;
        return checked;
    }

    /// Goes through a list by the keyboard until an item is selected.
    void select(int id, const char* item)
    {
        auto* list = control<QComboBox>(id);
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 1; step < list->count() && listText(id) != QLatin1String(item); ++step)
            QTest::keyClick(list, Qt::Key_Down);
    }

    /// Types a new error skip count, where it is unlocked.
    void enterSkipCount(const char* text)
    {
        auto* edit = control<QLineEdit>(kSkipCount);
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }

    /// Enters a password for the error skip count.
    /// @return what was said about it, or "not asked"
    [[nodiscard]] QString unlock(const char* password, Qt::Key end = Qt::Key_Return)
    {
        QString text;
        const ModalAnswer<QMessageBox> refusal([&text](QMessageBox& box) {
            text = box.text();
            box.accept();
        });
        const ModalAnswer<PasswordDialog> answer([&](PasswordDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1064), QString::fromLatin1(password));
            QTest::keyClick(&dialog, end);
        });
        click(kUnlock);
        return answer.wasShown() ? text : QStringLiteral("not asked");
    }

    /// Applies with the offset dialog, in which the SE distance and, where it can be edited, the
    /// dead zone are entered.
    [[nodiscard]] QString applyWithOffset(const char* seDistance, int button = QMessageBox::Ok)
    {
        const ModalAnswer<CalculateOffsetDialog> answer([&](CalculateOffsetDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1031), QString::fromLatin1(seDistance));
            if (dialog.getControl<QLineEdit>(1037)->isEnabled())
                QTest::keyClicks(dialog.getControl<QLineEdit>(1037), QStringLiteral("63.5"));
            QTest::mouseClick(dialog.getControl<QWidget>(1), Qt::LeftButton);
        });
        const QString text = apply(button);
        return answer.wasShown() ? text : QStringLiteral("not asked for the offset");
    }
};

} // namespace

class TestOutputSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageReadsInTurnAndShowsTheSettings()
    {
        for (const auto& [type, frames, shown, checked] :
             {std::tuple(0, "DA AA UA NA LA", "24|Gray code|Forward|Asynchronous|0.010 mm|00",
                         QList<int>{}),
              std::tuple(1, "DA AA UA NA LA", "24|Gray code|Forward|Asynchronous|0.020 mm|03",
                         QList<int>{}),
              std::tuple(2, "DA AA UA NA LA KA", "25|Gray code|Forward|Synchronous|0.005 mm|05",
                         QList<int>{kOneMagnet, kNoExtension, kNormal})}) {
            Rig rig(type);
            QVERIFY(rig.open());
            rig.select(kDataBits, "25"); // entries are given up
            QVERIFY(rig.refresh());
            QCOMPARE(rig.frames(), QLatin1String(frames));
            QStringList texts;
            for (const int id : {kDataBits, kFormat, kDirection, kMode, kResolution})
                texts << rig.listText(id);
            texts << rig.skipCountText();
            QCOMPARE(texts.join(u'|'), QLatin1String(shown));
            QCOMPARE(rig.checkedButtons(), checked);
            QCOMPARE(rig.control(kParity)->isVisible(), type == 2);
            QVERIFY(!rig.isEnabled(kSkipCount) && !rig.canApply());
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
        }
    }

    void applyWritesWhatTheSensorThenHolds()
    {
        struct Row
        {
            int type;
            QList<int> clicks;
            int list;
            const char* item;
            const char* frames;
        };
        for (const auto& [type, clicks, list, item, frames] : std::initializer_list<Row>{
                 {0, {}, kDataBits, "25", "DN020019 AN00000010 SN023600 NN000000 CN"},
                 {0, {}, kFormat, "Binary", "DN000018 AN00000010 SN023600 NN000000 CN"},
                 {1, {}, kResolution, "0.010 mm", "DN820318 AN00000010 SN023300 NNFFFFB0 EN"},
                 {2,
                  {},
                  kMode,
                  "Asynchronous",
                  "DN420519 AN00000005 SN046C00 NN000014 KN000001 CN"},
                 {2,
                  {kDifferential},
                  kDataBits,
                  "24",
                  "DN4A0518 AN00000005 SN046C00 NN000014 KN000102 CN"},
                 {2,
                  {kVelocity, kTemperature},
                  kDataBits,
                  "24",
                  "DN4A0518 AN00000005 SN046C00 NN000014 KN020201 CN"},
                 {2,
                  {kDifferential, kNormal},
                  kResolution,
                  "0.001 mm",
                  "DN4A0519 AN00000001 SN161C00 NN000064 KN000001 CN"}}) {
            Rig rig(type);
            QVERIFY(rig.open());
            for (const int id : clicks)
                rig.click(id);
            rig.select(list, item);
            QCOMPARE(rig.apply(), QString());
            QCOMPARE(rig.frames(), QLatin1String(frames));
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
            QVERIFY(!rig.canApply());
            for (const QString& write : QString::fromLatin1(frames).split(u' ').mid(0, 4))
                QCOMPARE(rig.holds({write.left(1).toStdString()}),
                         write.left(1) + u'=' + write.mid(2));
        }
    }

    void modeChoosesTheMagnets()
    {
        Rig rig(2, {"K010101"});
        QVERIFY(rig.open());
        QCOMPARE(rig.checkedButtons(), QList<int>({kTwoMagnets, kParity, kDifferential}));
        QVERIFY(!rig.isEnabled(kOneMagnet) && rig.isEnabled(kTwoMagnets));
        rig.click(kVelocity);
        QCOMPARE(rig.checkedButtons(), QList<int>({kOneMagnet, kParity, kVelocity}));
        QTest::keyClick(rig.control(kVelocity), Qt::Key_Up);
        QCOMPARE(rig.checkedButtons(), QList<int>({kTwoMagnets, kParity, kDifferential}));
        rig.sensor().setParameter('K', "000301"); // a mode that the page does not know
        QVERIFY(rig.refresh());
        QCOMPARE(rig.checkedButtons(), QList<int>({kNoExtension}));
        QVERIFY(rig.isEnabled(kOneMagnet) && rig.isEnabled(kTwoMagnets));
    }

    /// What the sensor does already, and what has been confirmed and written, is not asked again.
    void newExtensionAndModeAreAskedForOnce()
    {
        Rig rig(2, {"D020519"});
        QVERIFY(rig.open());
        rig.click(kParity);
        QVERIFY(rig.apply(QMessageBox::No).startsWith(QLatin1String("The parity extension")));
        QCOMPARE(rig.frames(), QString());
        QVERIFY(rig.apply(QMessageBox::Yes).startsWith(QLatin1String("The parity extension")));
        QCOMPARE(rig.holds("K"), QStringLiteral("K=010001"));
        rig.select(kMode, "Synchronous");
        QVERIFY(rig.apply(QMessageBox::Yes).startsWith(QLatin1String("In the synchronous")));
        rig.select(kFormat, "Binary");
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.holds("DK"), QStringLiteral("D=080519 K=010001"));
    }

    void skipCountIsUnlockedByThePasswordAndDecimal()
    {
        Rig rig;
        QVERIFY(rig.open());
        const QString wrong = QStringLiteral("The password is wrong.");
        QCOMPARE(rig.unlock(kSteady, Qt::Key_Escape), QString());
        QCOMPARE(rig.unlock("STEADY"), wrong);
        QVERIFY(!rig.isEnabled(kSkipCount));
        QCOMPARE(rig.unlock("sTeadyNow"), QString());
        QCOMPARE(rig.unlock("wrong"), wrong); // once is enough
        for (const auto& [read, shown, entered, written] :
             {std::tuple("024219", "66", "", "D=004219"),
              std::tuple("02FF19", "255", "", "D=00FF19"),
              std::tuple("020519", "05", "10", "D=000A19"),
              std::tuple("020519", "05", "-1a2.34", "D=007B19")}) { // only digits are taken
            rig.sensor().setParameter('D', read);
            QVERIFY(rig.choosePage(0));
            QVERIFY(rig.showPage() && rig.isEnabled(kSkipCount));
            QCOMPARE(rig.skipCountText(), QString::fromLatin1(shown));
            if (*entered)
                rig.enterSkipCount(entered);
            rig.select(kFormat, "Binary");
            QCOMPARE(rig.apply(), QString());
            QCOMPARE(rig.holds("D"), QString::fromLatin1(written));
        }
    }

    /// Also where a button is toggled without a click, as an assistive technology does it.
    void onlyTheUsersChangesEnableApply()
    {
        Rig rig;
        QVERIFY(rig.open());
        QCOMPARE(rig.unlock(kSteady), QString());
        const QList<int> buttons{kParity, kDifferential, kVelocity};
        for (const int id : buttons + QList<int>{-kParity, -kVelocity, kDataBits, kFormat,
                                                 kDirection, kMode, kResolution, kSkipCount}) {
            QVERIFY2(!rig.canApply(), qPrintable(QString::number(id)));
            if (id < 0)
                rig.control<QRadioButton>(-id)->toggle();
            else if (buttons.contains(id))
                rig.click(id);
            else if (auto* list = rig.control<QComboBox>(id))
                QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
            else
                rig.enterSkipCount("7");
            QVERIFY2(rig.canApply(), qPrintable(QString::number(id)));
            QVERIFY(rig.refresh());
        }
        rig.select(kFormat, "Binary");
        QCOMPARE(rig.apply(), QString());
        QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
        QTRY_COMPARE(rig.listText(kDirection), QStringLiteral("Vorwärts"));
        QCOMPARE(rig.listText(kFormat), QStringLiteral("Binär"));
        QVERIFY(!rig.canApply());
    }

    void directionBringsItsOffset()
    {
        Rig rig(0);
        QVERIFY(rig.open());
        rig.select(kDirection, "Reverse");
        QCOMPARE(rig.applyWithOffset("50.8"), QString()); // with the stroke of 500 mm: 614.3 mm
        QCOMPARE(rig.holds("DN"), QStringLiteral("D=030018 N=00EFF6"));
        rig.select(kFormat, "Binary"); // the direction written counts as read
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.holds("DN"), QStringLiteral("D=010018 N=00EFF6"));
        rig.select(kDirection, "Forward");
        QCOMPARE(rig.applyWithOffset("50.8"), QString());
        QCOMPARE(rig.holds("DN"), QStringLiteral("D=000018 N=FFEC28"));
    }

    void abandonedDirectionKeepsTheOffset()
    {
        Rig rig(2, {"D020519"});
        QVERIFY(rig.open());
        rig.select(kDirection, "Reverse");
        {
            const ModalAnswer<CalculateOffsetDialog> cancel([](auto& dialog) { dialog.reject(); });
            QCOMPARE(rig.apply(), QString());
            QVERIFY(cancel.wasShown());
        }
        QVERIFY(rig.applyWithOffset("50.8.1").startsWith(QLatin1String(kDoesNotFit)));
        rig.click(kParity); // refused after the offset is known
        QVERIFY(
            rig.applyWithOffset("50.8", QMessageBox::No).startsWith(QLatin1String("The parit")));
        QCOMPARE(rig.frames(), QString());
        rig.click(kNoExtension);
        rig.select(kDirection, "Forward");
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.holds("DN"), QStringLiteral("D=020519 N=00000A"));
    }

    void whatCannotBeWrittenIsRefused()
    {
        struct Row
        {
            int type;
            const char* holding; // a parameter and its text
            int control;
            const char* entry;
            const char* message;
            int focus; // 0: none
        };
        std::unique_ptr<Rig> rig;
        for (const auto& [type, holding, control, entry, message, focus] :
             std::initializer_list<Row>{
                 {0, "", kResolution, "0.005 mm",
                  "This type of sensor does not offer a resolution "
                  "finer than 0.010 mm.",
                  kResolution},
                 {0, "", kMode, "Synchronous", "This type of sensor has no synchronous", kMode},
                 {1, "", kSkipCount, "", kMissing, kSkipCount},
                 {1, "", kSkipCount, "256", "The error skip count must be a number from 0 to 255.",
                  kSkipCount},
                 {1, "A00000000", kResolution, "0.010 mm", "The sensor has no valid resolution", 0},
                 {1, "N190000", kResolution, "0.001 mm", kDoesNotFit, kResolution},
                 {1, "U99999999", kFormat, "Binary", kDoesNotFit, kResolution},
                 {1, "U2830O0", kFormat, "Binary", "Parameter U was read as \"2830O0\"", 0},
                 {2, "", kDirection, "Reverse", "The synchronous measurement mode cannot be",
                  kMode},
                 {2, "D020520", kFormat, "Binary", kMissing, kDataBits},
                 {2, "A00000007", kFormat, "Binary", kMissing, kResolution},
                 {2, "K000301", kFormat, "Binary", kMissing, kOneMagnet},
                 {2, "K030001", kFormat, "Binary", kMissing, kNoExtension},
                 {2, "NFF0000", kFormat, "Binary", kDoesNotFit, kResolution},
                 {2, "K0000Q1", kFormat, "Binary", "Parameter K was read as", 0}}) {
            if (!rig || rig->sensor().type() != type) {
                rig.reset();
                rig = std::make_unique<Rig>(type);
                QVERIFY(rig->open());
                QCOMPARE(rig->unlock(kSteady), QString());
            }
            const std::string good = *holding ? rig->sensor().parameter(*holding) : "";
            if (*holding)
                rig->sensor().setParameter(*holding, holding + 1);
            QVERIFY(rig->refresh());
            (void)rig->frames();
            if (control == kSkipCount)
                rig->enterSkipCount(entry);
            else
                rig->select(control, entry);
            const QString shown = rig->apply();
            QVERIFY2(shown.startsWith(QLatin1String(message)), qPrintable(shown));
            QCOMPARE(rig->frames(), QString());
            if (focus != 0)
                QTRY_COMPARE(rig->window().focusWidget(), rig->control(focus));
            if (*holding)
                rig->sensor().setParameter(*holding, good);
        }
    }

    void onlyAWholeReadOfAnIdentifiedSensorIsABaseForWriting()
    {
        Rig rig;
        QVERIFY(rig.open());
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "NA");
        QVERIFY(rig.refresh());
        QTRY_COMPARE(rig.statusText(),
                     QStringLiteral("Parameter 78 could not be read from the sensor."));
        QCOMPARE(rig.listText(kResolution), QStringLiteral("0.005 mm"));
        QVERIFY(rig.checkedButtons().isEmpty() && !rig.canApply());
        rig.click(kNoExtension);
        rig.click(kNormal);
        (void)rig.frames();
        QVERIFY(rig.apply().startsWith(QLatin1String(kReadFirst)));
        QCOMPARE(rig.frames(), QString());
        rig.sensor().clearFaults();

        QVERIFY(rig.refresh());
        rig.select(kFormat, "Binary");
        rig.link().forgetIdentification();
        QCOMPARE(rig.apply(), QStringLiteral("The sensor is not identified. Nothing was written."));
        QCOMPARE(rig.holds("D"), QStringLiteral("D=4A0519"));
    }

    void lostLinkEndsApplyAndNamesWhatWasWritten()
    {
        for (const auto& [frame, id, written] :
             {std::tuple("NN", 78, "Data Format (D), Resolution (A), Scale Factor (S). "),
              std::tuple("CN", 67, "Offset (N), Advanced Measurement Setup (K). ")}) {
            Rig rig;
            QVERIFY(rig.open());
            const QString before = rig.holds("DASNK");
            rig.select(kDataBits, "24");
            const QString text = rig.lossAt(frame);
            const auto start =
                QStringLiteral("Parameter %1 could not be written to the sensor.\n"
                               "Operation abandoned: the connection to the sensor was lost.\n\n"
                               "Parameters written before: ")
                    .arg(id);
            QVERIFY2(text.startsWith(start), qPrintable(text));
            QVERIFY2(text.contains(QLatin1String(written)), qPrintable(text));
            QCOMPARE(rig.holds("DASNK"), before); // without its closing command
        }
    }

    /// It is back before the dialog is answered.
    void linkLostDuringADialogAbandonsApply()
    {
        for (const bool offset : {true, false}) {
            Rig rig(2, {"D020519"});
            QVERIFY(rig.open());
            if (offset)
                rig.select(kDirection, "Reverse");
            else
                rig.click(kParity);
            QString message;
            std::optional<ModalAnswer<QMessageBox>> notice;
            const ModalAnswer<QDialog> answer([&](QDialog& dialog) {
                rig.sensor().vanish();
                QTRY_COMPARE(rig.link().lossCount(), 1);
                rig.sensor().comeBack();
                QTRY_COMPARE(rig.link().linkFailed(), 0);
                notice.emplace([&message](QMessageBox& box) {
                    message = box.text();
                    box.accept();
                });
                for (auto* edit : dialog.findChildren<QLineEdit*>())
                    edit->setText(QStringLiteral("1"));
                if (auto* question = qobject_cast<QMessageBox*>(&dialog))
                    question->button(QMessageBox::Yes)->click();
                else
                    dialog.accept();
            });
            rig.clickApply();
            QCOMPARE(message,
                     QStringLiteral("Operation abandoned: the connection to the sensor was lost."));
            QTRY_COMPARE(rig.window().currentPage(), 0); // the connect that has waited
            QVERIFY(rig.waitIdle());
            QVERIFY(!rig.frames().contains(QLatin1String("DN")));
        }
    }

    /// What is toggled while an Apply runs, which an assistive technology can do, is not written
    /// and not shown afterwards.
    void controlsShowWhatWasWritten()
    {
        Rig rig;
        QVERIFY(rig.open());
        rig.click(kTemperature);
        rig.clickApply();
        rig.control<QRadioButton>(kDifferential)->toggle();
        rig.control<QRadioButton>(kParity)->toggle();
        rig.control<QComboBox>(kFormat)->setCurrentIndex(0);
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.holds("DK"), QStringLiteral("D=4A0519 K=020001"));
        QCOMPARE(rig.checkedButtons(), QList<int>({kOneMagnet, kTemperature, kNormal}));
        QCOMPARE(rig.listText(kFormat), QStringLiteral("Gray code"));
        QVERIFY(!rig.canApply());
    }

    /// The second comes before the program has returned to its event loop.
    void secondInputOfAPassLeavesNothingHalfDone()
    {
        using Input = std::function<void(Rig&)>;
        const Input apply = [](Rig& rig) { rig.clickApply(); };
        const Input radio = [](Rig& rig) { rig.click(kTemperature); };
        const Input wheel = [](Rig& rig) {
            QWheelEvent event({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(rig.control(kDataBits), &event);
        };
        const Input refresh = [](Rig& rig) { rig.clickRefresh(); };
        const auto choose = [](int row) -> Input {
            return [row](Rig& rig) { rig.clickPage(row); };
        };
        const auto press = [](Qt::Key key) -> Input {
            return [key](Rig& rig) { QTest::keyClick(&rig.window(), key, Qt::ControlModifier); };
        };
        const auto written = "DN4A0518 AN00000005 SN046C00 NN000014 KN000001 CN";
        for (const auto& [name, first, second, expected, page] :
             {std::tuple("two pages", choose(4), choose(0), "", 4),
              std::tuple("two keys", press(Qt::Key_1), press(Qt::Key_5), "", 0),
              std::tuple("position page and another", choose(1), choose(4), "DN4E0519 CN", 1),
              std::tuple("page, apply", choose(4), apply, "", 4),
              std::tuple("apply, page", apply, choose(4), written, 2),
              std::tuple("refresh, page", refresh, choose(4), "", 4),
              std::tuple("refresh, apply", refresh, apply, written, 2),
              std::tuple("apply, refresh", apply, refresh, written, 2),
              std::tuple("apply twice", apply, apply, written, 2),
              std::tuple("apply, radio button", apply, radio, written, 2),
              std::tuple("apply, wheel", apply, wheel, written, 2)}) {
            Rig rig;
            QVERIFY(rig.open());
            rig.select(kDataBits, "24");
            first(rig);
            second(rig);
            QCoreApplication::processEvents(); // what they have posted
            QVERIFY2(rig.waitIdle(), name);
            QCOMPARE(rig.window().currentPage(), page);
            const QStringList writes =
                rig.frames().split(u' ').filter(QRegularExpression(QStringLiteral("^.N")));
            QVERIFY2(writes.join(u' ') == QLatin1String(expected), qPrintable(writes.join(u' ')));
            if (page == 2 && *expected) {
                QCOMPARE(rig.listText(kDataBits), QStringLiteral("24"));
                QCOMPARE(rig.checkedButtons(), QList<int>({kOneMagnet, kNoExtension, kNormal}));
            }
            const bool goesOn = rig.choosePage(3) && rig.showPage() && rig.refresh();
            QVERIFY2(goesOn, name);
            QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            rig.window().close();
            QTRY_COMPARE(closed.count(), 1);
        }
    }
};

QTEST_MAIN(TestOutputSetup)
#include "TestOutputSetup.moc"
