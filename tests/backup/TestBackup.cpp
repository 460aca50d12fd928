#include "app/Commands.h"
#include "backup/BackupProgressDialog.h"
#include "pages/OutputSetupPage.h"
#include "platform/core/ComPortNames.h"
#include "sensor/BackupFile.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/FormFaults.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>

#include <string_view>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Mode = BackupProgressDialog::Mode;
using Fault = SimulatedFault::Kind;

const QString kLost = QStringLiteral("Operation abandoned: the connection to the sensor was lost.");
const QString kFile = QStringLiteral("backup.dat");
const QByteArray kMarker = "~~~PELORIN_BACKUP_FILE~~~\r\n";

/// The parameters that a sensor of a type has, as they are read and written.
std::string_view parametersOf(int type)
{
    constexpr std::string_view kAll = "DALUSPZNMJKO";
    return kAll.substr(0, type == 0 ? 8 : type == 1 ? 9 : 12);
}

/// A backup of a sensor of a type, of values that no simulated sensor starts with.
QByteArray backupOf(int type)
{
    constexpr std::pair<char, const char*> kValues[] = {
        {'D', "0200D1"}, {'A', "00000010"}, {'L', "0A0750"}, {'U', "283111"},
        {'S', "0236AA"}, {'P', "0000A5F1"}, {'Z', "0683AA"}, {'N', "000011"},
        {'M', "057DAA"}, {'J', "000002"},   {'K', "000002"}, {'O', "0000003D"}};
    SensorValues values;
    for (const auto& [id, text] : kValues) {
        if (parametersOf(type).find(id) != std::string_view::npos)
            values[id] = text;
    }
    return BackupFile::textOf(values);
}

/// Backups and restores by the menu of the real main window, in a folder of their own.
class BackupRig : public MainWindowRig
{
public:
    explicit BackupRig(int type = 2) : MainWindowRig({.type = type}) {}

    const TestFolder folder;

    /// Chooses the command and a file in its dialog, and waits until all is over.
    /// @param before what happens while the file dialog is open
    /// @param answer to questions
    /// @return the texts of the message boxes, or what went wrong with the command
    [[nodiscard]] QStringList run(Mode mode, const QString& name = kFile,
                                  const std::function<void(QFileDialog&)>& before = {},
                                  QMessageBox::StandardButton answer = QMessageBox::Yes)
    {
        const FileDialogUser user(folder.path(name), before, answer);
        (void)frames();
        if (!clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand))
            return {QStringLiteral("greyed")};
        const bool ended = QTest::qWaitFor([&] {
            return (user.wasAsked() || !user.boxes().isEmpty()) &&
                   !QApplication::activeModalWidget() && !window().isBusy();
        });
        const bool idle = waitIdle(); // what is to be told is told then
        return ended && idle ? user.boxes() : user.boxes() << QStringLiteral("does not end");
    }
    [[nodiscard]] QByteArray content() const { return folder.content(kFile); }
    [[nodiscard]] bool put(const QByteArray& content) const { return folder.put(kFile, content); }
};

} // namespace

class TestBackup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void backupReadsInOrderAndSavesByIdentifier_data();
    void backupReadsInOrderAndSavesByIdentifier();
    void oddRepliesAreReadOnceMore_data();
    void oddRepliesAreReadOnceMore();
    void restoreWritesWhatTheSensorHas_data();
    void restoreWritesWhatTheSensorHas();
    void unfitFileWritesNothing();
    void oddTextIsWrittenOnlyIfTheUserWants();
    void nothingBegins_data();
    void nothingBegins();
    void fileThatCannotBeSavedIsReportedWithPathAndReason();
    void lostLinkIsToldAndWhatWasWritten();
    void nothingAbandonsARunningDialogButAClose_data();
    void nothingAbandonsARunningDialogButAClose();
    void failureWhileTheWindowClosesOpensNoBox();
    void backupEndsThePositionStreamAndStartsItAgain();
    void backupLeavesTheShownPageAsItIs();
};

void TestBackup::backupReadsInOrderAndSavesByIdentifier_data()
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
                                     "50:0#~ :a\r\n53:046C00\r\n55:283000\r\n5A:081F32\r\n");
}

