#include "app/Commands.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace pelorin;
using test::MainWindowRig;

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startConnectsAndShowsTheFirstPage();
    void failedConnectShowsNoPage();
};

void TestMainWindow::startConnectsAndShowsTheFirstPage()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QCOMPARE(rig.lightText(), QStringLiteral("Green: connected"));
}

void TestMainWindow::failedConnectShowsNoPage()
{
    MainWindowRig rig;
    rig.sensor().setFault({SimulatedFault::Kind::Silent});
    rig.start();
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.window().currentPage(), -1);
}

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
