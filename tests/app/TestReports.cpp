#include "app/Commands.h"
#include "app/SupportFileDialog.h"
#include "platform/core/ComPortNames.h"
#include "sensor/Journal.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/TestFolder.h"

#include <QPlainTextEdit>
#include <QTextDocument>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// What a command that saves a file is told, and what it tells.
struct Rig : MainWindowRig
{
    const TestFolder folder{};

    /// Chooses a command and a file, or none. @return the texts of the boxes that follow
    QString save(int command, const QString& file)
    {
        const FileDialogUser user(folder.path(file), [&file](QFileDialog& dialog) {
            if (file.isEmpty())
                dialog.reject();
        });
        const auto isOver = [&] {
            return (user.wasAsked() || !user.boxes().isEmpty()) &&
                   !QApplication::activeModalWidget();
        };
        if (!clickCommand(command) || !waitFor(isOver) || !waitIdle())
            return u"does not end"_s;
        return user.boxes().join(u'|');
    }

    /// Something was written to a sensor of this version before, and verified.
    void rememberWrite(const QByteArray& factoryText)
    {
        JournalEntry entry{.time = QDateTime::currentDateTimeUtc(),
                           .device = ComPortNames::stableName(link().device()),
                           .port = kPort,
                           .version = link().versionText(),
                           .ssiType = 2,
                           .values = {{'N', "000007"}, {'F', factoryText}},
                           .written = {{'N', "00000A"}}};
        const Journal journal;
        const auto begun = journal.begin(entry);
        QVERIFY(begun.writing->finish({.kind = WriteResult::Kind::Verified}).isDone());
    }
};

} // namespace

/// The files that the program makes for others to read.
class TestReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportSaysAllThatIsKnownOfTheSensor()
    {
        Rig rig;
        QVERIFY(rig.startConnected());
        rig.rememberWrite("SN999999");
        (void)rig.frames();
        QCOMPARE(rig.save(kReportCommand, u"report"_s), QString());
        QCOMPARE(rig.frames(), u"DA AA LA FA VA UA SA PA ZA NA MA JA KA OA"_s);
        QTextDocument page;
        page.setHtml(QString::fromUtf8(rig.folder.content(u"report.html"_s)));
        const QStringList lines = page.toPlainText().split(u'\n');
        const auto after = [&lines](const QString& line) {
            return QStringList(lines.mid(lines.indexOf(line) + 1, 2)).join(u'|');
        };
        QCOMPARE(after(u"Sensor type"_s), u"2|Factory Text"_s);
        QCOMPARE(after(u"Program"_s),
                 u"Pelorin 1.06"_s + u'|' + lines[lines.indexOf(u"Program"_s) + 2]);
        QVERIFY(after(u"Port and Device"_s).startsWith(u"COM7, "_s));
        QCOMPARE(after(u"Offset (N)"_s), u"00000A|10 counts, 0.050 mm"_s);
        QCOMPARE(after(u"Cycle Code Z (Z)"_s), u"081F32|The code of a stroke length of 1250 mm."_s);
        QVERIFY(lines.contains(u"The journal has no write to this sensor."_s));

        rig.rememberWrite("<b>&%1");
        rig.sensor().setParameter('F', "<b>&%1");
        QCOMPARE(rig.save(kReportCommand, u"other.html"_s), QString());
        page.setHtml(QString::fromUtf8(rig.folder.content(u"other.html"_s)));
        QVERIFY(page.toPlainText().contains(u"<b>&%1"_s));
        QVERIFY(page.toPlainText().contains(
            u"Output Setup\nVerified: after a restart the sensor has all that was written."_s));

        QCOMPARE(rig.save(kReportCommand, u"report.pdf"_s), QString());
        const QByteArray document = rig.folder.content(u"report.pdf"_s);
        QVERIFY(document.startsWith("%PDF-") && document.contains("/Count 1\n"));
    }

    void reportNeedsASensorThatAnswers()
    {
        Rig rig;
        QVERIFY(rig.startConnected());
        for (const int command : {kReportCommand, kOpenBackupCommand})
            QCOMPARE(rig.save(command, {}), QString());
        QVERIFY(rig.folder.put(u"none.dat"_s, "text"));
        QCOMPARE(rig.save(kOpenBackupCommand, u"none.dat"_s),
                 rig.folder.path(u"none.dat"_s) + u": This is not a backup file of Pelorin."_s);
        rig.sensor().setFault({SimulatedFault::Kind::Short, 3}, "Z");
        QCOMPARE(rig.save(kReportCommand, u"report"_s),
                 u"Parameter 90 could not be read from the sensor."_s);
        QCOMPARE(rig.folder.names(), u"none.dat"_s);
    }

    void supportFileIsShownBeforeItIsSaved()
    {
        Rig rig;
        QVERIFY(rig.startConnected());
        rig.rememberWrite("SN012345");
        for (int line = 0; line < 5001; ++line)
            rig.link().commLog().append(u"TX: [56][Get][TERM]"_s);
        QString shown;
        const ModalAnswer<SupportFileDialog> answer([&](SupportFileDialog& dialog) {
            auto* edit = dialog.getControl<QPlainTextEdit>(1061);
            shown = edit->toPlainText();
            edit->setFocus();
            QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(edit, u"only this"_s);
            QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
            const FileDialogUser user(rig.folder.path(u"support"_s)); // the first was no good
            QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
        });
        QVERIFY(rig.folder.put(u"plain"_s, ""));
        QVERIFY(rig.save(kSupportFileCommand, u"plain/support"_s).contains(u"plain/support.txt"_s));
        QCOMPARE(rig.folder.content(u"support.txt"_s), QByteArray("only this"));
        for (const auto& part :
             {u"== Versions ==\nPelorin 1.06."_s, u"== Settings ==\n"_s,
              u"\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Firmware Rev Bounds]\n"_s,
              u"\nOffset (N): \"000007\"\n"_s, u"Verified: after a restart"_s,
              u"== Communications Log ==\nThe last 5000 of 50"_s, u" TX: [56][Get][TERM]\n"_s})
            QVERIFY2(shown.contains(part), qPrintable(part + u" is missing in:\n"_s + shown));
    }
};

QTEST_MAIN(TestReports)
#include "TestReports.moc"
