#include "app/Commands.h"
#include "backup/ReviewDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PageRig.h"
#include "platform/core/TermiosComPort.h"
#include "sensor/BackupFile.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"
#include "simulator/PtyServer.h"
#include "support/ChangedValues.h"
#include "support/FaultTasks.h"
#include "support/TestFolder.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The real main window over a real port with a sensor whose supply follows the port's RTS. Its
/// user agrees to everything, tries again for ever, and notes all that is told.
class Rig final : public MainWindowRig
{
public:
    const std::shared_ptr<FaultyLine> line = std::make_shared<FaultyLine>(sharedSensor());

    Rig() : MainWindowRig({.type = 2}, kSafeWrites)
    {
        wrapPorts([this](auto) {
            return std::make_unique<TermiosComPort>(m_server.path(), line->table());
        });
        sensor().setParameter('N', "000000"); // or its multiplier would be asked about
        m_before = held();
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { answer(); });
        m_poll.start(2);
        claim(m_server.start() == 0, "no terminal");
    }

    [[nodiscard]] bool enterFormat()
    {
        auto& bits = *page<OutputSetupPage>().getControl<QComboBox>(1004);
        for (int step = 0; step < bits.count() && bits.currentText() != u"24"; ++step)
            QTest::keyClick(&bits, step == 0 ? Qt::Key_Home : Qt::Key_Down);
        return bits.currentText() == u"24";
    }
    void apply()
    {
        m_wanted = {{'D', "4A0518"}};
        QTest::mouseClick(page<OutputSetupPage>().getControl<QPushButton>(1028), Qt::LeftButton);
        settle();
    }
    void restore()
    {
        m_wanted = {{'D', "4A0518"}, {'N', "000123"}};
        claim(
            m_folder.put(u"backup.dat"_s, BackupFile::textOf(changed(m_before, "D4A0518 N000123"))),
            "no backup file");
        (void)clickCommand(kRestoreBackupCommand);
        settle();
    }
    /// Shows the position and leaves it.
    void follow()
    {
        for (const int row : {1, 0}) {
            clickPage(row);
            settle();
            claim(line->hasFault() || (row == 1) != hasFormat(), "no stream without a fault");
        }
        claim(waitFor([this] { return window().currentPage() == 0; }), "the page is not left");
    }

    /// Compares what was told with what the sensor holds, then connects it without a fault, which
    /// puts a format back, and closes the window.
    void recover()
    {
        settle();
        const QString said = told();
        bool isHeld = true;
        for (const auto& [id, text] : m_wanted)
            isHeld = isHeld && isSameValue(id, held().at(id), text);
        const bool isVerified = said.contains(u"Verified");
        claim(isHeld || !isVerified, "verified, and not so");
        claim(line->hasFault() || m_wanted.empty() || isVerified, "not verified without a fault");
        claim(held() == m_before || !said.contains(u"othing was "), "told unchanged, and is not");
        const auto kept = formats().all();
        claim(hasFormat() || (kept.size() == 1 && kept[0].own == m_before['D']),
              "a format is lost");
        claim(hasFormat() || said.contains(u"4A0519"), "a format not told of");

        claim(waitFor([this] { return link().linkFailed() == 0; }), "the port does not come back");
        const auto isReady = [this] {
            return link().isIdentified() && window().currentPage() == 0 &&
                   statusText() == u"Ready.";
        };
        for (int attempts = 0; attempts == 0 || (attempts < 5 && !isReady()); ++attempts) {
            settle();
            (void)clickCommand(kConnectCommand);
            settle();
        }
        claim(isReady(), "the window is of no use any more");
        claim(hasFormat(), "a format not put back");
        window().close();
        claim(waitFor([this] { return !window().isVisible(); }), "the window does not close");
    }

    void claim(bool holds, const char* otherwise)
    {
        if (!holds)
            wrong << QLatin1String(otherwise) + u" ["_s + told() + u']';
    }

    QStringList wrong;

private:
    void answer()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            m_boxes << box->text();
            agree(*box, QMessageBox::Retry);
        } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
            auto* edit = files->findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(m_folder.path(u"backup.dat"_s));
            QTest::keyClick(edit, Qt::Key_Return);
        } else if (auto* review = qobject_cast<ReviewDialog*>(modal);
                   review && !window().isBusy()) {
            QTest::mouseClick(review->getControl<QPushButton>(1), Qt::LeftButton);
        }
    }
    void settle()
    {
        const auto isFree = [] { return !QApplication::activeModalWidget(); };
        claim(waitFor(isFree) && waitIdle() && waitFor(isFree) && waitIdle(), "no end");
    }
    [[nodiscard]] QString told()
    {
        return (m_boxes + QStringList{noticeText(), statusText()}).join(u'|');
    }
    [[nodiscard]] SensorValues held()
    {
        SensorValues values;
        for (const char id : sensorType(2).information)
            values[id] = QByteArray::fromStdString(sensor().parameter(id));
        return values;
    }
    /// Its own, or what was to be written.
    [[nodiscard]] bool hasFormat()
    {
        const QByteArray format = held()['D'];
        return isSameValue('D', format, m_before['D']) ||
               (m_wanted.contains('D') && isSameValue('D', format, m_wanted['D']));
    }

    PtyServer m_server{sharedSensor()};
    SensorValues m_before;
    SensorValues m_wanted;
    QStringList m_boxes;
    const TestFolder m_folder;
    QTimer m_poll;
};

const std::vector<FaultTask<Rig>> kTasks{
    {"apply", [](Rig& r) { return r.startConnected() && r.choosePage(2) && r.enterFormat(); },
     [](Rig& r) { r.apply(); }, true},
    {"restore", [](Rig& r) { return r.startConnected(); }, [](Rig& r) { r.restore(); }, true},
    {"position", [](Rig& r) { return r.startConnected(); }, [](Rig& r) { r.follow(); }, true},
};

} // namespace

/// What the window tells while calls of the port fail and the sensor misses writes.
class TestWindowFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowTellsNothingThatTheSensorDoesNotHold()
    {
        const QString wrong = tryFaults(kTasks, 5);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
};

QTEST_MAIN(TestWindowFaults)
#include "TestWindowFaults.moc"
