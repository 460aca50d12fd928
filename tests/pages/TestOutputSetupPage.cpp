#include "pages/OutputSetupRig.h"

#include "app/Commands.h"

#include <QRegularExpression>

using namespace pelorin;
using namespace pelorin::test;

class TestOutputSetupPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingShowsTheSettings_data();
    void readingShowsTheSettings();
    void parametersAreReadInTurn_data();
    void parametersAreReadInTurn();
    void valuesWithoutAnItemStayUnselected();
    void listsOfferTheirItemsInOrder();
    void applyWritesWhatTheSensorThenHolds_data();
    void applyWritesWhatTheSensorThenHolds();
    void applyIsLogged();
    void everyResolutionKeepsTheOffset();
    void advancedSettingsAreWritten_data();
    void advancedSettingsAreWritten();
    void modeChoosesTheMagnets();
    void onlyTheUsersChangesEnableApply();
    void changeOfLanguageKeepsTheEntries();
    void newExtensionAndModeAreAskedForOnce();
    void passwordUnlocksTheSkipCount_data();
    void passwordUnlocksTheSkipCount();
    void skipCountIsDecimal();
    void directionBringsItsOffset();
    void abandonedDirectionKeepsTheOffset();
    void applyTwiceRefreshAndReturnWork();
};

void TestOutputSetupPage::readingShowsTheSettings_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QList<int>>("checked");
    QTest::newRow("type 0") << 0
                            << QStringList{QStringLiteral("24"), QStringLiteral("Gray code"),
                                           QStringLiteral("Forward"),
                                           QStringLiteral("Asynchronous"),
                                           QStringLiteral("0.010 mm")}
                            << QList<int>{};
    QTest::newRow("type 1") << 1
                            << QStringList{QStringLiteral("24"), QStringLiteral("Gray code"),
                                           QStringLiteral("Forward"),
                                           QStringLiteral("Asynchronous"),
                                           QStringLiteral("0.020 mm")}
                            << QList<int>{};
    QTest::newRow("type 2") << 2
                            << QStringList{QStringLiteral("25"), QStringLiteral("Gray code"),
                                           QStringLiteral("Forward"), QStringLiteral("Synchronous"),
                                           QStringLiteral("0.005 mm")}
                            << QList<int>{kOneMagnet, kNoExtension, kNormal};
}

void TestOutputSetupPage::readingShowsTheSettings()
{
    QFETCH(int, type);
    OutputSetupRig rig({.type = type});
    QVERIFY(rig.open());
    QStringList shown;
    for (const int id : {kDataBits, kFormat, kDirection, kMode, kResolution})
        shown << rig.listText(id);
    QTEST(shown, "shown");
    QTEST(rig.checkedButtons(), "checked");
    QCOMPARE(rig.control<QWidget>(kParity)->isVisible(), type == 2);
    QCOMPARE(rig.skipCountText(),
             QStringList({QStringLiteral("00"), QStringLiteral("03"), QStringLiteral("05")})[type]);
    QVERIFY(!rig.isEnabled(kSkipCount));
    QVERIFY(!rig.isEnabled(kApply));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestOutputSetupPage::parametersAreReadInTurn_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("frames");
    QTest::newRow("type 0") << 0 << QStringLiteral("DA AA UA NA LA");
    QTest::newRow("type 1") << 1 << QStringLiteral("DA AA UA NA LA");
    QTest::newRow("type 2") << 2 << QStringLiteral("DA AA UA NA LA KA");
}

void TestOutputSetupPage::parametersAreReadInTurn()
{
    QFETCH(int, type);
    OutputSetupRig rig({.type = type});
    QVERIFY(rig.open());
    QVERIFY(rig.refresh());
    QTEST(rig.frames(), "frames");
}

void TestOutputSetupPage::valuesWithoutAnItemStayUnselected()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "000020");
    rig.sensor().setParameter('A', "00000007");
    rig.sensor().setParameter('K', "030302");
    QVERIFY(rig.open());
    QCOMPARE(rig.control<QComboBox>(kDataBits)->currentIndex(), -1);
    QCOMPARE(rig.control<QComboBox>(kResolution)->currentIndex(), -1);
    QCOMPARE(rig.listText(kFormat), QStringLiteral("Binary"));
    QCOMPARE(rig.checkedButtons(), QList<int>());
}

void TestOutputSetupPage::listsOfferTheirItemsInOrder()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    const QStringList resolutions = {QStringLiteral("0.005 mm"), QStringLiteral("0.010 mm"),
                                     QStringLiteral("0.050 mm"), QStringLiteral("0.100 mm"),
                                     QStringLiteral("0.020 mm"), QStringLiteral("0.002 mm"),
                                     QStringLiteral("0.001 mm")};
    QStringList offered;
    for (int index = 0; index < rig.control<QComboBox>(kResolution)->count(); ++index)
        offered << rig.control<QComboBox>(kResolution)->itemText(index);
    QCOMPARE(offered, resolutions);
    QCOMPARE(rig.control<QComboBox>(kDirection)->itemText(0), QStringLiteral("Forward"));
    QCOMPARE(rig.control<QComboBox>(kMode)->itemText(0), QStringLiteral("Asynchronous"));
}

