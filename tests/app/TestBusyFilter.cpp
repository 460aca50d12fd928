#include "app/BusyFilter.h"

#include "support/ModalAnswer.h"
#include "support/WaitFor.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr QPoint kPlace(5, 5);

/// A modal dialog of a program that may be busy. It counts the events of a type that get through to
/// it.
struct Window : QDialog
{
    Window()
    {
        setModal(true);
        setAcceptDrops(true);
        show();
        (void)QTest::qWaitForWindowActive(this);
    }
    bool event(QEvent* event) override
    {
        received += event->type() == counted ? 1 : 0;
        return event->type() == counted || QDialog::event(event);
    }
    void setBusy(bool busy)
    {
        isBusy = busy;
        filter.update();
    }

    QEvent::Type counted = QEvent::MouseButtonPress;
    int received = 0;
    bool isBusy = false;
    BusyFilter filter{[this] { return isBusy; }, nullptr};
};

} // namespace

class TestBusyFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QVERIFY(!QGuiApplication::overrideCursor()); }

    /// Whether it is busy is asked each time.
    void inputGetsNowhere()
    {
        constexpr auto left = Qt::LeftButton;
        const QMimeData data;
        QMouseEvent click(QEvent::MouseButtonPress, kPlace, kPlace, left, left, {});
        QMouseEvent drag(QEvent::MouseMove, kPlace, kPlace, Qt::NoButton, left, {});
        QWheelEvent wheel(kPlace, kPlace, {}, {0, 120}, Qt::NoButton, {}, {}, false);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {});
        QInputMethodEvent composed;
        QDragEnterEvent drop(kPlace, Qt::CopyAction, &data, left, {});
        QContextMenuEvent menu(QContextMenuEvent::Mouse, kPlace, kPlace);
        QShortcutEvent shortcut(Qt::CTRL | Qt::Key_B, 1);
        const std::vector<std::pair<const char*, QEvent*>> events = {
            {"click", &click},       {"drag begun before", &drag},
            {"wheel", &wheel},       {"key", &key},
            {"drop", &drop},         {"composed text", &composed},
            {"context menu", &menu}, {"shortcut", &shortcut}};
        Window window;
        for (const int expected : {1, 0, 1}) {
            window.isBusy = expected == 0;
            for (const auto& [name, event] : events) {
                window.counted = event->type();
                QCoreApplication::sendEvent(&window, event);
                QVERIFY2(std::exchange(window.received, 0) == expected, name);
            }
        }
    }

    /// Also by the menu of its text. What is behind it gets nothing.
    void messageBoxCanBeAnswered()
    {
        Window window;
        window.setBusy(true);
        QMessageBox box(&window);
        auto* check = new QCheckBox(u"&Never again"_s);
        box.setCheckBox(check);
        QMenu menu(&box);
        menu.addAction(u"No"_s, &box, [&box] { box.done(QMessageBox::No); });
        const ModalAnswer<QMessageBox> answer([&](QMessageBox& shown) {
            QTest::mouseClick(&window, Qt::LeftButton);
            QTest::keyClick(shown.windowHandle(), Qt::Key_N, Qt::AltModifier);
            QVERIFY(waitFor([check] { return check->isChecked(); }));
            menu.popup(shown.mapToGlobal(kPlace));
            QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, QPoint(20, 10));
        });
        QCOMPARE(box.exec(), int{QMessageBox::No});
        QCOMPARE(window.received, 0);
    }

    /// The user has clicked while the program was busy; when the click is delivered that is over.
    /// Window systems differ in where in a pass they deliver: first, or last, behind the timers.
    void menusAreClosedAndInputQueuedMeanwhileIsDropped()
    {
        Window window;
        QMenu menu(&window);
        QMenu* inner = menu.addMenu(u"More"_s);
        inner->addAction(u"Item"_s);
        menu.popup(window.mapToGlobal(kPlace));
        inner->popup(window.mapToGlobal(QPoint(60, 10)));
        QVERIFY(menu.isVisible() && inner->isVisible());
        window.setBusy(true);
        QVERIFY(!menu.isVisible() && !inner->isVisible());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        window.setBusy(true); // is told again
        window.setBusy(false);
        QVERIFY(!QGuiApplication::overrideCursor());

        int delivered = 0;
        const auto deliver = [&] {
            ++delivered;
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, kPlace);
        };
        QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
        QTimer::singleShot(0, this, deliver);
        QVERIFY(waitFor([&delivered] { return delivered == 2; }));
        QCOMPARE(window.received, 0);
        QVERIFY(waitFor([&] { return deliver(), window.received > 0; })); // but not for long
    }
};

QTEST_MAIN(TestBusyFilter)
#include "TestBusyFilter.moc"
