#include "app/Commands.h"
#include "backup/BackupFile.h"
#include "backup/BackupProgressDialog.h"
#include "platform/core/MessageNumbers.h"
#include "support/FileSizeLimit.h"
#include "support/FormFaults.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

using Frames = std::vector<std::string>;
using Mode = BackupProgressDialog::Mode;

namespace {

constexpr std::string_view kParameters = "DALUSPZNMJKO";

int countOf(int type)
{
    constexpr std::array kCounts = {8, 9, 12};
    return kCounts[static_cast<std::size_t>(type)];
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

bool create(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// A backup of a sensor of a type, of values that no simulated sensor starts with.
QByteArray backupOf(int type)
{
    BackupValues values;
    for (const char id : kParameters.substr(0, static_cast<std::size_t>(countOf(type))))
        values[id] = QByteArray("0000") + id + QByteArray::number(type);
    values['A'] = "00000010"; // a page reads it after the restore
    return BackupFile::textOf(values);
}

/// Backups and restores by the menu of the real main window.
class BackupRig : public MainWindowRig
{
public:
    explicit BackupRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Chooses a file in the file dialog of a command, and waits until all is over.
    /// @param before what happens while the file dialog is open
    /// @return the texts of the message boxes, in which Yes or OK is chosen; "?" if no dialog came
    [[nodiscard]] QStringList run(Mode mode, const QString& path,
                                  const std::function<void()>& before = {})
    {
        QStringList texts;
        bool asked = false;
        // Two timers, since a question can come while the file dialog is answered.
        QTimer boxes;
        QObject::connect(&boxes, &QTimer::timeout, &boxes, [&texts] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts << box->text();
            auto* yes = box->button(QMessageBox::Yes);
            QTest::mouseClick(yes ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        QTimer files;
        QObject::connect(&files, &QTimer::timeout, &files, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog || asked)
                return;
            asked = true;
            m_fileDialogTitle = dialog->windowTitle();
            if (before)
                before();
            auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        boxes.start(5);
        files.start(5);
        (void)sensor().takeReceivedFrames();
        if (!clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand))
            return {QStringLiteral("greyed")};
        const bool ended = QTest::qWaitFor([&] {
            return (asked || !texts.isEmpty()) && !QApplication::activeModalWidget() &&
                   !window().isBusy();
        });
        return ended ? texts : texts << QStringLiteral("does not end");
    }

    [[nodiscard]] QString fileDialogTitle() const { return m_fileDialogTitle; }

private:
    QString m_fileDialogTitle;
};

} // namespace

class TestBackupCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void backupReadsInOrderAndSavesByIdentifier_data();
    void backupReadsInOrderAndSavesByIdentifier();
    void restoreWritesWhatTheSensorHas_data();
    void restoreWritesWhatTheSensorHas();
    void unfitFileWritesNothing_data();
    void unfitFileWritesNothing();
    void withoutAnIdentifiedSensorNothingBegins();
    void linkLostDuringTheFileDialogAbandons_data();
    void linkLostDuringTheFileDialogAbandons();
    void fileThatCannotBeCreatedIsReported();
    void failedReadKeepsAnOlderFileAndLeavesANewOneEmpty_data();
    void failedReadKeepsAnOlderFileAndLeavesANewOneEmpty();
    void fullDiskIsReportedWithPathAndReason();
    void linkLostDuringARestoreNamesWhatWasWritten_data();
    void linkLostDuringARestoreNamesWhatWasWritten();
    void linkLostDuringABackupEndsIt();
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
    for (const char id : kParameters.substr(0, static_cast<std::size_t>(countOf(to)))) {
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

void TestBackupCommands::unfitFileWritesNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const QByteArray good = backupOf(0);
    const QString unfit = QStringLiteral("The backup file does not hold every parameter that the "
                                         "connected sensor needs. Nothing was written.\n");
    const QString foreign = QStringLiteral("This is not a backup file of Pelorin.");
    const auto edited = [&good](const char* before, const char* after) {
        return QByteArray(good).replace(before, after);
    };
    QTest::newRow("empty file") << QByteArray() << foreign;
    QTest::newRow("other file") << QByteArray("[Setup]\nLanguage=1\n") << foreign;
    QTest::newRow("marker alone") << good.left(27)
                                  << unfit + QStringLiteral("Missing: D, A, L, U, S, P, Z, N");
    QTest::newRow("cut in the middle")
        << good.left(good.indexOf("4E:")) << unfit + QStringLiteral("Missing: U, S, P, Z, N");
    QTest::newRow("value emptied")
        << edited("55:0000U0", "55:") << unfit + QStringLiteral("Missing: U");
    QTest::newRow("value too long")
        << edited("55:0000U0", "55:0123456789") << unfit + QStringLiteral("Not usable: U");
    QTest::newRow("control character")
        << edited("55:0000U0", "55:0000\t0") << unfit + QStringLiteral("Not usable: U");
    QTest::newRow("several") << edited("55:0000U0", "55:0000\t0")
                                    .replace("4C:0000L0\r\n", "")
                                    .replace("53:", "53:1234567890")
                             << unfit + QStringLiteral("Missing: L\nNot usable: U, S");
    QTest::newRow("last of doubled lines counts") << good + "44:0123456789\n"
                                                  << unfit + QStringLiteral("Not usable: D");
}

void TestBackupCommands::unfitFileWritesNothing()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    BackupRig rig(0);
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), text));
    QCOMPARE(rig.run(Mode::Restore, path()), QStringList(message));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
}

