#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PageRig.h"
#include "pages/PasswordDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

struct Rig : PageRig<OutputSetupPage, 2, 1028>
{
    using PageRig::PageRig;

    [[nodiscard]] auto lists() { return page<OutputSetupPage>().findChildren<QComboBox*>(); }
    [[nodiscard]] auto buttons() { return page<OutputSetupPage>().findChildren<QRadioButton*>(); }
    [[nodiscard]] QLineEdit& skipCount() { return *control<QLineEdit>(1014); }

    /// What is selected in the lists, the error skip count, and the buttons that are checked.
    [[nodiscard]] QString settings()
    {
        QStringList texts;
        for (const QComboBox* list : lists())
            texts << list->currentText();
        texts << skipCount().text();
        for (const QRadioButton* button : buttons())
            texts += button->isChecked() ? QStringList(button->text()) : QStringList();
        return texts.join(u'|');
    }

    /// Stroke length, offset and gradient.
    [[nodiscard]] QString asRead()
    {
        QStringList texts;
        for (const int label : {1072, 1074, 1076})
            texts << control<QLabel>(label)->text();
        return texts.join(u'|');
    }

    /// Selects the item or clicks the button of a text; any other is a new error skip count.
    void enter(const QString& text)
    {
        for (QComboBox* list : lists()) {
            if (const int item = list->findText(text); item >= 0) {
                QTest::keyClick(list, Qt::Key_Home);
                while (list->currentIndex() < item)
                    QTest::keyClick(list, Qt::Key_Down);
                return;
            }
        }
        for (QRadioButton* button : buttons()) {
            if (button->text() == text)
                return QTest::mouseClick(button, Qt::LeftButton, {}, {12, button->height() / 2});
        }
        QTest::keyClick(&skipCount(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&skipCount(), Qt::Key_Delete);
        QTest::keyClicks(&skipCount(), text);
    }

    /// Enters a password for the error skip count. @return what was said about it
    QString unlock(const QString& password = u"STEADYNOW"_s, Qt::Key end = Qt::Key_Return)
    {
        const ModalAnswer<PasswordDialog> answer([&](PasswordDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1064), password);
            QTest::keyClick(&dialog, end);
        });
        return press(1019);
    }

    /// Applies an entry. A dialog for the offset gets this SE distance, or is cancelled.
    /// @return what press returns, without the frames that are nearly always the same
    QString apply(const char* entry, const char* seDistance, int answer = QMessageBox::Ok)
    {
        enter(QString::fromLatin1(entry));
        const ModalAnswer<CalculateOffsetDialog> entries([&](CalculateOffsetDialog& dialog) {
            inDialog();
            dialog.getControl<QLineEdit>(1031)->setText(QString::fromLatin1(seDistance));
            dialog.getControl<QLineEdit>(1037)->setText(u"63.5"_s);
            QTest::mouseClick(dialog.getControl<QWidget>(*seDistance ? 1 : 2), Qt::LeftButton);
        });
        return PageRig::apply(answer).remove(u" AN00000005 SN046C00"_s);
    }
};

/// Packages of the settings: number, name, SE distance, inactive zone.
QByteArray packages(const std::vector<std::array<const char*, 4>>& entries)
{
    const auto key =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Package Parameters"_ba;
    QByteArray text;
    for (const auto& [number, name, seDistance, inactiveZone] : entries) {
        text += key + "\\Package" + number + "]\r\n\"Name\"=\"" + name + "\"\r\n\"SEDistance\"=\"" +
                seDistance + "\"\r\n\"InactiveZone\"=\"" + inactiveZone + "\"\r\n";
    }
    return text;
}

/// The SE distance, the stroke and the dead zone; in brackets what cannot be edited.
QString distances(const CalculateOffsetDialog& dialog)
{
    QStringList texts;
    for (const auto* edit : dialog.findChildren<QLineEdit*>())
        texts << (edit->isEnabled() ? u"%1"_s : u"(%1)"_s).arg(edit->text());
    return texts.join(u'|');
}

} // namespace

class TestOutputSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void pageShowsWhatItsTypeHas()
    {
        for (const auto& [type, reads, shown, asRead] :
             {std::tuple(0, "DA AA UA NA LA", "24|Gray code|Forward|Asynchronous|0.010 mm|00",
                         "0A, 500 mm|0 counts, 0.000 mm|2830.00 (8.97527) m/s (µs/in)"),
              {1, "DA AA UA NA LA", "24|Gray code|Forward|Asynchronous|0.020 mm|03",
               "0B, 800 mm|-10 counts, -0.200 mm|2815.00 (9.02309) m/s (µs/in)"},
              {2, "DA AA UA NA LA KA",
               "25|Gray code|Forward|Synchronous|0.005 mm|05|1 Magnet|No Extension|"
               "Normal Position Output",
               "0A, 1250 mm|10 counts, 0.050 mm|2830.00 (8.97527) m/s (µs/in)"}}) {
            Rig rig(type);
            rig.enter(u"Binary"_s); // entries are given up
            QCOMPARE(rig.refresh(), QLatin1String(reads));
            QCOMPARE(rig.settings(), QLatin1String(shown));
            QCOMPARE(rig.asRead(), QString::fromUtf8(asRead));
            QCOMPARE(rig.buttons().first()->isVisible(), type == 2);
            QVERIFY(!rig.skipCount().isEnabled() && !rig.canApply());
        }
    }

    /// Type, what the sensor holds, the entry, the frames or else the message, and what then has
    /// the focus.
    void entriesAreWrittenOrRefused()
    {
        const auto missing = "A value is missing. Please complete";
        const auto doesNotFit = "The sensor cannot hold the scale";
        for (const auto& [type, holding, entry, expected, focus] :
             {std::tuple(0, "", "25", "DN020019 AN00000010 SN023600 NN000000 CN", ""),
              {0, "", "Binary", "DN000018 AN00000010 SN023600 NN000000 CN", ""},
              {1, "", "0.010 mm", "DN820318 AN00000010 SN023300 NNFFFFB0 EN", ""},
              {2, "", "Asynchronous", "DN420519 NN000014 KN000001 CN", ""},
              {2, "", "Temperature", "DN4A0519 NN000014 KN020001 CN", ""},
              {2, "", "Differential Position", "DN4A0519 NN000014 KN000102 CN", ""},
              {2, "", "Velocity", "DN4A0519 NN000014 KN000201 CN", ""},
              {2, "K000201", "Normal Position Output", "DN4A0519 NN000014 KN000001 CN", ""},
              {2, "", "0.001 mm", "DN4A0519 AN00000001 SN161C00 NN000064 KN000001 CN", ""},
              {0, "", "0.005 mm", "This type of sensor does not", "resolutionCombo"},
              {0, "", "Synchronous", "This type of sensor has no", "modeCombo"},
              {1, "U99999999", "Binary", doesNotFit, "resolutionCombo"},
              {1, "A00000000", "0.010 mm", "The sensor has no valid resolution,", "applyButton"},
              {2, "", "Reverse", "The synchronous measurement mode cannot be", "modeCombo"},
              {2, "D020519", "Reverse", doesNotFit, "resolutionCombo"}, // the offset is no number
              {2, "", "", missing, "errorSkipCountEdit"},
              {2, "", "256", "The error skip count must be", "errorSkipCountEdit"},
              {2, "D020520", "Binary", missing, "dataBitsCombo"},
              {2, "A00000007", "Binary", missing, "resolutionCombo"},
              {2, "K000301", "Binary", missing, "oneMagnetRadio"},
              {2, "K030001", "Binary", missing, "noExtensionRadio"},
              {2, "U2830O0 K0000Q1", "25", "Parameter U was read as \"2830O0\",", "applyButton"}}) {
            Rig rig(type, holding);
            QCOMPARE(rig.unlock(), QString());
            QCOMPARE(rig.apply(entry, "50.8.1"), QLatin1String(expected));
            const QWidget* focused = rig.window().focusWidget();
            QCOMPARE(rig.canApply() ? focused->objectName() : QString(), QLatin1String(focus));
        }
    }

    /// What the sensor does already, and what has been confirmed and written, is not asked again.
    /// The offset stays until a new direction has been written.
    void directionExtensionAndModeAreAskedForOnce()
    {
        Rig rig(2, "D020519");
        const auto parity = u"The parity extension changes the SSI"_s;
        const auto mode = u"In the synchronous measurement mode the"_s;
        rig.enter(u"Reverse"_s);
        QCOMPARE(rig.apply("Parity", ""), QString()); // the offset comes first
        QCOMPARE(rig.apply("Parity", "50.8", QMessageBox::No), parity);
        QCOMPARE(rig.apply("Forward", "", QMessageBox::Yes),
                 u"DN020519 NN00000A KN010001 CN "_s + parity);
        QCOMPARE(rig.apply("Reverse", "50.8"), u"DN030519 NN0429DC KN010001 CN"_s);
        QCOMPARE(rig.apply("Binary", ""), u"DN010519 NN0429DC KN010001 CN"_s);
        QCOMPARE(rig.apply("Forward", "50.8"), u"DN000519 NNFFD850 KN010001 CN"_s);
        QCOMPARE(rig.apply("Synchronous", "", QMessageBox::No), mode);
        QCOMPARE(rig.apply("24", "", QMessageBox::Yes), u"DN080518 NNFFD850 KN010001 CN "_s + mode);
        QCOMPARE(rig.apply("25", ""), u"DN080519 NNFFD850 KN010001 CN"_s);
    }

    void modeChoosesTheMagnets()
    {
        Rig rig(2, "K010101");
        for (const auto& [entry, shown] :
             {std::pair("1 Magnet", "2 Magnets|Parity|Differential Position"), // not offered
              {"Velocity", "1 Magnet|Parity|Velocity"},
              {"Differential Position", "2 Magnets|Parity|Differential Position"}}) {
            rig.enter(QString::fromLatin1(entry));
            QCOMPARE(rig.settings().section(u'|', 6), QLatin1String(shown));
        }
        rig.hold("K000301"); // a mode that the page does not know
        rig.refresh();
        rig.enter(u"1 Magnet"_s);
        QCOMPARE(rig.settings().section(u'|', 6), u"1 Magnet|No Extension"_s);
    }

    void skipCountIsUnlockedByThePasswordAndDecimal()
    {
        Rig rig(2, "K0000Q1"); // until the next reading
        QCOMPARE(rig.unlock(u"STEADYNOW"_s, Qt::Key_Escape), QString());
        QCOMPARE(rig.unlock(u"STEADY"_s), u"The password is wrong."_s);
        QVERIFY(!rig.skipCount().isEnabled());
        QCOMPARE(rig.unlock(u"sTeadyNow"_s), QString());
        QCOMPARE(rig.unlock(u"wrong"_s), u"The password is wrong."_s); // once is enough
        for (const auto& [held, shown, entry, written] :
             {std::tuple("D024219 K000001", "66", "Binary", "DN004219"),
              {"D02FF19", "255", "Binary", "DN00FF19"},
              {"D020519", "05", "10", "DN020A19"},
              {"D020519", "05", "-1a2.34", "DN027B19"}}) { // only digits are taken
            rig.hold(held);
            QVERIFY(rig.choosePage(0) && rig.choosePage(2));
            QCOMPARE(rig.skipCount().text(), QLatin1String(shown));
            QCOMPARE(rig.apply(entry, "").left(8), QLatin1String(written));
        }
    }

    void onlyAWholeReadIsABaseForWriting()
    {
        Rig rig;
        QCOMPARE(rig.unlock(), QString());
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "DA");
        rig.refresh();
        QCOMPARE(rig.settings(), u"|||||"_s);
        rig.enter(u"7"_s);
        QVERIFY(!rig.canApply());
        QCOMPARE(rig.apply("Parity", ""), u"The values on this page have"_s);
    }

    /// It is back before the dialog is answered, or is lost while the offset is written.
    void lostLinkAbandonsApply()
    {
        for (const auto& [entry, answer] :
             {std::pair("Reverse", QMessageBox::Ok), {"Parity", QMessageBox::Yes}}) {
            Rig rig(2, "D020519");
            rig.inDialog = [&rig] {
                if (rig.link().lossCount() == 0)
                    rig.sensor().vanish();
                QVERIFY(waitFor([&rig] { return rig.link().lossCount() == 1; }));
                rig.sensor().comeBack();
                QVERIFY(waitFor([&rig] { return rig.link().linkFailed() == 0; }));
            };
            const QString said = rig.apply(entry, "1", answer);
            QVERIFY2(said.endsWith(u"abandoned: the connection to the"_s), qPrintable(said));
        }
        Rig rig;
        rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "NN");
        QVERIFY(rig.apply("24", "").endsWith(u"Parameter 78 could not be written"_s));
    }

    /// An assistive technology toggles a button without a click. What is changed in that way while
    /// an Apply runs is not written and not shown afterwards.
    void toggledButtonsAreChangesUntilApplyRuns()
    {
        Rig rig(2, "D0A0519"); // its offset is not multiplied
        for (QRadioButton* button : rig.buttons().mid(2)) {
            const bool checked = button->isChecked();
            button->toggle();
            QCOMPARE(rig.canApply(), !checked);
            rig.refresh();
        }
        rig.enter(u"Temperature"_s);
        const QString chosen = rig.settings();
        rig.clickApply();
        rig.clickPage(4);
        for (QRadioButton* button : rig.buttons())
            button->toggle();
        rig.lists().first()->setCurrentIndex(0);
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.frames(), u"DN0A0519 AN00000005 SN046C00 NN00000A KN020001 CN"_s);
        QCOMPARE(rig.settings(), chosen);
        QVERIFY(!rig.canApply());
        QCOMPARE(rig.languages().loadLanguage(2), 1);
        QVERIFY(waitFor([&rig] { return rig.lists()[2]->currentText() == u"Vorwärts"_s; }));
        QVERIFY(!rig.canApply());
    }

    /// The direction decides what must be entered. The decimal comma is the user's own.
    void offsetFollowsFromTheEntries()
    {
        const Languages languages(1);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        for (const auto& [reverse, stroke, shown, typed, outcome] :
             {std::tuple(false, 0.0, "|()|()", "", "seDistanceEdit"),
              {false, 0.0, "|()|()", "50,8", "-50.8"},
              {true, 0.0, "||", "1", "strokeEdit"},
              {true, 1012.34, "|1012.3|", "1", "deadZoneEdit"},
              {true, 1012.34, "|1012.3|", "|2|1", "seDistanceEdit"},
              {true, 1012.34, "|1012.3|", "50,8|1000,5|63,5", "1114.8"}}) {
            CalculateOffsetDialog dialog(nullptr, reverse, stroke);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QCOMPARE(distances(dialog), QLatin1String(shown));
            auto texts = QString::fromLatin1(typed).split(u'|');
            for (auto* edit : dialog.findChildren<QLineEdit*>().first(texts.size())) {
                edit->selectAll();
                QTest::keyClicks(edit, texts.takeFirst());
            }
            const ModalAnswer<QMessageBox> missing([](QMessageBox& box) {
                QCOMPARE(box.text(), u"A value is missing. Please complete it first."_s);
                box.accept();
            });
            QTest::mouseClick(dialog.getControl<QWidget>(1), Qt::LeftButton);
            QCOMPARE(missing.wasShown(), dialog.isVisible());
            QCOMPARE(missing.wasShown() ? dialog.focusWidget()->objectName()
                                        : QString::number(dialog.offset()),
                     QLatin1String(outcome));
        }
    }

    /// Those up to the first gap are offered; the later one of a name counts. The dead zone is
    /// filled also in the forward direction, in which it cannot be edited.
    void chosenPackageFillsTheDistances()
    {
        const TestRegistry settings(packages({{"0", "Profile", " 28.0mm", "+82,5"},
                                              {"1", "Rod", "50.8", "63.5"},
                                              {"2", "Rod", "30.0", "60.0"},
                                              {"3", "", "long", ""},
                                              {"5", "Behind the gap", "1.0", "2.0"}}));
        CalculateOffsetDialog dialog(nullptr, false, 1000);
        dialog.show();
        auto* list = dialog.getControl<QComboBox>(1041);
        QCOMPARE(list->currentIndex(), -1);
        QStringList chosen;
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
            QTest::keyClick(list, key);
            chosen << list->currentText() + u'|' + distances(dialog);
        }
        QCOMPARE(chosen.join(u'\n'),
                 u"|0.000|(1000.0)|(0.000)\nProfile|28.000|(1000.0)|(82.000)\n"
                 "Rod|30.000|(1000.0)|(60.000)\nRod|30.000|(1000.0)|(60.000)"_s);
    }
};

QTEST_MAIN(TestOutputSetup)
#include "TestOutputSetup.moc"
