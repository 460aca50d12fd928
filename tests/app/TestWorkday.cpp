#include "app/Commands.h"
#include "backup/ReviewDialog.h"
#include "pages/FactoryParamsPage.h"
#include "pages/OutputSetupPage.h"
#include "pages/PageRig.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "sensor/BackupFile.h"
#include "support/TestFolder.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QRadioButton>

#include <random>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The real main window with a user who agrees to everything, and notes what is told in boxes.
class Day final : public MainWindowRig
{
public:
    explicit Day(unsigned seed) : MainWindowRig({.type = 2}, kSafeWrites), m_random(seed)
    {
        // A file dialog asks within what answers it.
        QObject::connect(&m_boxPoll, &QTimer::timeout, &m_boxPoll, [this] { answerBox(); });
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { answer(); });
        m_boxPoll.start(2);
        m_poll.start(2);
    }

    /// Does a task that is drawn. @return what went wrong, null if nothing did
    [[nodiscard]] QString work()
    {
        using Task = void (Day::*)();
        static constexpr std::array<std::pair<const char*, Task>, 8> kTasks = {
            {{"output", &Day::setOutput},
             {"factory", &Day::setFactory},
             {"restore", &Day::restore},
             {"backup", &Day::save},
             {"position", &Day::follow},
             {"refresh", &Day::refresh},
             {"other sensor", &Day::changeSensor},
             {"other port", &Day::changePort}}};
        const auto& [name, task] = kTasks[draw(kTasks.size())];
        m_done << QLatin1String(name);
        m_boxes.clear();
        (this->*task)();
        return m_wrong.isEmpty() ? QString() : m_done.join(u", "_s) + u": "_s + m_wrong;
    }

private:
    [[nodiscard]] std::size_t draw(std::size_t count) { return m_random() % count; }

    void claim(bool holds, const char* otherwise)
    {
        if (!holds && m_wrong.isEmpty())
            m_wrong = QLatin1String(otherwise) + u" ["_s + m_boxes.join(u'|') + u'|' +
                      noticeText() + u'|' + statusText() + u']';
    }
    void settle()
    {
        const auto isFree = [] { return !QApplication::activeModalWidget(); };
        claim(waitFor(isFree) && waitIdle() && waitFor(isFree) && waitIdle(), "no end");
    }
    void show(int row)
    {
        clickPage(row);
        claim(waitFor([&] { return window().currentPage() == row; }), "page not shown");
        settle();
    }
    void command(int id)
    {
        claim(clickCommand(id), "command greyed");
        settle();
    }
    void expectVerified()
    {
        settle();
        claim(noticeText().startsWith(u"Verified"), "not verified");
    }

    void setOutput()
    {
        show(2);
        auto& output = page<OutputSetupPage>();
        auto& bits = *output.getControl<QComboBox>(1004);
        QTest::keyClick(&bits, bits.currentIndex() == 0 ? Qt::Key_End : Qt::Key_Home);
        const bool wide = bits.currentText() == u"25";
        QTest::mouseClick(output.getControl<QPushButton>(1028), Qt::LeftButton);
        expectVerified();
        claim(isWide() == wide, "other bits");
    }
    [[nodiscard]] bool isWide() { return sensor().parameter('D').back() == '9'; }

    void setFactory()
    {
        show(4);
        auto& list = *page<FactoryParamsPage>().getControl<QTableWidget>(1036);
        const QRect cell = list.visualItemRect(list.item(3, 1));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell.center());
        auto* editor = qobject_cast<QLineEdit*>(list.indexWidget(list.currentIndex()));
        if (!editor)
            return claim(false, "no editor");
        const std::string hundredths = std::to_string(275'000 + draw(20'000));
        const QString text = QString::fromStdString(hundredths).insert(4, u'.');
        QTest::keyClicks(editor, text);
        QTest::mouseClick(page<FactoryParamsPage>().getControl<QPushButton>(1037), Qt::LeftButton);
        expectVerified();
        claim(sensor().parameter('U') == hundredths, "another gradient");
    }
    void save()
    {
        command(kSaveBackupCommand);
        BackupFile file(m_folder.path(u"backup.dat"_s));
        claim(file.read().isDone(), "no backup");
        m_saved = file.values().value_or(SensorValues());
    }
    void restore()
    {
        if (m_saved.empty())
            save();
        m_nothing = false;
        command(kRestoreBackupCommand);
        const bool same = m_nothing || m_boxes.join(u' ').contains(u"othing differs");
        if (!same)
            expectVerified();
        for (const auto& [id, text] : m_saved)
            claim(sensor().parameter(id) == text.toStdString(), "not what was saved");
    }
    void follow()
    {
        const std::string own = sensor().parameter('D');
        show(1);
        claim(sensor().parameter('D') != own, "no stream");
        const int row = draw(2) == 0 ? 2 : 0;
        show(row);
        claim(sensor().parameter('D') == own, "another format");
    }
    void refresh()
    {
        clickRefresh();
        settle();
    }
    void changeSensor()
    {
        for (const auto& [id, text] : std::vector<std::pair<char, std::string>>{
                 {'F', "SN" + std::to_string(100'000 + draw(1000))},
                 {'U', std::to_string(275'000 + draw(20'000))},
                 {'S', "046" + std::to_string(100 + draw(800))},
                 {'D', draw(2) == 0 ? "0A0519" : "0A0518"},
                 {'A', "0000000" + std::to_string(1 + draw(2))}})
            sensor().setParameter(id, text);
        command(kConnectCommand);
        claim(link().isIdentified(), "not connected");
    }
    void changePort()
    {
        const int port = link().portNumber() == 7 ? 9 : 7;
        m_port = port;
        command(kSelectPortCommand);
        claim(link().portNumber() == port, "port not changed");
        command(kConnectCommand);
        claim(link().isIdentified(), "not connected");
    }

    void answerBox()
    {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            m_boxes << box->text();
            agree(*box, QMessageBox::Ok);
        }
    }
    void answer()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(modal)) {
            auto* edit = files->findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(m_folder.path(u"backup.dat"_s));
            QTest::keyClick(edit, Qt::Key_Return);
        } else if (auto* ports = qobject_cast<SelectPortDialog*>(modal)) {
            ports->findChild<SerialPortComboBox*>()->selectPort(m_port);
            QTest::keyClick(ports, Qt::Key_Return);
        } else if (auto* review = qobject_cast<ReviewDialog*>(modal);
                   review && !window().isBusy()) {
            auto* write = review->getControl<QPushButton>(1);
            for (auto* all : review->findChildren<QRadioButton*>().mid(0, 1))
                all->click();
            m_nothing = !write->isEnabled();
            QTest::mouseClick(m_nothing ? review->getControl<QPushButton>(2) : write,
                              Qt::LeftButton);
        }
    }

    std::mt19937 m_random;
    QStringList m_done;
    QStringList m_boxes;
    QString m_wrong;
    SensorValues m_saved;
    bool m_nothing = false; ///< differs in the last review
    int m_port = 7;
    const TestFolder m_folder;
    QTimer m_boxPoll;
    QTimer m_poll;
};

} // namespace

/// A technician's tasks in any order.
class TestWorkday : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noTaskLeavesBehindWhatHindersAnother()
    {
        for (unsigned seed = 1; seed <= 3; ++seed) {
            Day day(seed);
            QVERIFY(day.startConnected());
            for (int task = 0; task < 40; ++task) {
                const QString wrong = day.work();
                QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            }
        }
    }
};

QTEST_MAIN(TestWorkday)
#include "TestWorkday.moc"
