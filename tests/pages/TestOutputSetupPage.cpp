#include "pages/OutputSetupRig.h"

#include "app/Commands.h"

using namespace pelorin;
using namespace pelorin::test;

class TestOutputSetupPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageReadsInTurnAndShowsTheSettings_data();
    void pageReadsInTurnAndShowsTheSettings();
    void applyWritesWhatTheSensorThenHolds_data();
    void applyWritesWhatTheSensorThenHolds();
    void modeChoosesTheMagnets();
    void newExtensionAndModeAreAskedForOnce();
    void skipCountIsDecimal();
    void onlyTheUsersChangesEnableApply();
    void everyResolutionKeepsTheOffsetAndTheEntriesTheirLanguage();
    void passwordUnlocksTheSkipCount();
    void directionBringsItsOffset();
    void abandonedDirectionKeepsTheOffset();
    void refreshAndReturnGiveUpTheEntries();
};

void TestOutputSetupPage::pageReadsInTurnAndShowsTheSettings_data()
{
    QTest::addColumn<QString>("frames");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QList<int>>("checked");
    QTest::newRow("type 0") << QStringLiteral("DA AA UA NA LA")
                            << QStringLiteral("24|Gray code|Forward|Asynchronous|0.010 mm|00")
                            << QList<int>{};
    QTest::newRow("type 1") << QStringLiteral("DA AA UA NA LA")
                            << QStringLiteral("24|Gray code|Forward|Asynchronous|0.020 mm|03")
                            << QList<int>{};
    QTest::newRow("type 2") << QStringLiteral("DA AA UA NA LA KA")
                            << QStringLiteral("25|Gray code|Forward|Synchronous|0.005 mm|05")
                            << QList<int>{kOneMagnet, kNoExtension, kNormal};
}

void TestOutputSetupPage::pageReadsInTurnAndShowsTheSettings()
{
    const int type = QByteArray(QTest::currentDataTag()).right(1).toInt();
    OutputSetupRig rig({.type = type});
    QVERIFY(rig.open());
    QVERIFY(rig.refresh());
    QTEST(rig.frames(), "frames");
    QStringList shown;
    for (const int id : {kDataBits, kFormat, kDirection, kMode, kResolution})
        shown << rig.listText(id);
    shown << rig.skipCountText();
    QTEST(shown.join(QLatin1Char('|')), "shown");
    QTEST(rig.checkedButtons(), "checked");
    QCOMPARE(rig.control<QWidget>(kParity)->isVisible(), type == 2);
    QVERIFY(!rig.isEnabled(kSkipCount) && !rig.isEnabled(kApply));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestOutputSetupPage::applyWritesWhatTheSensorThenHolds_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<int>("list");
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<QString>("frames");
    const auto select = [](int type, int list, const char* item, const char* frames) {
        QTest::addRow("type %d, %s", type, item)
            << type << QList<int>{} << list << QByteArray(item) << QString::fromLatin1(frames);
    };
    select(0, kDataBits, "25", "DN020019 AN00000010 SN023600 NN000000 CN");
    select(0, kFormat, "Binary", "DN000018 AN00000010 SN023600 NN000000 CN");
    select(1, kResolution, "0.010 mm", "DN820318 AN00000010 SN023300 NNFFFFB0 EN");
    select(2, kMode, "Asynchronous", "DN420519 AN00000005 SN046C00 NN000014 KN000001 CN");
    select(2, kResolution, "0.001 mm", "DN4A0519 AN00000001 SN161C00 NN000064 KN000001 CN");
    const auto click = [](const char* name, const QList<int>& buttons, const char* extension) {
        QTest::newRow(name) << 2 << buttons << int{kDataBits} << QByteArray("24")
                            << QStringLiteral("DN4A0518 AN00000005 SN046C00 NN000014 KN%1 CN")
                                   .arg(QLatin1String(extension));
    };
    click("temperature", {kTemperature}, "020001");
    click("differential position", {kDifferential}, "000102");
    click("velocity with temperature", {kVelocity, kTemperature}, "020201");
    click("back to normal", {kDifferential, kNormal}, "000001");
}

