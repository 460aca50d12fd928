#include "app/Commands.h"
#include "support/MainWindowRig.h"

#include <QListWidget>
#include <QTest>
#include <QTextBrowser>

using namespace pelorin;
using namespace pelorin::test;

/// The keys that work wherever the focus is in the main window.
class TestShortcuts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void f5ReadsTheValuesAgain();
    void digitChoosesAPage_data();
    void digitChoosesAPage();
    void digitBeyondTheListDoesNothing();

private:
    [[nodiscard]] bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    std::unique_ptr<MainWindowRig> m_rig;
};

void TestShortcuts::initTestCase()
{
    m_rig = std::make_unique<MainWindowRig>(
        SimulatedSensor::Options{.type = 2},
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
        "\"EnableTempComp\"=dword:00000001\r\n");
    m_rig->languages().setHelpFile(1, QStringLiteral("help/pelorin_1.html"));
    QVERIFY(m_rig->startConnected());
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

/// Presses a key where the focus is, and waits until what it began has ended.
bool TestShortcuts::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    m_rig->window().activateWindow();
    if (!QTest::qWaitForWindowActive(&m_rig->window()))
        return false;
    QTest::keyClick(&m_rig->window(), key, modifiers);
    QCoreApplication::processEvents();
    return m_rig->waitIdle();
}

void TestShortcuts::f5ReadsTheValuesAgain()
{
    const auto lines = m_rig->logged().size();
    QVERIFY(press(Qt::Key_F5));
    QCOMPARE(m_rig->logged().size(), lines + 28);
}

void TestShortcuts::digitChoosesAPage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("chapter");
    int row = 0;
    for (const char* chapter :
         {"information", "position", "output", "log", "factory", "compensation"})
        QTest::newRow(chapter) << row++ << QString::fromLatin1(chapter);
}

/// F1 shows what the help says of the page.
void TestShortcuts::digitChoosesAPage()
{
    QFETCH(int, row);
    QFETCH(QString, chapter);
    QVERIFY(press(Qt::Key(Qt::Key_1 + row), Qt::ControlModifier));
    QTRY_COMPARE(m_rig->window().currentPage(), row);
    QVERIFY(m_rig->waitIdle());

    QVERIFY(press(Qt::Key_F1));
    const auto* text = m_rig->window().findChild<QTextBrowser*>(QStringLiteral("helpText"));
    QTRY_VERIFY(text && text->isVisible());
    QCOMPARE(text->source().fragment(), chapter);
    QVERIFY(text->toPlainText().size() > 1000);
    QVERIFY(text->window()->close());
}

void TestShortcuts::digitBeyondTheListDoesNothing()
{
    QVERIFY(press(Qt::Key_1, Qt::ControlModifier));
    QTRY_COMPARE(m_rig->window().currentPage(), 0);
    QVERIFY(press(Qt::Key_7, Qt::ControlModifier));
    QCOMPARE(m_rig->window().currentPage(), 0);
    QCOMPARE(m_rig->pageList().count(), 6);
}

QTEST_MAIN(TestShortcuts)
#include "TestShortcuts.moc"