void TestBackup::backupReadsInOrderAndSavesByIdentifier()
{
    QFETCH(QString, reads);
    QFETCH(QByteArray, lines);
    const int type = QByteArray(QTest::currentDataTag()).toInt();
    BackupRig rig(type);
    if (type == 2)
        rig.sensor().setParameter('P', "0#~ :a");
    QVERIFY(rig.startConnected());
    QCOMPARE(rig.run(Mode::Backup, QStringLiteral("backup")), QStringList());
    QCOMPARE(rig.frames(), reads);
    QCOMPARE(rig.content(), kMarker + lines);
}

void TestBackup::oddRepliesAreReadOnceMore_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("disturbed once") << QByteArray() << QString() << QByteArray("53:046C00\r\n");
    QTest::newRow("twice the same") << QByteArray("04 C0?")
                                    << QStringLiteral("The backup was saved. These texts are "
                                                      "unusual for their parameters, but the "
                                                      "sensor answered each of them twice:\n"
                                                      "Scale Factor (S): \"04 C0?\"")
                                    << QByteArray("53:04 C0?\r\n");
    QTest::newRow("what no file can keep")
        << QByteArray("04\nC00")
        << QStringLiteral("Parameter 83 could not be read from the sensor.") << QByteArray();
}

void TestBackup::oddRepliesAreReadOnceMore()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, said);
    QFETCH(QByteArray, saved);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    if (text.isEmpty())
        rig.sensor().setFault({Fault::WrongByte, 2, 1}, "SA");
    else
        rig.sensor().setParameter('S', text.toStdString());
    QCOMPARE(rig.run(Mode::Backup).join(QLatin1Char('|')), said);
    QVERIFY(rig.frames().startsWith(QStringLiteral("DA AA LA UA SA SA")));
    if (saved.isEmpty())
        QCOMPARE(rig.content(), QByteArray());
    else
        QVERIFY2(rig.content().contains(saved), rig.content().constData());

    // An older file is kept.
    QVERIFY(rig.put("older"));
    rig.sensor().setFault({Fault::Silent}, "Z");
    QCOMPARE(rig.run(Mode::Backup).last(), // after "replace it?"
             saved.isEmpty() ? said
                             : QStringLiteral("Parameter 90 could not be read from the sensor."));
    QCOMPARE(rig.content(), QByteArray("older"));
}

void TestBackup::restoreWritesWhatTheSensorHas_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("missing");
    for (const auto& [from, to] : {std::pair(0, 0), {1, 1}, {2, 2}, {2, 0}})
        QTest::addRow("from type %d to type %d", from, to) << from << to << QString();
    QTest::newRow("from type 0 to type 2")
        << 0 << 2
        << "Cycle Code M (M), Factory Value J (J), Advanced Measurement Setup (K), "
           "Factory Value O (O)";
}

void TestBackup::restoreWritesWhatTheSensorHas()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, missing);
    BackupRig rig(to);
    QVERIFY(rig.startConnected());
    QVERIFY(rig.put(backupOf(from)));
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
        expected << QLatin1Char(id) + QStringLiteral("N") + QLatin1String(values.at(id));
        QCOMPARE(rig.sensor().parameter(id), values.at(id).toStdString());
    }
    expected << QStringLiteral("EN VA"); // then it is connected
    QCOMPARE(frames.left(expected.join(QLatin1Char(' ')).size()), expected.join(QLatin1Char(' ')));
    QTRY_COMPARE(rig.logged().filter(QStringLiteral("SSI Type")).size(), 2);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestBackup::unfitFileWritesNothing()
{
    BackupRig rig(0);
    QVERIFY(rig.startConnected());
    const auto with = [](const char* line, const char* other) {
        return backupOf(0).replace(line, other);
    };
    const QString unfit = QStringLiteral("The backup file does not hold every parameter that the "
                                         "connected sensor needs. Nothing was written.\n");
    const auto unusable = [&](const char* name) {
        return unfit + QStringLiteral("Not usable: ") + QLatin1String(name);
    };
    const QString noFormat = unfit + QStringLiteral("Missing: Data Format (D)");
    for (const auto& [text, message] : std::initializer_list<std::pair<QByteArray, QString>>{
             {"[Setup]\nLanguage=1\n", QStringLiteral("This is not a backup file of Pelorin.")},
             {with("44:", "4A:"), noFormat},
             {with("44:", "44="), noFormat},
             {with("44:", "44"), noFormat},
             {with("53:0236AA", "53:0236A"), unusable("Scale Factor (S)")},
             {with("50:0000A5F1", "50:0000A5F12"), unusable("Factory Text P (P)")},
             {with("55:283111", "55:28\t111"), unusable("Pulse Velocity (U)")},
             {with("50:0000A5F1", "50:0000A5\xE9\xE9"), unusable("Factory Text P (P)")}}) {
        QVERIFY(rig.put(text));
        const QStringList said = rig.run(Mode::Restore);
        QCOMPARE(said, QStringList(message));
        QCOMPARE(rig.frames(), QString());
    }
}