void TestOutputSetupPage::applyWritesWhatTheSensorThenHolds()
{
    QFETCH(int, type);
    QFETCH(QList<int>, clicks);
    QFETCH(int, list);
    QFETCH(QByteArray, item);
    QFETCH(QString, frames);
    OutputSetupRig rig({.type = type});
    QVERIFY(rig.open());
    for (const int id : clicks)
        rig.click(id);
    rig.select(list, item.constData());
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.frames(), frames);
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(!rig.isEnabled(kApply));
    QStringList writes = frames.split(QLatin1Char(' '));
    writes.removeLast();
    for (const QString& write : writes)
        QCOMPARE(rig.holds({write.left(1).toStdString()}), write.left(1) + u'=' + write.mid(2));
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

    rig.sensor().setParameter('K', "000301"); // a mode that the page does not know
    QVERIFY(rig.refresh());
    QCOMPARE(rig.checkedButtons(), QList<int>({kNoExtension}));
    QVERIFY(rig.isEnabled(kOneMagnet) && rig.isEnabled(kTwoMagnets));
}

/// What the sensor does already, and what has been confirmed and written, is not asked again.
void TestOutputSetupPage::newExtensionAndModeAreAskedForOnce()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    QVERIFY(rig.open());
    rig.click(kParity);
    QVERIFY(rig.apply(QMessageBox::No).startsWith(QLatin1String("The parity extension")));
    QCOMPARE(rig.frames(), QString());
    QVERIFY(rig.apply(QMessageBox::Yes).startsWith(QLatin1String("The parity extension")));
    QCOMPARE(rig.holds("K"), QStringLiteral("K=010001"));

    rig.select(kMode, "Synchronous");
    QVERIFY(rig.apply(QMessageBox::No).startsWith(QLatin1String("In the synchronous")));
    QCOMPARE(rig.holds("D"), QStringLiteral("D=020519"));
    QVERIFY(rig.apply(QMessageBox::Yes).startsWith(QLatin1String("In the synchronous")));
    rig.select(kFormat, "Binary");
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.holds("DK"), QStringLiteral("D=080519 K=010001"));
}

void TestOutputSetupPage::skipCountIsDecimal()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    QVERIFY(rig.unlock("STEADYNOW"));
    for (const auto& [read, shown, entered, written] :
         {std::tuple("024219", "66", "", "D=004219"), std::tuple("02FF19", "255", "", "D=00FF19"),
          std::tuple("020519", "05", "", "D=000519"), std::tuple("020519", "05", "10", "D=000A19"),
          std::tuple("020519", "05", "-1a2.34", "D=007B19")}) { // only digits are taken
        rig.sensor().setParameter('D', read);
        QVERIFY(rig.refresh());
        QCOMPARE(rig.skipCountText(), QString::fromLatin1(shown));
        if (*entered)
            rig.enterSkipCount(entered);
        rig.select(kFormat, "Binary");
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.holds("D"), QString::fromLatin1(written));
    }
}

void TestOutputSetupPage::onlyTheUsersChangesEnableApply()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    QVERIFY(rig.unlock("steadynow"));
    for (const int id : {kDataBits, kFormat, kDirection, kMode, kResolution, kOneMagnet, kParity,
                         kNoExtension, kDifferential, kVelocity, kSkipCount}) {
        QVERIFY2(!rig.isEnabled(kApply), qPrintable(QString::number(id)));
        if (auto* list = rig.control<QComboBox>(id))
            QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
        else if (auto* edit = rig.control<QLineEdit>(id))
            QTest::keyClicks(edit, QStringLiteral("7"));
        else
            rig.click(id);
        QVERIFY2(rig.isEnabled(kApply), qPrintable(QString::number(id)));
        QVERIFY(rig.refresh());
    }
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.listText(kDirection), QStringLiteral("Vorwärts"));
    QVERIFY(!rig.isEnabled(kApply));
}

