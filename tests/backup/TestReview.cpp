#include "app/BackupCommands.h"
#include "app/Commands.h"
#include "backup/ReviewDialog.h"
#include "platform/core/ComPortNames.h"
#include "sensor/BackupFile.h"
#include "sensor/Journal.h"
#include "sensor/SafeWriter.h"
#include "support/ChangedValues.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Fault = SimulatedFault::Kind;
using Steps = std::function<void(ReviewDialog&)>;

constexpr int kConnected = 2; ///< by the start, and by the restart

void click(ReviewDialog& review, int control)
{
    auto* button = review.getControl<QAbstractButton>(control);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
}

void clickWrite(ReviewDialog& review)
{
    click(review, 1);
}

QString labelText(const ReviewDialog& review, int control)
{
    const auto* label = review.getControl<QLabel>(control);
    return label->isVisible() ? label->text() : QString();
}

/// The visible cells of a row.
QString rowOf(const ReviewDialog& review, int row)
{
    const auto* table = review.getControl<QTableWidget>(1061);
    QStringList cells;
    for (int column = 0; column < table->columnCount(); ++column) {
        if (!table->isColumnHidden(column))
            cells << table->item(row, column)->text();
    }
    return cells.join(QLatin1Char('|'));
}

/// Uses the review, once, and keeps what the progress dialogs say meanwhile.
class ReviewUser final : public QObject
{
public:
    ReviewUser(MainWindowRig& rig, Steps steps) : m_rig(rig), m_steps(std::move(steps))
    {
        qApp->installEventFilter(this);
        connect(&m_poll, &QTimer::timeout, this, [this] {
            auto* review = qobject_cast<ReviewDialog*>(QApplication::activeModalWidget());
            if (!review || !m_steps || !m_rig.waitIdle())
                return;
            std::exchange(m_steps, {})(*review);
            if (review->isVisible())
                review->reject(); // or a failing test would never end
        });
        m_poll.start(1);
    }

    [[nodiscard]] bool wasShown() const { return !m_steps; }
    [[nodiscard]] const QStringList& said() const { return m_said; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* dialog = qobject_cast<BackupProgressDialog*>(watched);
        if (dialog && event->type() == QEvent::Show) {
            auto* text = dialog->getControl<QPlainTextEdit>(1034);
            connect(text, &QPlainTextEdit::textChanged, this, [this, text, dialog] {
                QTest::keyClick(dialog, Qt::Key_Escape); // which must end nothing
                if (!m_said.contains(text->toPlainText()))
                    m_said << text->toPlainText();
            });
        }
        return false;
    }

private:
    MainWindowRig& m_rig;
    Steps m_steps;
    QStringList m_said;
    QTimer m_poll;
};

/// The real main window with safe writes, and a backup of a sensor that is like its own but for
/// some values.
class ReviewRig : public MainWindowRig
{
public:
    explicit ReviewRig(int type = 2) : ReviewRig({.type = type}, {}) {}
    ReviewRig(const SimulatedSensor::Options& options, const QByteArray& settings)
        : MainWindowRig(options, kSafeWrites + settings)
    {
    }

    const TestFolder folder;
    QStringList boxes;
    QStringList said; ///< by the progress dialogs

    [[nodiscard]] SensorValues backup()
    {
        SensorValues values;
        for (const char id : std::string_view("DALUSPZNMJKO")) {
            if (const auto text = sensor().parameter(id); !text.empty())
                values[id] = QByteArray::fromStdString(text);
        }
        return values;
    }

    /// Chooses the command and the file, uses the review, and waits until all is over.
    /// @return whether it ends, with a review that is a well-made window if there is one
    [[nodiscard]] bool run(int command, const char* others, const Steps& steps,
                           QMessageBox::StandardButton answer = QMessageBox::Yes)
    {
        const SensorValues values = changed(backup(), others);
        const QString name = QStringLiteral("backup.dat");
        if (!folder.put(name, BackupFile::textOf(values)))
            return false;
        const FileDialogUser files(folder.path(name), {}, answer);
        const ReviewUser user(*this, steps);
        (void)frames();
        const bool ended = clickCommand(command) && end(files, user);
        boxes = files.boxes();
        said = user.said();
        return ended;
    }