void TestBackupCommands::withoutAnIdentifiedSensorNothingBegins()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    rig.link().forgetIdentification();
    QCOMPARE(rig.run(Mode::Backup, path()),
             QStringList(QStringLiteral("The sensor is not identified. Connect it before you save "
                                        "its parameters.")));
    QCOMPARE(rig.run(Mode::Restore, path()),
             QStringList(QStringLiteral("The sensor is not identified. Nothing was written.")));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
    QCOMPARE(contentOf(path()), backupOf(2));
}

void TestBackupCommands::linkLostDuringTheFileDialogAbandons_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::newRow("backup") << Mode::Backup;
    QTest::newRow("restore") << Mode::Restore;
}

void TestBackupCommands::linkLostDuringTheFileDialogAbandons()
{
    QFETCH(Mode, mode);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    const QStringList texts = rig.run(mode, path(), [&rig] {
        rig.sensor().vanish();
        (void)rig.link().requestRead('D');
        QTRY_COMPARE(rig.link().lossCount(), 1);
        rig.sensor().comeBack();
        QTRY_COMPARE(rig.link().linkFailed(), 0);
    });
    QCOMPARE(texts.last(), QStringLiteral("Operation abandoned: the connection to the sensor was "
                                          "lost."));
    QCOMPARE(contentOf(path()), backupOf(2));
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    const Frames frames = rig.sensor().takeReceivedFrames();
    QVERIFY(std::none_of(frames.begin(), frames.end(),
                         [](const std::string& frame) { return frame[1] == 'N'; }));
}

void TestBackupCommands::fileThatCannotBeCreatedIsReported()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path("plain"), "older"));
    const QString below = path("plain/backup.dat");
    QCOMPARE(rig.run(Mode::Backup, below),
             QStringList(
                 QStringLiteral("The file %1 could not be opened (system error 20).").arg(below)));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
    QCOMPARE(contentOf(path("plain")), QByteArray("older"));
}

void TestBackupCommands::failedReadKeepsAnOlderFileAndLeavesANewOneEmpty_data()
{
    QTest::addColumn<bool>("silent");
    QTest::addColumn<QString>("message");
    QTest::newRow("silent sensor")
        << true << QStringLiteral("Parameter 85 could not be read from the sensor.");
    QTest::newRow("control characters")
        << false
        << QStringLiteral("Parameter U holds control characters, which a backup file cannot keep. "
                          "No backup was saved.");
}

void TestBackupCommands::failedReadKeepsAnOlderFileAndLeavesANewOneEmpty()
{
    QFETCH(bool, silent);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    if (silent)
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "U");
    else
        rig.sensor().setParameter('U', "28\n000");
    QVERIFY(create(path("older.dat"), "older"));
    QCOMPARE(rig.run(Mode::Backup, path("new.dat")), QStringList(message));
    QCOMPARE(rig.run(Mode::Backup, path("older.dat")).last(), message); // after "replace it?"
    QCOMPARE(contentOf(path("new.dat")), QByteArray());
    QCOMPARE(contentOf(path("older.dat")), QByteArray("older"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    QVERIFY(!rig.window().isBusy());
}

void TestBackupCommands::fullDiskIsReportedWithPathAndReason()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path("older.dat"), "older"));
    const FileSizeLimit limit(40);
    for (const char* name : {"new.dat", "older.dat"})
        QCOMPARE(
            rig.run(Mode::Backup, path(name)).last(),
            QStringLiteral("The file %1 could not be written: File too large").arg(path(name)));
    QCOMPARE(contentOf(path("older.dat")), QByteArray("older"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("older.dat")));
}

void TestBackupCommands::linkLostDuringARestoreNamesWhatWasWritten_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("written");
    QTest::newRow("first write") << QByteArray("DN") << int('D') << QString();
    QTest::newRow("in the middle") << QByteArray("SN") << int('S') << QStringLiteral("D, A, L, U");
    QTest::newRow("last command") << QByteArray("EN") << int('E')
                                  << QStringLiteral("D, A, L, U, S, P, Z, N, M, J, K, O");
}

void TestBackupCommands::linkLostDuringARestoreNamesWhatWasWritten()
{
    QFETCH(QByteArray, command);
    QFETCH(int, id);
    QFETCH(QString, written);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, command.toStdString());
    const QStringList texts = rig.run(Mode::Restore, path());
    QCOMPARE(texts.size(), 1);
    const QStringList lines = texts.first().split(QLatin1Char('\n'));
    QCOMPARE(lines.value(0),
             QStringLiteral("Parameter %1 could not be written to the sensor.").arg(id));
    QCOMPARE(lines.value(1), QStringLiteral("Operation abandoned: the connection to the sensor "
                                            "was lost."));
    QVERIFY(lines.value(2).startsWith(
        written.isEmpty() ? QStringLiteral("No parameter had been written before.")
                          : QStringLiteral("Parameters written before: %1. ").arg(written)));
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    if (id != 'E')
        QCOMPARE(rig.sensor().parameter('A'), std::string("00000005")); // nothing took effect
}

void TestBackupCommands::linkLostDuringABackupEndsIt()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "N");
    QCOMPARE(rig.run(Mode::Backup, path()),
             QStringList(QStringLiteral("Parameter 78 could not be read from the sensor.\n"
                                        "Operation abandoned: the connection to the sensor was "
                                        "lost.")));
    QCOMPARE(contentOf(path()), QByteArray());
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
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