/// One Apply after the other, in the order of the list.
void TestOutputSetupPage::everyResolutionKeepsTheOffsetAndTheEntriesTheirLanguage()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    rig.sensor().setParameter('A', "00000100"); // with 10 counts of offset, and 2830.00 m/s
    QVERIFY(rig.open());
    QTest::keyClick(rig.control<QComboBox>(kResolution), Qt::Key_Home);
    for (const char* written : {"A=00000005 S=046C00 N=0000C8", "A=00000010 S=023600 N=000064",
                                "A=00000050 S=007133 N=000014", "A=00000100 S=003899 N=00000A",
                                "A=00000020 S=011B00 N=000032", "A=00000002 S=0B0E00 N=0001F4",
                                "A=00000001 S=161C00 N=0003E8"}) {
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.holds("ASN"), QString::fromLatin1(written));
        QTest::keyClick(rig.control<QComboBox>(kResolution), Qt::Key_Down);
    }
    for (const char* line : {"TX: [44][Set][30][32][30][35][31][39][TERM]",
                             "TX: [41][Set][30][30][30][30][30][30][30][31][TERM]",
                             "TX: [53][Set][31][36][31][43][30][30][TERM]",
                             "TX: [4E][Set][30][30][30][33][45][38][TERM]", "TX: [43][Set][TERM]"})
        QVERIFY2(rig.logged().contains(QLatin1String(line)), line);

    rig.select(kFormat, "Binary");
    rig.click(kTemperature);
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.listText(kFormat), QStringLiteral("Binär"));
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.holds("DAK"), QStringLiteral("D=000519 A=00000001 K=020001"));
}

void TestOutputSetupPage::passwordUnlocksTheSkipCount()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    for (const auto& [password, key, right] :
         {std::tuple("STEADYNOW", Qt::Key_Escape, false), std::tuple("", Qt::Key_Return, false),
          std::tuple("STEADY", Qt::Key_Return, false),
          std::tuple("sTeadyNow", Qt::Key_Return, true),
          std::tuple("wrong", Qt::Key_Return, true)}) { // once is enough
        QString message;
        const ModalAnswer<QMessageBox> answer([&message](QMessageBox& box) {
            message = box.text();
            box.accept();
        });
        QVERIFY(rig.unlock(password, key));
        QCOMPARE(rig.isEnabled(kSkipCount), right);
        const bool accepted = key == Qt::Key_Escape || password == QByteArray("sTeadyNow");
        QCOMPARE(message, accepted ? QString() : QStringLiteral("The password is wrong."));
    }
    QVERIFY(rig.choosePage(0));
    QVERIFY(rig.showPage());
    QVERIFY(rig.isEnabled(kSkipCount));
}

void TestOutputSetupPage::directionBringsItsOffset()
{
    OutputSetupRig rig({.type = 0});
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

void TestOutputSetupPage::abandonedDirectionKeepsTheOffset()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    {
        const ModalAnswer<CalculateOffsetDialog> cancel([](auto& dialog) { dialog.reject(); });
        QCOMPARE(rig.apply(), QString());
        QVERIFY(cancel.wasShown());
    }
    QVERIFY(rig.applyWithOffset("50.8.1").startsWith(QLatin1String("The sensor cannot hold")));
    rig.click(kParity); // refused after the offset is known
    QVERIFY(rig.applyWithOffset("50.8", QMessageBox::No).startsWith(QLatin1String("The parity")));
    QCOMPARE(rig.frames(), QString());

    rig.click(kNoExtension);
    rig.select(kDirection, "Forward");
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=020519 N=00000A"));
}

void TestOutputSetupPage::refreshAndReturnGiveUpTheEntries()
{
    OutputSetupRig rig({.type = 0});
    rig.sensor().setParameter('N', "FFFFF6");
    QVERIFY(rig.open());
    rig.select(kFormat, "Binary");
    QVERIFY(rig.refresh());
    QCOMPARE(rig.listText(kFormat), QStringLiteral("Gray code"));
    rig.select(kDataBits, "25");
    QVERIFY(rig.choosePage(0));
    QVERIFY(rig.showPage());
    QCOMPARE(rig.listText(kDataBits), QStringLiteral("24"));
    rig.select(kResolution, "0.020 mm");
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.holds("DASN"), QStringLiteral("D=020018 A=00000020 S=011B00 N=FFFFFB"));
}

QTEST_MAIN(TestOutputSetupPage)
#include "TestOutputSetupPage.moc"
