#include "backup/BackupRig.h"
#include "platform/core/MessageNumbers.h"
#include "support/FormFaults.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace pelorin;
using namespace pelorin::test;

class TestBackupCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void backupReadsInOrderAndSavesByIdentifier_data();
    void backupReadsInOrderAndSavesByIdentifier();
    void restoreWritesWhatTheSensorHas_data();
    void restoreWritesWhatTheSensorHas();
    void nothingAbandonsARunningDialog_data();
    void nothingAbandonsARunningDialog();
    void backupEndsThePositionStreamAndStartsItAgain();
    void dialogSpeaksEveryLanguageAndFitsTheSmallestScreen_data();
    void dialogSpeaksEveryLanguageAndFitsTheSmallestScreen();

private:
    [[nodiscard]] QString path(const char* name = "backup.dat") const
    {
        return m_folder->filePath(QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestBackupCommands::backupReadsInOrderAndSavesByIdentifier_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Frames>("reads");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("type 0") << 0 << Frames{"DA", "AA", "LA", "UA", "SA", "PA", "ZA", "NA"}
                            << QByteArray("41:00000010\r\n44:020018\r\n4C:0A0500\r\n"
                                          "4E:000000\r\n50:0000A5F0\r\n53:023600\r\n"
                                          "55:283000\r\n5A:068332\r\n");
    QTest::newRow("type 1") << 1 << Frames{"DA", "AA", "LA", "UA", "SA", "PA", "ZA", "NA", "MA"}
                            << QByteArray("41:00000020\r\n44:820318\r\n4C:0B0800\r\n"
                                          "4D:057D14\r\n4E:FFFFF6\r\n50:0000A6C4\r\n"
                                          "53:011980\r\n55:281500\r\n5A:057D32\r\n");
    QTest::newRow("type 2") << 2 << Frames{"DA", "AA", "LA", "UA", "SA", "PA",
                                           "ZA", "NA", "MA", "JA", "KA", "OA"}
                            << QByteArray("41:00000005\r\n44:4A0519\r\n4A:000001\r\n"
                                          "4B:000001\r\n4C:0A1250\r\n4D:081F20\r\n"
                                          "4E:00000A\r\n4F:00003C\r\n50:\xE9\xFF~ :a\r\n"
                                          "53:046C00\r\n55:283000\r\n5A:081F32\r\n");
}

void TestBackupCommands::backupReadsInOrderAndSavesByIdentifier()
{
    QFETCH(int, type);
    QFETCH(Frames, reads);
    QFETCH(QByteArray, lines);
    BackupRig rig(type);
    if (type == 2)
        rig.sensor().setParameter('P', "\xE9\xFF~ :a");
    QVERIFY(rig.startConnected());
    QCOMPARE(rig.run(Mode::Backup, path("backup")), QStringList());
    QCOMPARE(rig.fileDialogTitle(), QStringLiteral("Save Backup"));
    QCOMPARE(rig.sensor().takeReceivedFrames(), reads);
    QCOMPARE(contentOf(path("backup.dat")), "~~~PELORIN_BACKUP_FILE~~~\r\n" + lines);
}

void TestBackupCommands::restoreWritesWhatTheSensorHas_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (int from = 0; from <= 2; ++from)
        for (int to = 0; to <= 2; ++to)
            QTest::addRow("from type %d to type %d", from, to) << from << to;
}

