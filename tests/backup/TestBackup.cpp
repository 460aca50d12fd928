#include "app/Commands.h"
#include "backup/BackupProgressDialog.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

using Mode = BackupProgressDialog::Mode;

const QString kFile = u"backup.dat"_s;

/// Values that no simulated sensor starts with.
const QByteArray kBackup = "~~~PELORIN_BACKUP_FILE~~~\r\n41:00000010\r\n44:0200D1\r\n4A:000002\r\n"
                           "4B:000002\r\n4C:0A0750\r\n4D:057DAA\r\n4E:000011\r\n4F:0000003D\r\n"
                           "50:0000A5F1\r\n53:0236AA\r\n55:283111\r\n5A:0683AA\r\n";

/// Backups and restores by the menu of the real main window, in a folder of their own.
struct BackupRig : MainWindowRig
{
    explicit BackupRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Chooses the command and a file in its dialog, and waits until all is over.
    /// @param before what happens while the file dialog is open
    /// @param answer to questions
    /// @return the texts of the message boxes
    [[nodiscard]] QString run(Mode mode, const QString& name = kFile,
                              const std::function<void(QFileDialog&)>& before = {},
                              QMessageBox::StandardButton answer = QMessageBox::Yes)
    {
        (void)frames();
        const FileDialogUser user(folder.path(name), before, answer);
        const auto isOver = [&] {
            const bool begun = user.wasAsked() || !user.boxes().isEmpty();
            return begun && !QApplication::activeModalWidget() &&
                   !(window().isVisible() && window().isBusy());
        };
        const auto command = mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand;
        const bool ends = clickCommand(command) && QTest::qWaitFor(isOver, 30'000) &&
                          (!window().isVisible() || waitIdle());
        return ends ? user.boxes().join(u'|') : u"does not end"_s;
    }

    const TestFolder folder;
};

} // namespace