void TestOutputSetupPage::applyWritesWhatTheSensorThenHolds_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("frames");
    QTest::addColumn<QString>("holds");
    const auto row = [](const char* name, int type, int list, const char* item, const char* frames,
                        const char* holds) {
        QTest::newRow(name) << type << list << QString::fromLatin1(item)
                            << QString::fromLatin1(frames) << QString::fromLatin1(holds);
    };
    row("type 0, data bits", 0, kDataBits, "25", "DN020019 AN00000010 SN023600 NN000000 CN",
        "D=020019 A=00000010 S=023600 N=000000");
    row("type 0, format", 0, kFormat, "Binary", "DN000018 AN00000010 SN023600 NN000000 CN",
        "D=000018 A=00000010 S=023600 N=000000");
    row("type 1, resolution", 1, kResolution, "0.010 mm",
        "DN820318 AN00000010 SN023300 NNFFFFB0 EN", "D=820318 A=00000010 S=023300 N=FFFFB0");
    row("type 2, mode", 2, kMode, "Asynchronous",
        "DN420519 AN00000005 SN046C00 NN000014 KN000001 CN",
        "D=420519 A=00000005 S=046C00 N=000014");
    row("type 2, resolution", 2, kResolution, "0.001 mm",
        "DN4A0519 AN00000001 SN161C00 NN000064 KN000001 CN",
        "D=4A0519 A=00000001 S=161C00 N=000064");
}

void TestOutputSetupPage::applyWritesWhatTheSensorThenHolds()
{
    QFETCH(int, type);
    QFETCH(int, list);
    QFETCH(QString, item);
    OutputSetupRig rig({.type = type});
    QVERIFY(rig.open());
    rig.select(list, item);
    QCOMPARE(rig.listText(list), item);
    QVERIFY(rig.isEnabled(kApply));
    QVERIFY(rig.apply());
    QTEST(rig.frames(), "frames");
    QTEST(rig.holds("DASN"), "holds");
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(!rig.isEnabled(kApply));
}

void TestOutputSetupPage::applyIsLogged()
{
    OutputSetupRig rig({.type = 0});
    QVERIFY(rig.open());
    rig.select(kDataBits, "25");
    QVERIFY(rig.apply());
    QCOMPARE(rig.logged().filter(QRegularExpression(QStringLiteral("^TX: .*Set"))),
             QStringList({QStringLiteral("TX: [44][Set][30][32][30][30][31][39][TERM]"),
                          QStringLiteral("TX: [41][Set][30][30][30][30][30][30][31][30][TERM]"),
                          QStringLiteral("TX: [53][Set][30][32][33][36][30][30][TERM]"),
                          QStringLiteral("TX: [4E][Set][30][30][30][30][30][30][TERM]"),
                          QStringLiteral("TX: [43][Set][TERM]")}));
}

/// Also over one Apply after the other.
void TestOutputSetupPage::everyResolutionKeepsTheOffset()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    rig.sensor().setParameter('A', "00000100"); // with 10 counts of offset, and 2830.00 m/s
    QVERIFY(rig.open());
    const auto holdsAfter = [&rig](const char* item) {
        rig.select(kResolution, item);
        return rig.apply() ? rig.holds("ASN") : QStringLiteral("busy");
    };
    QCOMPARE(holdsAfter("0.001 mm"), QStringLiteral("A=00000001 S=161C00 N=0003E8"));
    QCOMPARE(holdsAfter("0.002 mm"), QStringLiteral("A=00000002 S=0B0E00 N=0001F4"));
    QCOMPARE(holdsAfter("0.005 mm"), QStringLiteral("A=00000005 S=046C00 N=0000C8"));
    QCOMPARE(holdsAfter("0.010 mm"), QStringLiteral("A=00000010 S=023600 N=000064"));
    QCOMPARE(holdsAfter("0.020 mm"), QStringLiteral("A=00000020 S=011B00 N=000032"));
    QCOMPARE(holdsAfter("0.050 mm"), QStringLiteral("A=00000050 S=007133 N=000014"));
    QCOMPARE(holdsAfter("0.100 mm"), QStringLiteral("A=00000100 S=003899 N=00000A"));
}