void TestBackup::oddTextIsWrittenOnlyIfTheUserWants()
{
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        BackupRig rig(0);
        QVERIFY(rig.startConnected());
        QVERIFY(rig.put(backupOf(0).replace("53:0236AA", "53:02 6AX")));
        QCOMPARE(rig.run(Mode::Restore, kFile, {}, answer),
                 QStringList(QStringLiteral("The file holds texts that are unusual for their "
                                            "parameters. Write them to the sensor all the same?\n"
                                            "Scale Factor (S): \"02 6AX\"")));
        QCOMPARE(rig.frames().contains(QStringLiteral("SN02 6AX")), answer == QMessageBox::Yes);
        QCOMPARE(rig.sensor().parameter('N'), answer == QMessageBox::Yes ? "000011" : "000000");
    }
}

void TestBackup::nothingBegins_data()
{
    using Obstacle = std::function<void(BackupRig&)>;
    QTest::addColumn<Obstacle>("before");       // the command
    QTest::addColumn<Obstacle>("inFileDialog"); // while that is open
    QTest::addColumn<QString>("backup");
    QTest::addColumn<QString>("restore");
    const Obstacle none = [](BackupRig&) {};
    QTest::newRow("not identified")
        << Obstacle([](BackupRig& rig) { rig.link().forgetIdentification(); }) << none
        << "The sensor is not identified. Connect it before you save its parameters."
        << "The sensor is not identified. Nothing was written.";
    QTest::newRow("link lost in the file dialog") << none << Obstacle([](BackupRig& rig) {
        const int losses = rig.link().lossCount();
        rig.sensor().vanish();
        QTRY_COMPARE(rig.link().lossCount(), losses + 1);
        rig.sensor().comeBack();
        QTRY_COMPARE(rig.link().linkFailed(), 0);
    }) << kLost << kLost;
    const QString streaming =
        QStringLiteral("The sensor still carries the data format for the position stream. Nothing "
                       "was saved or written. Connect the sensor again, so that its own data "
                       "format is written back.");
    QTest::newRow("the sensor's format is that of the stream") << Obstacle([](BackupRig& rig) {
        rig.sensor().setParameter('D', "4E0519");
        QVERIFY(rig.formats()
                    .keep({ComPortNames::stableName(rig.link().device()), rig.link().versionText(),
                           "4A0519", "4E0519"})
                    .isDone());
    }) << none << streaming << streaming;
}

void TestBackup::nothingBegins()
{
    QFETCH(std::function<void(BackupRig&)>, before);
    QFETCH(std::function<void(BackupRig&)>, inFileDialog);
    QFETCH(QString, backup);
    QFETCH(QString, restore);
    for (const auto& [mode, message] :
         {std::pair(Mode::Backup, backup), {Mode::Restore, restore}}) {
        BackupRig rig;
        QVERIFY(rig.startConnected());
        QVERIFY(rig.put(backupOf(2)));
        before(rig);
        QCOMPARE(rig.run(mode, kFile, [&](QFileDialog&) { inFileDialog(rig); }).last(), message);
        QVERIFY(!rig.frames().contains(QStringLiteral("AN")));
        QCOMPARE(rig.content(), backupOf(2));
    }
}