    /// @return what the user is told in a box; empty if nothing
    [[nodiscard]] QString putBack(const JournalEntry& entry)
    {
        const auto begun = Journal().begin(entry);
        QString told;
        const ModalAnswer<QMessageBox> box([&told](QMessageBox& shown) {
            told = shown.text();
            shown.accept();
        });
        window().findChild<BackupCommands*>()->putBack(begun.writing->entry().id);
        return waitIdle() ? told : QStringLiteral("does not end");
    }

private:
    [[nodiscard]] bool end(const FileDialogUser& files, const ReviewUser& user)
    {
        const auto isOver = [&] {
            return (user.wasShown() || !files.boxes().isEmpty()) &&
                   !QApplication::activeModalWidget() && !window().isBusy();
        };
        return QTest::qWaitFor(isOver, 30'000) && waitIdle();
    }
};

} // namespace

class TestReview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatWasChosenAndDiffersIsWritten()
    {
        struct Row
        {
            const char* name;
            const char* saved; ///< what is not as the sensor has it
            Steps steps;
            const char* written;
            QString box{};
            QMessageBox::StandardButton answer = QMessageBox::Yes;
        };
        const auto choose = [](int radio) {
            return [radio](ReviewDialog& review) {
                const auto* write = review.getControl<QPushButton>(1);
                QVERIFY(!write->isEnabled()); // it may be another sensor
                QVERIFY(labelText(review, 1062).contains(QLatin1String("Gradient (U)")));
                click(review, radio);
                clickWrite(review);
            };
        };
        const QString odd = QStringLiteral(
            "The file holds texts that are unusual for their parameters. Write them to the sensor "
            "all the same?\nScale Factor (S): \"04xC0?\"");
        const QString equal = QStringLiteral("Nothing differs: the sensor already has all that "
                                             "would be written. Nothing was written.");
        forEachRow(
            std::vector<Row>{
                {"the same sensor", "N000123 A00000010",
                 [](ReviewDialog& review) {
                     QVERIFY(labelText(review, 1062).contains(QLatin1String("the same sensor")));
                     QVERIFY(review.getControl<QRadioButton>(1063)->isChecked());
                     QCOMPARE(rowOf(review, 9),
                              QStringLiteral("Offset (N)|00000A|000123|10 counts, 0.050 mm|"
                                             "291 counts, 2.910 mm|differs|"
                                             "000123 = 291 counts, 2.910 mm"));
                     QCOMPARE(rowOf(review, 3), QStringLiteral("Factory Text (F)|SN012345||"
                                                               "SN012345|||stays as it is"));
                     clickWrite(review);
                 },
                 "AN00000010 NN000123 EN"},
                {"another one, all parameters", "U256000 D0E0519", choose(1063),
                 "DN0A0519 UN256000 EN"},
                {"another one, output settings", "U256000 D0E0618 A00000010 N000123",
                 [choose](ReviewDialog& review) {
                     QVERIFY(labelText(review, 1066).contains(QLatin1String("position stream")));
                     choose(1064)(review);
                     QVERIFY(rowOf(review, 9).contains(
                         QLatin1String("|000005 = 5 counts, 0.050 mm: this sensor's own length")));
                 },
                 "DN4A0618 AN00000010 SN023600 NN000005 EN"},
                {"output settings refused", "U256000 D430519 L0A1000",
                 [](ReviewDialog& review) {
                     QVERIFY(labelText(review, 1065).contains(QLatin1String("Output Setup")));
                     click(review, 1064);
                     QVERIFY(!review.getControl<QPushButton>(1)->isEnabled());
                     QTest::keyClick(&review, Qt::Key_Escape);
                 },
                 ""},
                {"Enter", "N000123",
                 [](ReviewDialog& review) { QTest::keyClick(&review, Qt::Key_Return); }, ""},
                {"the stream alone", "D4E0519", [](ReviewDialog& review) { clickWrite(review); },
                 "", equal},
                {"odd text, yes", "S04xC0?", clickWrite, "SN04xC0? EN", odd},
                {"odd text, no", "S04xC0?", clickWrite, "", odd, QMessageBox::No},
            },
            [](const Row& row) {
                ReviewRig rig;
                QVERIFY(rig.startConnected() && rig.choosePage(2));
                QVERIFY(rig.run(kRestoreBackupCommand, row.saved, row.steps, row.answer));
                QCOMPARE(rig.boxes.join(QLatin1Char('|')), row.box);
                QCOMPARE(rig.writtenFrames(), QLatin1String(row.written));
                const bool writes = *row.written != '\0';
                QCOMPARE(rig.connects(), writes ? kConnected : 1);
                QCOMPARE(rig.window().currentPage(), writes ? 0 : 2);
                QCOMPARE(rig.noticeText().startsWith(QLatin1String("Verified")), writes);
            });
    }

    void whatGoesWrongIsToldAndNothingIsWrittenUnchecked()
    {
        const QString lost =
            QStringLiteral("Operation abandoned: the connection to the sensor was lost.");
        struct Row
        {
            const char* name;
            std::function<void(ReviewRig&)> before; ///< the command
            std::function<void(ReviewRig&)> inReview;
            const char* written;
            QString box;
            const char* told;
            qsizetype connects = kConnected;
            const char* status = "Ready.";
        };
        const auto none = [](ReviewRig&) {};
        const auto fail = [](Fault kind, const char* command) {
            return [=](ReviewRig& rig) { rig.sensor().setFault({kind, 3}, command); };
        };
        forEachRow(
            std::vector<Row>{
                {"link lost in the review", none,
                 [](ReviewRig& rig) {
                     const int losses = rig.link().lossCount();
                     rig.sensor().vanish();
                     QVERIFY(waitFor([&] { return rig.link().lossCount() > losses; }));
                     rig.sensor().comeBack();
                     QVERIFY(waitFor([&] { return rig.link().linkFailed() == 0; }));
                 },
                 "", lost, ""},
                {"sensor changed in the review", none,
                 [](ReviewRig& rig) { rig.sensor().setParameter('N', "000005"); }, "",
                 QStringLiteral("The sensor no longer has what the review showed: Offset (N). Read "
                                "it again."),
                 "Nothing was written.", 1},
                {"write not heard", none, fail(Fault::Deaf, "NN"), "DN4A0619 EN", QString(),
                 "Differs: the sensor does not have all"},
                {"silent after the restart", none, fail(Fault::Silent, "VA"),
                 "DN4A0619 NN000123 EN", QString(), "Not checked", 1,
                 "Not connected to the sensor."},
                {"a parameter silent", fail(Fault::Silent, "ZA"), none, "",
                 QStringLiteral("Parameter 90 could not be read from the sensor."), "", 1},
                {"format of the stream",
                 [](ReviewRig& rig) {
                     rig.sensor().setParameter('D', "4E0519");
                     QVERIFY(rig.formats()
                                 .keep({ComPortNames::stableName(rig.link().device()),
                                        rig.link().versionText(), "4A0519", "4E0519"})
                                 .isDone());
                 },
                 none, "",
                 QStringLiteral("The sensor still carries the data format for the position stream. "
                                "Nothing was saved or written. Connect the sensor again, so that "
                                "its own data format is written back."),
                 "", 1},
            },
            [](const Row& row) {
                ReviewRig rig;
                QVERIFY(rig.startConnected());
                row.before(rig);
                QVERIFY(
                    rig.run(kRestoreBackupCommand, "N000123 D4A0619", [&](ReviewDialog& review) {
                        row.inReview(rig);
                        clickWrite(review);
                    }));
                QVERIFY(waitFor([&] { return rig.connects() == row.connects; }));
                QVERIFY(rig.waitIdle());
                QCOMPARE(rig.boxes.join(QLatin1Char('|')), row.box);
                QCOMPARE(rig.writtenFrames(), QLatin1String(row.written));
                QCOMPARE(rig.noticeText().left(int(qstrlen(row.told))), QLatin1String(row.told));
                QCOMPARE(rig.window().currentPage(), 0);
                QCOMPARE(rig.statusText(), QLatin1String(row.status));
            });
    }

    /// The Connect that follows is by hand, too: what was written is never called verified.
    void restoreIsNotCheckedWhereTheUserSwitchesTheSupply()
    {
        ReviewRig rig({.supply = SimulatedSensor::Supply::ByLineSpeed},
                      "\"ManualPowerMode\"=dword:1\r\n");
        const ModalAnswer<QMessageBox> listening([](QMessageBox& box) { box.close(); }, false);
        rig.start();
        for (int frame = 0; frame < 10; ++frame)
            rig.sensor().receive("PROG\r", SimulatedSensor::Clock::now());
        QVERIFY(waitFor([&] { return rig.window().currentPage() == 0; }) && rig.waitIdle());
        QVERIFY(rig.run(kRestoreBackupCommand, "N000123", clickWrite));
        QVERIFY(waitFor([&] { return rig.connects() == kConnected; }) && rig.waitIdle());
        QCOMPARE(rig.writtenFrames(), QStringLiteral("NN000123 EN"));
        QVERIFY2(rig.noticeText().startsWith(QLatin1String("Not checked")) &&
                     rig.noticeText().contains(QLatin1String("was not restarted")),
                 qPrintable(rig.noticeText()));
        QCOMPARE(rig.window().currentPage(), 0);
    }

    void closeEndsTheReviewAndNothingIsWritten()
    {
        ReviewRig rig;
        QVERIFY(rig.startConnected());
        QVERIFY(rig.folder.put(QStringLiteral("b.dat"),
                               BackupFile::textOf(changed(rig.backup(), "N000123"))));
        const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
        const FileDialogUser files(rig.folder.path(QStringLiteral("b.dat")));
        const ReviewUser user(rig, [&rig](ReviewDialog& review) {
            rig.window().close();
            QVERIFY(!review.isVisible());
        });
        QVERIFY(rig.clickCommand(kRestoreBackupCommand));
        QVERIFY(waitFor([&] { return closed.size() == 1; }) && user.wasShown());
        QCOMPARE(rig.writtenFrames(), QString());
        QVERIFY(Journal().entries().isEmpty());
    }

    void comparisonShowsAndSavesAndWritesNothing()
    {
        ReviewRig rig(0);
        QVERIFY(rig.startConnected() && rig.choosePage(2));
        const QString csv = QStringLiteral("comparison.csv");
        QVERIFY(rig.run(kCompareCommand, "N000123 K000001 FSN000417", [&](ReviewDialog& review) {
            QVERIFY(!review.getControl<QPushButton>(1)->isVisible());
            QVERIFY(!review.getControl<QRadioButton>(1063)->isVisible());
            QCOMPARE(labelText(review, 1060), rig.folder.path(QStringLiteral("backup.dat")));
            QCOMPARE(labelText(review, 1066),
                     QStringLiteral("A backup does not hold: Firmware Version (V)"));
            QCOMPARE(rowOf(review, 9), QStringLiteral("Offset (N)|000000|000123|0 counts, 0.000 mm|"
                                                      "291 counts, 2.910 mm|differs"));
            const FileDialogUser user(rig.folder.path(csv));
            click(review, 1067);
            QVERIFY(user.wasAsked());
            click(review, 2);
        }));
        QCOMPARE(rig.boxes, QStringList());
        QCOMPARE(rig.writtenFrames(), QString());
        QCOMPARE(rig.connects(), 1);
        QCOMPARE(rig.window().currentPage(), 2);
        const auto lines = rig.folder.content(csv).split('\n');
        QCOMPARE(lines.size(), 12); // headings, ten parameters, the end
        QCOMPARE(lines[10], QByteArray("N,Offset,000000,000123,\"0 counts, 0.000 mm\","
                                       "\"291 counts, 2.910 mm\",differs\r"));
    }

    void savedFileIsShownAndAskedNothingOfTheSensor()
    {
        ReviewRig rig;
        rig.start(); // the sensor is not known yet
        QVERIFY(rig.waitIdle());
        const QString csv = QStringLiteral("file.csv");
        QVERIFY(rig.run(kOpenBackupCommand, "N000123 A0000000x", [&](ReviewDialog& review) {
            QVERIFY(!review.getControl<QPushButton>(1)->isVisible());
            QCOMPARE(rowOf(review, 1), QStringLiteral("Resolution (A)|0000000x|\"0000000x\""));
            QCOMPARE(rowOf(review, 2), QStringLiteral("Stroke Length (L)|0A1250|0A, 1250 mm"));
            const FileDialogUser user(rig.folder.path(csv));
            click(review, 1067);
            QVERIFY(user.wasAsked());
            click(review, 2);
        }));
        QCOMPARE(rig.boxes, QStringList());
        QCOMPARE(rig.frames(), QString());
        const auto lines = rig.folder.content(csv).split('\n');
        QCOMPARE(lines.size(), 14); // headings, twelve parameters, the end
        QCOMPARE(lines[3], QByteArray("L,Stroke Length,0A1250,\"0A, 1250 mm\"\r"));
    }

    void earlierStateIsPutBackFromTheNotice()
    {
        ReviewRig rig;
        QVERIFY(rig.startConnected());
        rig.sensor().setFault({Fault::Deaf}, "NN");
        QVERIFY(rig.run(kRestoreBackupCommand, "N000123 D4A0619", clickWrite));
        QCOMPARE(rig.said.join(QLatin1Char('|')),
                 QStringLiteral(
                     "Reading what the sensor has\u2026|Writing to the sensor\u2026|Restarting the "
                     "sensor\u2026|Comparing what the sensor has with what was written\u2026"));
        rig.sensor().clearFaults();
        rig.sensor().setParameter('F', "SN999999");
        (void)rig.frames();
        const ReviewUser user(rig, [&](ReviewDialog& review) {
            QVERIFY(!review.getControl<QRadioButton>(1063)->isVisible());
            QCOMPARE(labelText(review, 1062), QString());
            clickWrite(review);
        });
        QTest::mouseClick(&rig.page<QPushButton>("noticeButton2"), Qt::LeftButton);
        QVERIFY(waitFor([&] { return rig.noticeText().startsWith(QLatin1String("Verified")); }));
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.writtenFrames(), QStringLiteral("FNSN012345 DN4A0519 EN"));
        const JournalEntry entry = Journal().entries().constFirst();
        QCOMPARE(int(entry.by), int(WriteRequest::By::PutBack));
        QCOMPARE(entry.values.at('F'), QByteArray("SN999999"));
    }

    void stateOfAnotherSensorIsRefusedOrNamed()
    {
        ReviewRig rig;
        QVERIFY(rig.startConnected());
        (void)rig.frames();
        JournalEntry entry{.time = QDateTime::currentDateTimeUtc(),
                           .version = "3A0199",
                           .ssiType = 1,
                           .values = rig.backup()};
        QCOMPARE(rig.putBack(entry),
                 QStringLiteral("This state was kept of a sensor of another type. Nothing was "
                                "written."));
        entry.ssiType = 2;
        entry.values['O'] = "00003D";
        const ReviewUser user(rig, [](ReviewDialog& review) {
            QVERIFY(labelText(review, 1062)
                        .startsWith(QLatin1String("Not as it was then: Firmware Version (V), "
                                                  "Factory Value O (O).")));
            click(review, 2);
        });
        QCOMPARE(rig.putBack(entry), QString());
        QVERIFY(user.wasShown());
        entry.values['O'] = "00003D000";
        QVERIFY(rig.putBack(entry).contains(QLatin1String("Not usable: Factory Value O (O)")));
        rig.link().forgetIdentification();
        QVERIFY(rig.putBack(entry).contains(QLatin1String("not identified")));
        QCOMPARE(rig.writtenFrames(), QString());
    }
};

QTEST_MAIN(TestReview)
#include "TestReview.moc"
