#include "backup/BackupRig.h"
#include "pages/OutputSetupPage.h"
#include "platform/core/MessageNumbers.h"
#include "support/FormFaults.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;

class TestBackupCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void backupReadsInOrderAndSavesByIdentifier_data();
    void backupReadsInOrderAndSavesByIdentifier();
    void restoreWritesWhatTheSensorHas_data();
    void restoreWritesWhatTheSensorHas();
    void nothingAbandonsARunningDialog_data();
    void nothingAbandonsARunningDialog();
    void backupEndsThePositionStreamAndStartsItAgain();
    void backupLeavesTheShownPageAsItIs();
};

void TestBackupCommands::backupReadsInOrderAndSavesByIdentifier_data()
{
    QTest::addColumn<QString>("reads");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("0") << "DA AA LA UA SA PA ZA NA"
                       << QByteArray("41:00000010\r\n44:020018\r\n4C:0A0500\r\n4E:000000\r\n"
                                     "50:0000A5F0\r\n53:023600\r\n55:283000\r\n5A:068332\r\n");
    QTest::newRow("1") << "DA AA LA UA SA PA ZA NA MA"
                       << QByteArray("41:00000020\r\n44:820318\r\n4C:0B0800\r\n4D:057D14\r\n"
                                     "4E:FFFFF6\r\n50:0000A6C4\r\n53:011980\r\n55:281500\r\n"
                                     "5A:057D32\r\n");
    QTest::newRow("2") << "DA AA LA UA SA PA ZA NA MA JA KA OA"
                       << QByteArray("41:00000005\r\n44:4A0519\r\n4A:000001\r\n4B:000001\r\n"
                                     "4C:0A1250\r\n4D:081F20\r\n4E:00000A\r\n4F:00003C\r\n"
                                     "50:\xE9\xFF~ :a\r\n53:046C00\r\n55:283000\r\n5A:081F32\r\n");
}

void TestBackupCommands::backupReadsInOrderAndSavesByIdentifier()
{
    QFETCH(QString, reads);
    QFETCH(QByteArray, lines);
    const int type = QByteArray(QTest::currentDataTag()).toInt();
    BackupRig rig(type);
    if (type == 2)
        rig.sensor().setParameter('P', "\xE9\xFF~ :a");
    QVERIFY(rig.startConnected());
    QCOMPARE(rig.run(Mode::Backup, QStringLiteral("backup")), QStringList());
    QCOMPARE(rig.frames(), reads);
    QCOMPARE(rig.content(), "~~~PELORIN_BACKUP_FILE~~~\r\n" + lines);
}

void TestBackupCommands::restoreWritesWhatTheSensorHas_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("missing");
    for (int from = 0; from <= 2; ++from)
        for (int to = 0; to <= from; ++to)
            QTest::addRow("from type %d to type %d", from, to) << from << to << QString();
    QTest::newRow("from type 0 to type 1") << 0 << 1 << "M";
    QTest::newRow("from type 0 to type 2") << 0 << 2 << "M, J, K, O";
    QTest::newRow("from type 1 to type 2") << 1 << 2 << "J, K, O";
}

void TestBackupCommands::restoreWritesWhatTheSensorHas()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, missing);
    BackupRig rig(to);
    QVERIFY(rig.startConnected());
    QVERIFY(rig.folder.put(rig.file, backupOf(from)));
    const QString message = rig.run(Mode::Restore).join(QLatin1Char('|'));
    const QString frames = rig.frames();
    if (!missing.isEmpty()) {
        QCOMPARE(message,
                 QStringLiteral("The backup file does not hold every parameter that the "
                                "connected sensor needs. Nothing was written.\nMissing: ") +
                     missing);
        QCOMPARE(frames, QString());
        return;
    }
    QCOMPARE(message, QString());
    QStringList expected;
    const auto values = *BackupFile::valuesOf(backupOf(from));
    for (const char id : parametersOf(to)) {
        expected << QLatin1Char(id) + QStringLiteral("N") + QLatin1String(values[id]);
        QCOMPARE(rig.sensor().parameter(id), values[id].toStdString());
    }
    expected << QStringLiteral("EN VA"); // then it is connected
    QCOMPARE(frames.left(expected.join(QLatin1Char(' ')).size()), expected.join(QLatin1Char(' ')));
    // The sensor is connected and read afresh.
    QTRY_COMPARE(rig.logged().filter(QStringLiteral("SSI Type")).size(), 2);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestBackupCommands::nothingAbandonsARunningDialog_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("message");
    QTest::newRow("backup") << Mode::Backup << "Save Backup"
                            << "Saving the sensor's parameters…";
    QTest::newRow("restore") << Mode::Restore << "Restore Backup"
                             << "Restoring the sensor's parameters…";
}