void TestBackupCommands::restoreWritesWhatTheSensorHas()
{
    QFETCH(int, from);
    QFETCH(int, to);
    BackupRig rig(to);
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(from)));
    const QStringList messages = rig.run(Mode::Restore, path());
    QCOMPARE(rig.fileDialogTitle(), QStringLiteral("Restore Backup"));
    Frames frames = rig.sensor().takeReceivedFrames();
    if (from < to) {
        const QString missing = from == 1 ? QStringLiteral("J, K, O")
                                : to == 1 ? QStringLiteral("M")
                                          : QStringLiteral("M, J, K, O");
        QCOMPARE(messages,
                 QStringList(QStringLiteral("The backup file does not hold every parameter that "
                                            "the connected sensor needs. Nothing was written.\n"
                                            "Missing: ") +
                             missing));
        QCOMPARE(frames, Frames());
        return;
    }
    QCOMPARE(messages, QStringList());
    Frames expected;
    const auto values = *BackupFile::valuesOf(backupOf(from));
    for (const char id : kBackupParameters.substr(0, static_cast<std::size_t>(countOf(to)))) {
        expected.push_back({id, 'N'});
        expected.back() += values[id].toStdString();
        QCOMPARE(rig.sensor().parameter(id), values[id].toStdString());
    }
    expected.push_back("EN");
    frames.resize(expected.size());
    QCOMPARE(frames, expected);
    // The sensor is connected and read afresh.
    QTRY_VERIFY(rig.logged().filter(QStringLiteral("SSI Type")).size() == 2);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestBackupCommands::nothingAbandonsARunningDialog_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QString>("message");
    QTest::newRow("backup") << Mode::Backup << QStringLiteral("Saving the sensor's parameters…");
    QTest::newRow("restore") << Mode::Restore
                             << QStringLiteral("Restoring the sensor's parameters…");
}

void TestBackupCommands::nothingAbandonsARunningDialog()
{
    QFETCH(Mode, mode);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    const QByteArray before = backupOf(2);
    if (mode == Mode::Restore)
        QVERIFY(create(path(), before));

    // As early as the dialog can be seen.
    QMetaObject::Connection seen;
    bool checked = false;
    seen = connect(qApp, &QApplication::focusWindowChanged, qApp, [&] {
        auto* dialog = qobject_cast<BackupProgressDialog*>(QApplication::activeModalWidget());
        if (!dialog || checked)
            return;
        checked = true;
        QCOMPARE(dialog->getControl<QPlainTextEdit>(1034)->toPlainText(), message);
        QCOMPARE(dialog->getControl<QProgressBar>(1035)->maximum(), 12);
        QVERIFY(!dialog->getControl<QPushButton>(1)->isEnabled());
        QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::keyClick(dialog, Qt::Key_Escape);
        QTest::keyClick(dialog, Qt::Key_Return);
        dialog->close();
        dialog->reject();
        // An answer to a request of somebody else.
        QCoreApplication::postEvent(dialog, new WindowMessage(WM_LINK_REPLY, 0, 0, 999999));
        rig.window().close();
        QVERIFY(dialog->isVisible());
        QVERIFY(rig.window().isVisible());
    });
    QCOMPARE(rig.run(mode, path()), QStringList());
    disconnect(seen);
    QVERIFY(checked);
    QTRY_COMPARE(closed.count(), 1);
    if (mode == Mode::Backup)
        QCOMPARE(contentOf(path()).count("\r\n"), 13);
    else
        QCOMPARE(rig.sensor().takeReceivedFrames().back(), std::string("EN"));
}

void TestBackupCommands::backupEndsThePositionStreamAndStartsItAgain()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.choosePage(1));
    const auto* box = rig.window().findChild<QLabel*>(QStringLiteral("positionBox"));
    QTRY_COMPARE(box->text(), QStringLiteral("100.0"));

    QCOMPARE(rig.run(Mode::Backup, path()), QStringList());
    QVERIFY(contentOf(path()).contains("\r\n44:4A0519\r\n")); // its own format, not the stream's
    QCOMPARE(rig.window().currentPage(), 1);
    QTRY_COMPARE(box->text(), QStringLiteral("100.0"));
    QCOMPARE(rig.sensor().parameter('D'), std::string("4E0519"));
}

void TestBackupCommands::dialogSpeaksEveryLanguageAndFitsTheSmallestScreen_data()
{
    nothingAbandonsARunningDialog_data();
}

void TestBackupCommands::dialogSpeaksEveryLanguageAndFitsTheSmallestScreen()
{
    QFETCH(Mode, mode);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    BackupFile file(path());
    BackupProgressDialog dialog(&rig.window(), rig.link(), file, mode);
    dialog.show(); // its work begins with the next event
    for (const int code : {1, 2, 4, 8, 16}) {
        QCOMPARE(rig.languages().loadLanguage(code), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QCOMPARE(formFaults(dialog).join(QLatin1Char(';')), QString());
        QVERIFY(dialog.minimumSizeHint().width() <= 1280);
        QVERIFY(dialog.minimumSizeHint().height() <= 720);
    }
}

QTEST_MAIN(TestBackupCommands)
#include "TestBackupCommands.moc"