void TestBackup::fileThatCannotBeSavedIsReportedWithPathAndReason()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.put("older"));
    const QString below = kFile + QStringLiteral("/new.dat");
    QCOMPARE(rig.run(Mode::Backup, below),
             QStringList(QStringLiteral("The file %1 could not be opened (system error 20: "
                                        "Not a directory).")
                             .arg(rig.folder.path(below))));
    QCOMPARE(rig.frames(), QString());

    const FileSizeLimit limit(40);
    const QString other = QStringLiteral("new.dat");
    QCOMPARE(rig.run(Mode::Backup, other).last(),
             QStringLiteral("The file %1 could not be written: File too large. A file of this name "
                            "that was there before is unchanged.")
                 .arg(rig.folder.path(other)));
    QCOMPARE(rig.folder.names(), kFile);
}

void TestBackup::lostLinkIsToldAndWhatWasWritten()
{
    BackupRig rig(0);
    QVERIFY(rig.startConnected());
    QVERIFY(rig.put(backupOf(0)));
    rig.sensor().setFault({Fault::Vanish, 1, 1}, "UN");
    const QString message = rig.run(Mode::Restore).join(QLatin1Char('|'));
    QVERIFY2(message.startsWith(
                 QStringLiteral("Parameter 85 could not be written to the sensor.\n") + kLost +
                 QStringLiteral("\n\nParameters written before: Data Format (D), Resolution (A), "
                                "Stroke Length (L). ")),
             qPrintable(message));
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.sensor().parameter('A'), std::string("00000010")); // nothing took effect
}

void TestBackup::nothingAbandonsARunningDialogButAClose_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("message");
    QTest::newRow("backup") << Mode::Backup << "Save Backup"
                            << "Saving the sensor's parameters\u2026";
    QTest::newRow("restore") << Mode::Restore << "Restore Backup"
                             << "Restoring the sensor's parameters\u2026";
}

/// A close gives up what only reads; what has begun to write is brought to its end.
void TestBackup::nothingAbandonsARunningDialogButAClose()
{
    QFETCH(Mode, mode);
    QFETCH(QString, title);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    if (mode == Mode::Restore)
        QVERIFY(rig.put(backupOf(2)));

    bool checked = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto* dialog = qobject_cast<BackupProgressDialog*>(QApplication::activeModalWidget());
        if (!dialog || checked || dialog->getControl<QProgressBar>(1035)->value() == 0)
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
        QVERIFY(dialog->isVisible());
        rig.window().close();
        QVERIFY(rig.window().isVisible());
    });
    watch.start(1);
    const FileDialogUser user(rig.folder.path(kFile),
                              [&](QFileDialog& dialog) { QCOMPARE(dialog.windowTitle(), title); });
    (void)rig.frames();
    QVERIFY(rig.clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand));
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(checked);
    QCOMPARE(user.boxes(), QStringList());
    QCOMPARE(rig.frames().endsWith(QLatin1String("EN")), mode == Mode::Restore);
    QCOMPARE(rig.content(), mode == Mode::Restore ? backupOf(2) : QByteArray());
}

void TestBackup::failureWhileTheWindowClosesOpensNoBox()
{
    for (const Mode mode : {Mode::Backup, Mode::Restore}) {
        BackupRig rig;
        QVERIFY(rig.startConnected());
        const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
        QVERIFY(rig.put(backupOf(2)));
        const FileDialogUser user(rig.folder.path(kFile));
        rig.sensor().setFault({Fault::Vanish}, "SN");
        rig.sensor().setFault({Fault::Silent}, "SA");
        (void)rig.frames();
        QVERIFY(
            rig.clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand));
        QVERIFY(QTest::qWaitFor([&] {
            return rig.frames().contains(QLatin1String(mode == Mode::Backup ? "UA" : "UN"));
        }));
        rig.window().close();
        QTRY_COMPARE(closed.count(), 1);
        QVERIFY(user.boxes().size() <= 1); // "replace it?" came before
    }
}

void TestBackup::backupEndsThePositionStreamAndStartsItAgain()
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
void TestBackup::backupLeavesTheShownPageAsItIs()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.choosePage(2));
    const auto& page = rig.page<OutputSetupPage>();
    QTest::keyClick(page.getControl<QComboBox>(1006), Qt::Key_Home); // binary
    QCOMPARE(rig.run(Mode::Backup), QStringList());
    QTest::mouseClick(page.getControl<QPushButton>(1028), Qt::LeftButton);
    QTRY_COMPARE(rig.sensor().parameter('D'), std::string("480519"));
    QVERIFY(rig.waitIdle());
}

QTEST_MAIN(TestBackup)
#include "TestBackup.moc"