void TestOutputSetupPage::advancedSettingsAreWritten_data()
{
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<QString>("text");
    QTest::newRow("temperature") << QList<int>{kTemperature} << QStringLiteral("020001");
    QTest::newRow("differential position") << QList<int>{kDifferential} << QStringLiteral("000102");
    QTest::newRow("velocity with temperature")
        << QList<int>{kVelocity, kTemperature} << QStringLiteral("020201");
    QTest::newRow("back to normal")
        << QList<int>{kDifferential, kNormal} << QStringLiteral("000001");
}

void TestOutputSetupPage::advancedSettingsAreWritten()
{
    QFETCH(QList<int>, clicks);
    OutputSetupRig rig;
    QVERIFY(rig.open());
    for (const int id : clicks)
        rig.click(id);
    QVERIFY(rig.apply());
    QTEST(rig.stored('K'), "text");
}

void TestOutputSetupPage::modeChoosesTheMagnets()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('K', "010101");
    QVERIFY(rig.open());
    QCOMPARE(rig.checkedButtons(), QList<int>({kTwoMagnets, kParity, kDifferential}));
    QVERIFY(!rig.isEnabled(kOneMagnet) && rig.isEnabled(kTwoMagnets));
    rig.click(kVelocity);
    QCOMPARE(rig.checkedButtons(), QList<int>({kOneMagnet, kParity, kVelocity}));
    QVERIFY(rig.isEnabled(kOneMagnet) && !rig.isEnabled(kTwoMagnets));
    QTest::keyClick(rig.control<QWidget>(kVelocity), Qt::Key_Up);
    QCOMPARE(rig.checkedButtons(), QList<int>({kTwoMagnets, kParity, kDifferential}));
}

void TestOutputSetupPage::onlyTheUsersChangesEnableApply()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    QVERIFY(rig.unlock("steadynow"));
    QCOMPARE(rig.languages().loadLanguage(2), 1);
    QTRY_COMPARE(rig.listText(kDirection), QStringLiteral("Vorwärts"));
    QVERIFY(!rig.isEnabled(kApply));

    for (const int id : {kDataBits, kFormat, kDirection, kMode, kResolution, kOneMagnet, kParity,
                         kNoExtension, kDifferential, kVelocity, kSkipCount}) {
        if (auto* list = rig.control<QComboBox>(id))
            QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
        else if (auto* edit = rig.control<QLineEdit>(id))
            QTest::keyClicks(edit, QStringLiteral("7"));
        else
            rig.click(id);
        QVERIFY2(rig.isEnabled(kApply), qPrintable(QString::number(id)));
        QVERIFY(rig.refresh());
        QVERIFY2(!rig.isEnabled(kApply), qPrintable(QString::number(id)));
    }
}

void TestOutputSetupPage::changeOfLanguageKeepsTheEntries()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.select(kFormat, "Binary");
    rig.select(kResolution, "0.050 mm");
    rig.click(kTemperature);
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.listText(kFormat), QStringLiteral("Binär"));
    QCOMPARE(rig.listText(kResolution), QStringLiteral("0.050 mm"));
    QCOMPARE(rig.skipCountText(), QStringLiteral("05"));
    QCOMPARE(rig.checkedButtons(), QList<int>({kOneMagnet, kTemperature, kNormal}));
    QVERIFY(rig.isEnabled(kApply));
    QVERIFY(rig.apply());
    QCOMPARE(rig.holds("DAK"), QStringLiteral("D=480519 A=00000050 K=020001"));
}

/// What the sensor does already, and what has been confirmed and written, is not asked again.
void TestOutputSetupPage::newExtensionAndModeAreAskedForOnce()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    QVERIFY(rig.open());
    rig.click(kParity);
    QVERIFY(rig.applyAnswered(QMessageBox::No).startsWith(QLatin1String("The parity extension")));
    QCOMPARE(rig.frames(), QString());
    QVERIFY(rig.applyAnswered(QMessageBox::Yes).startsWith(QLatin1String("The parity extension")));
    QCOMPARE(rig.stored('K'), QStringLiteral("010001"));

    rig.select(kMode, "Synchronous");
    QVERIFY(rig.applyAnswered(QMessageBox::No).startsWith(QLatin1String("In the synchronous")));
    QCOMPARE(rig.stored('D'), QStringLiteral("020519"));
    QVERIFY(rig.applyAnswered(QMessageBox::Yes).startsWith(QLatin1String("In the synchronous")));
    QCOMPARE(rig.holds("DK"), QStringLiteral("D=0A0519 K=010001"));

    rig.select(kFormat, "Binary");
    QCOMPARE(rig.applyAnswered(), QString());
    QCOMPARE(rig.holds("DK"), QStringLiteral("D=080519 K=010001"));
}