class TestBackup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sensorGetsAndGivesWhatItsTypeHas()
    {
        const QString reads = u"DA AA LA UA SA PA ZA NA MA JA KA OA"_s;
        const QStringList writes =
            u"DN0200D1 AN00000010 LN0A0750 UN283111 SN0236AA PN0000A5F1 ZN0683AA NN000011 "
            "MN057DAA JN000002 KN000002 ON0000003D"_s.split(u' ');
        for (const auto& [type, count] : {std::pair(0, 8), {1, 9}, {2, 12}}) {
            BackupRig rig(type);
            QVERIFY(rig.startConnected() && rig.folder.put(kFile, kBackup));
            QCOMPARE(rig.run(Mode::Restore), QString());
            QVERIFY(waitFor([&] { return rig.connects() == 2; }));
            QVERIFY(rig.waitIdle());
            const QString written = writes.first(count).join(u' ') + u" EN VA "_s; // connects
            QCOMPARE(rig.frames().left(written.size()), written);
            QCOMPARE(rig.statusText(), u"Ready."_s);

            QCOMPARE(rig.run(Mode::Backup, u"new"_s), QString());
            QCOMPARE(rig.frames(), reads.first(3 * count - 1));
            const QByteArray saved = rig.folder.content(u"new.dat"_s);
            QCOMPARE(saved.count('\n'), count + 1);
            QVERIFY2(type != 2 || saved == kBackup, saved.constData());
        }
    }

    void nothingIsSavedButAWholeBackup()
    {
        BackupRig rig;
        QVERIFY(rig.startConnected() && rig.folder.put(kFile, "older"));
        const QString below = kFile + u"/new.dat"_s;
        QCOMPARE(rig.run(Mode::Backup, below),
                 u"The file %1 could not be opened (system error 20: Not a directory)."_s.arg(
                     rig.folder.path(below)));
        QCOMPARE(rig.frames(), QString());
        const auto toldLast = [&rig] { return rig.run(Mode::Backup).section(u'|', -1); };
        rig.sensor().setParameter('S', "04\nC00");
        QCOMPARE(toldLast(), u"Parameter 83 could not be read from the sensor."_s);
        QCOMPARE(rig.folder.content(kFile), QByteArray("older"));
        rig.sensor().setParameter('S', "04 C0?");
        QCOMPARE(toldLast(),
                 languageString(strings::kSavedDoubtful) + u"\nScale Factor (S): \"04 C0?\""_s);
        QVERIFY(rig.frames().startsWith(u"DA AA LA UA SA SA PA"_s));
        QVERIFY(rig.folder.content(kFile).contains("\r\n53:04 C0?\r\n"));

        const FileSizeLimit limit(40);
        QVERIFY(rig.run(Mode::Backup, u"new"_s).contains(u"could not be written: File too"_s));
        QCOMPARE(rig.folder.names(), kFile);
    }

    void restoreWritesWhatItMayAndTellsWhatItHas()
    {
        BackupRig rig;
        QVERIFY(rig.startConnected() && rig.folder.put(kFile, "[Setup]\r\n"));
        QCOMPARE(rig.run(Mode::Restore), languageString(strings::kNoBackupFile));
        const std::tuple<const char*, const char*, QString> faults[] = {
            {"44:", "45:", u"\nMissing: Data Format (D)"_s},
            {"0236AA", "0236A", u"\nNot usable: Scale Factor (S)"_s}};
        for (const auto& [good, bad, told] : faults) {
            QVERIFY(rig.folder.put(kFile, QByteArray(kBackup).replace(good, bad)));
            QCOMPARE(rig.run(Mode::Restore), languageString(strings::kBackupUnfit) + told);
            QCOMPARE(rig.frames(), QString());
        }
        QVERIFY(rig.folder.put(kFile, QByteArray(kBackup).replace("0236AA", "02 6AX")));
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            QCOMPARE(rig.run(Mode::Restore, kFile, {}, answer),
                     languageString(strings::kWriteDoubtful) + u"\nScale Factor (S): \"02 6AX\""_s);
            QCOMPARE(rig.frames().contains(u"SN02 6AX"_s), answer == QMessageBox::Yes);
        }
        QVERIFY(rig.folder.put(kFile, kBackup));
        rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "UN");
        QCOMPARE(rig.run(Mode::Restore).section(u". "_s, 0, 0),
                 u"Parameter 85 could not be written to the sensor.\n"_s +
                     languageString(strings::kLinkLost) +
                     u"\n\nParameters written before: Data Format (D), Resolution (A), "
                     "Stroke Length (L)"_s);
    }

    void nothingBeginsWithoutTheSensorAsItWas()
    {
        BackupRig rig;
        QVERIFY(rig.startConnected() && rig.folder.put(kFile, kBackup));
        const auto loseLink = [&rig](QFileDialog&) {
            rig.sensor().vanish();
            QVERIFY(waitFor([&] { return rig.link().lossCount() == 1; }));
            rig.sensor().comeBack();
            QVERIFY(waitFor([&] { return rig.link().linkFailed() == 0; }));
        };
        QCOMPARE(rig.run(Mode::Restore, kFile, loseLink), languageString(strings::kLinkLost));
        QVERIFY(waitFor([&] { return rig.connects() == 2; }));
        QVERIFY(rig.waitIdle()); // it is connected again

        rig.sensor().setParameter('D', "4E0519");
        const QString device = ComPortNames::stableName(rig.link().device());
        QVERIFY(
            rig.formats().keep({device, rig.link().versionText(), "4A0519", "4E0519"}).isDone());
        for (const Mode mode : {Mode::Backup, Mode::Restore}) {
            const QString told = rig.run(mode);
            QCOMPARE(told.section(u'|', -1), languageString(strings::kStreamingFormat));
        }
        rig.sensor().setParameter('D', "4A0519"); // has it again
        QCOMPARE(rig.run(Mode::Backup, u"own"_s), QString());
        rig.sensor().setParameter('D', "\n");
        QVERIFY(
            rig.run(Mode::Backup).endsWith(u"Parameter 68 could not be read from the sensor."_s));
        const auto forget = [&rig](QFileDialog&) { rig.link().forgetIdentification(); };
        QCOMPARE(rig.run(Mode::Backup, u"new"_s, forget), languageString(strings::kNothingSaved));
        QCOMPARE(rig.run(Mode::Backup), languageString(strings::kNothingSaved));
        QCOMPARE(rig.run(Mode::Restore), languageString(strings::kNotIdentified));
        QCOMPARE(rig.folder.content(kFile), kBackup);
        QCOMPARE(rig.sensor().parameter('A'), std::string("00000005"));
    }

    void whatOnlyReadsIsCancelledAndLeavesTheFile()
    {
        BackupRig rig;
        QVERIFY(rig.startConnected() && rig.folder.put(kFile, kBackup));
        for (const bool byKey : {false, true}) {
            const ModalAnswer<BackupProgressDialog> user([&](BackupProgressDialog& dialog) {
                auto* cancel = dialog.findChild<QPushButton*>(u"cancelButton"_s);
                const auto* bar = dialog.findChild<QProgressBar*>();
                QVERIFY(waitFor([bar] { return bar->value() > 0; }) && rig.window().isBusy());
                QVERIFY(cancel->hasFocus());
                QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab); // to the text and back
                QVERIFY(!cancel->hasFocus());
                QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
                QVERIFY(cancel->hasFocus());
                if (byKey) {
                    QTest::keyClick(dialog.windowHandle(), Qt::Key_Space);
                } else {
                    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                                      cancel->mapTo(&dialog, cancel->rect().center()));
                }
                QVERIFY(!cancel->isEnabled());
            });
            (void)rig.frames();
            QVERIFY(!rig.run(Mode::Backup, byKey ? u"new"_s : kFile)
                         .contains(u'|')); // beside whether to replace the file
            QVERIFY(user.wasShown() && !rig.frames().contains(u"OA"_s)); // which is read last
            QCOMPARE(rig.folder.names(), kFile);
            QCOMPARE(rig.folder.content(kFile), kBackup);
        }
    }

    /// A close gives up what only reads; what has begun to write is brought to its end. Nothing
    /// else ends the dialog, and a failure is told to nobody then.
    void nothingAbandonsARunningDialogButAClose()
    {
        const std::tuple<Mode, const char*, QString> rows[] = {
            {Mode::Backup, "", u"Save Backup"_s},
            {Mode::Restore, "", u"Restore Backup"_s},
            {Mode::Restore, "ON", u"Restore Backup"_s}};
        for (const auto& [mode, lostAt, title] : rows) {
            BackupRig rig;
            QVERIFY(rig.startConnected() && rig.folder.put(kFile, kBackup));
            if (*lostAt)
                rig.sensor().setFault({SimulatedFault::Kind::Vanish}, lostAt);
            const bool restores = mode == Mode::Restore;
            const auto close = [&, text = title](BackupProgressDialog& dialog) {
                const auto* bar = dialog.findChild<QProgressBar*>();
                QVERIFY(waitFor([bar] { return bar->value() > 0; }));
                QCOMPARE(bar->maximum(), restores ? 13 : 12); // with the closing one
                QCOMPARE(dialog.windowTitle(), text);
                QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
                QCOMPARE(dialog.findChild<QPushButton*>(u"cancelButton"_s)->isVisible(), !restores);
                QTest::keyClick(&dialog, Qt::Key_Escape);
                dialog.close();
                QVERIFY(dialog.isVisible());
                rig.window().close();
                QVERIFY(rig.window().isVisible());
            };
            const ModalAnswer<BackupProgressDialog> user(close);
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            QCOMPARE(rig.run(mode, restores ? kFile : u"new"_s), QString());
            QVERIFY(user.wasShown() && waitFor([&] { return closed.count() == 1; }));
            QCOMPARE(rig.frames().endsWith(u" EN"_s), restores && !*lostAt);
            QCOMPARE(rig.folder.content(kFile), kBackup);
        }
    }
};

QTEST_MAIN(TestBackup)
#include "TestBackup.moc"