void TestBackupCommands::nothingAbandonsARunningDialog()
{
    QFETCH(Mode, mode);
    QFETCH(QString, title);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    if (mode == Mode::Restore)
        QVERIFY(rig.folder.put(rig.file, backupOf(2)));

    bool checked = false;
    QObject context; // as early as the dialog can be seen
    connect(qApp, &QApplication::focusWindowChanged, &context, [&] {
        auto* dialog = qobject_cast<BackupProgressDialog*>(QApplication::activeModalWidget());
        if (!dialog || checked)
            return;
        checked = true;
        QCOMPARE(dialog->windowTitle(), title);
        QCOMPARE(dialog->getControl<QPlainTextEdit>(1034)->toPlainText(), message);
        QCOMPARE(dialog->getControl<QProgressBar>(1035)->maximum(), 12);
        QVERIFY(!dialog->getControl<QPushButton>(1)->isEnabled());
        QCOMPARE(formFaults(*dialog), QStringList());
        QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::keyClick(dialog, Qt::Key_Escape);
        QTest::keyClick(dialog, Qt::Key_Return);
        dialog->close();
        // An answer to a request of somebody else.
        QCoreApplication::postEvent(dialog, new WindowMessage(WM_LINK_REPLY, 0, 0, 999999));
        rig.window().close();
        QVERIFY(dialog->isVisible() && rig.window().isVisible());
    });
    QCOMPARE(rig.run(mode, rig.file,
                     [&](QFileDialog& dialog) { QCOMPARE(dialog.windowTitle(), title); }),
             QStringList());
    QVERIFY(checked);
    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(rig.content().count("\r\n"), 13);
    QVERIFY(
        rig.frames().endsWith(mode == Mode::Backup ? QLatin1String("OA") : QLatin1String("EN")));
}

void TestBackupCommands::backupEndsThePositionStreamAndStartsItAgain()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.choosePage(1));
    const auto* box = rig.window().findChild<QLabel*>(QStringLiteral("positionBox"));
    QTRY_COMPARE(box->text(), QStringLiteral("100.0"));

    QCOMPARE(rig.run(Mode::Backup), QStringList());
    QVERIFY(rig.content().contains("\r\n44:4A0519\r\n")); // its own format, not the stream's
    QTRY_COMPARE(box->text(), QStringLiteral("100.0"));
    QCOMPARE(rig.sensor().parameter('D'), std::string("4E0519"));
}

/// The sensor has only been read: what the user has chosen meanwhile can be applied.
void TestBackupCommands::backupLeavesTheShownPageAsItIs()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.choosePage(2));
    const auto& page = rig.page<OutputSetupPage>();
    QTest::keyClick(page.getControl<QComboBox>(1006), Qt::Key_Home); // binary
    QCOMPARE(rig.run(Mode::Backup), QStringList());
    const FileDialogUser answers({});
    QTest::mouseClick(page.getControl<QPushButton>(1028), Qt::LeftButton);
    QTRY_COMPARE(rig.sensor().parameter('D'), std::string("480519"));
    QVERIFY(rig.waitIdle());
}

QTEST_MAIN(TestBackupCommands)
#include "TestBackupCommands.moc"
