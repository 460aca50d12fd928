#include "pages/RecordingDialog.h"
#include "sensor/PositionStream.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"

#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kRow = 1;
const QString kName = QStringLiteral("recording.csv");

struct Rig : MainWindowRig
{
    Rig() : MainWindowRig({.type = 2, .magnetPosition = 12.345}) {}

    [[nodiscard]] bool stream() { return startConnected() && choosePage(kRow) && canRecord(); }
    [[nodiscard]] QPushButton& recordButton() { return page<QPushButton>("recordButton"); }
    [[nodiscard]] bool canRecord()
    {
        return waitFor([this] { return recordButton().isEnabled(); });
    }
    void click(const char* button)
    {
        QTest::mouseClick(&page<QPushButton>(button), Qt::LeftButton);
    }
    [[nodiscard]] bool record()
    {
        const FileDialogUser user(folder.path(kName));
        click("recordButton");
        return user.wasAsked();
    }
    [[nodiscard]] qsizetype size() const { return folder.content(kName).size(); }
    [[nodiscard]] RecordingContent recorded() const { return recordingOf(folder.content(kName)); }

    TestFolder folder;
};

} // namespace

class TestRecording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordingHoldsWhatCameUntilThePageIsLeft()
    {
        Rig rig;
        QVERIFY(rig.stream());
        QSignalSpy frames(rig.window().findChild<PositionStream*>(), &PositionStream::frames);
        QVERIFY(rig.record());
        const qsizetype size = rig.size();
        QTRY_VERIFY(rig.size() > size + 1000); // while it goes on
        rig.sensor().setMagnetPosition(99.995);
        frames.clear();
        const auto at = [&frames] {
            return frames.isEmpty()
                       ? 0.0
                       : frames.last()[0].value<QList<PositionSample>>().value(0).millimetres;
        };
        QTRY_VERIFY(at() > 99);
        rig.clickPage(0);
        QTRY_COMPARE(rig.window().currentPage(), 0);
        const RecordingContent content = rig.recorded();
        QCOMPARE(content.badLines, 0);
        QCOMPARE(content.head.resolution, 0.005);
        QCOMPARE(content.head.sensorType, 2);
        QCOMPARE(content.head.version.toStdString(), rig.sensor().parameter('V'));
        QCOMPARE(content.points.back().millimetres, at());
        QVERIFY(!rig.recordButton().isEnabled());
    }

    void stopAndAFullDiskEndARecordingAlone()
    {
        Rig rig;
        QVERIFY(rig.stream());
        QVERIFY(rig.record());
        QCOMPARE(rig.recordButton().text(), QStringLiteral("Stop Recording"));
        rig.click("recordButton");
        QCOMPARE(rig.recordButton().text(), QStringLiteral("Record…"));
        for (const auto& [below, problem] :
             {std::pair("/x.csv", "could not be opened"), {"", "The recording "}}) {
            const FileSizeLimit limit(2000);
            const FileDialogUser user(rig.folder.path(kName) + QLatin1String(below));
            rig.click("recordButton");
            QTRY_VERIFY(user.boxes().join(u' ').contains(QLatin1String(problem)));
        }
        QVERIFY(rig.canRecord());
        QCOMPARE(rig.recordButton().text(), QStringLiteral("Record…"));
        QCOMPARE(rig.recorded().badLines, 0);
        QVERIFY(rig.recorded().points.size() > 1);
    }

    void recordingIsSeenWithoutASensor()
    {
        struct Row
        {
            const char* name;
            QByteArray text;
            QString message; ///< what it holds
            bool isShown;
        };
        const QByteArray whole = recordingHeadText({{}, 0, {}, 0.0, QDateTime::currentDateTime()}) +
                                 "0.0000,1.25\r\n0.5000,2.25\r\n";
        Rig rig;
        rig.sensor().setFault({SimulatedFault::Kind::Silent});
        rig.start();
        QVERIFY(rig.waitIdle() && rig.choosePage(kRow));
        QVERIFY(!rig.recordButton().isEnabled());
        for (const Row& row :
             {Row{"whole", whole, {}, true},
              {"damaged", whole + "1.0x\r\n", QStringLiteral("at line 10."), true},
              {"foreign", "Time,Position\r\n", QStringLiteral("line 1 "), false}}) {
            QVERIFY(rig.folder.put(kName, row.text));
            QString maximum;
            const ModalAnswer<RecordingDialog> viewer([&maximum](RecordingDialog& dialog) {
                maximum = dialog.findChild<QLabel*>(QStringLiteral("figure1841"))->text();
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            const FileDialogUser user(rig.folder.path(kName));
            rig.click("openRecordingButton");
            QCOMPARE(user.boxes().join(u' ').isEmpty(), row.message.isEmpty());
            QVERIFY2(user.boxes().join(u' ').contains(row.message), row.name);
            QCOMPARE(maximum, row.isShown ? QStringLiteral("2.2500 mm") : QString());
        }
    }
};

QTEST_MAIN(TestRecording)
#include "TestRecording.moc"