void TestOutputSetupPage::passwordUnlocksTheSkipCount_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::addColumn<bool>("right");
    QTest::newRow("upper case") << QByteArray("STEADYNOW") << true;
    QTest::newRow("mixed case") << QByteArray("sTeadyNow") << true;
    QTest::newRow("wrong") << QByteArray("STEADY") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestOutputSetupPage::passwordUnlocksTheSkipCount()
{
    QFETCH(QByteArray, password);
    QFETCH(bool, right);
    OutputSetupRig rig;
    QVERIFY(rig.open());
    QVERIFY(!rig.isEnabled(kSkipCount));

    QString message;
    const ModalAnswer<QMessageBox> answer([&message](QMessageBox& box) {
        message = box.text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QVERIFY(rig.unlock(password.constData()));
    QCOMPARE(message, right ? QString() : QStringLiteral("The password is wrong."));
    QCOMPARE(rig.isEnabled(kSkipCount), right);
    if (!right)
        return;
    QVERIFY(rig.choosePage(0));
    QVERIFY(rig.showPage());
    QVERIFY(rig.isEnabled(kSkipCount));
}

void TestOutputSetupPage::skipCountIsDecimal()
{
    struct Case
    {
        const char* read;
        const char* shown;
        const char* entered; ///< null: not edited
        const char* written;
    };
    OutputSetupRig rig;
    QVERIFY(rig.open());
    QVERIFY(rig.unlock("STEADYNOW"));
    for (const auto& [read, shown, entered, written] :
         {Case{"024219", "66", nullptr, "004219"}, Case{"02FF19", "255", nullptr, "00FF19"},
          Case{"020519", "05", nullptr, "000519"}, Case{"020519", "05", "9", "000919"},
          Case{"020519", "05", "10", "000A19"}, Case{"020519", "05", "255", "00FF19"},
          Case{"020519", "05", "-1a2.34", "007B19"}}) { // what is no digit is not taken
        rig.sensor().setParameter('D', read);
        QVERIFY(rig.refresh());
        QCOMPARE(rig.skipCountText(), QString::fromLatin1(shown));
        if (entered)
            rig.enterSkipCount(entered);
        rig.select(kFormat, "Binary");
        QVERIFY(rig.apply());
        QCOMPARE(rig.stored('D'), QString::fromLatin1(written));
    }
}

void TestOutputSetupPage::directionBringsItsOffset()
{
    OutputSetupRig rig({.type = 0});
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    QVERIFY(rig.applyWithOffset("50.8", "63.5")); // and the stroke of 500 mm: 614.3 mm
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=030018 N=00EFF6"));

    rig.select(kFormat, "Binary"); // the direction written counts as read
    QCOMPARE(rig.applyAnswered(), QString());
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=010018 N=00EFF6"));

    rig.select(kDirection, "Forward");
    QVERIFY(rig.applyWithOffset("50.8"));
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=000018 N=FFEC28"));
}

void TestOutputSetupPage::abandonedDirectionKeepsTheOffset()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    const ModalAnswer<CalculateOffsetDialog> cancel(
        [](CalculateOffsetDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(rig.apply());
    QVERIFY(cancel.wasShown());

    rig.click(kParity); // and refused after the offset is known
    const ModalAnswer<QMessageBox> no([](QMessageBox& box) { box.reject(); });
    QVERIFY(rig.applyWithOffset("50.8", "63.5"));
    QVERIFY(no.wasShown());
    QCOMPARE(rig.frames(), QString());

    rig.click(kNoExtension);
    rig.select(kDirection, "Forward");
    QCOMPARE(rig.applyAnswered(), QString());
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=020519 N=00000A"));
}

void TestOutputSetupPage::applyTwiceRefreshAndReturnWork()
{
    OutputSetupRig rig({.type = 0});
    rig.sensor().setParameter('N', "FFFFF6");
    QVERIFY(rig.open());
    for (const char* item : {"0.020 mm", "0.100 mm", "0.010 mm"}) {
        rig.select(kResolution, item);
        QVERIFY(rig.apply());
    }
    QCOMPARE(rig.holds("ASN"), QStringLiteral("A=00000010 S=023600 N=FFFFF6"));

    rig.select(kFormat, "Binary"); // given up by the refresh
    QVERIFY(rig.refresh());
    QCOMPARE(rig.listText(kFormat), QStringLiteral("Gray code"));
    QVERIFY(!rig.isEnabled(kApply));

    rig.select(kDataBits, "25"); // given up by leaving
    QVERIFY(rig.choosePage(0));
    QVERIFY(rig.showPage());
    QCOMPARE(rig.listText(kDataBits), QStringLiteral("24"));
    rig.select(kDataBits, "25");
    QVERIFY(rig.apply());
    QCOMPARE(rig.holds("DASN"), QStringLiteral("D=020019 A=00000010 S=023600 N=FFFFF6"));
}

QTEST_MAIN(TestOutputSetupPage)
#include "TestOutputSetupPage.moc"
