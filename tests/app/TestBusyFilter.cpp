#include "app/BusyFilter.h"

#include "support/ModalAnswer.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <memory>

using namespace pelorin;
using test::ModalAnswer;

namespace {

/// Counts the input that gets through to it.
class Sink : public QWidget
{
public:
    explicit Sink(QWidget* parent) : QWidget(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_InputMethodEnabled);
        setAcceptDrops(true);
        resize(200, 100);
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
        connect(action, &QAction::triggered, this, [this] { ++received; });
        addAction(action);
        show();
    }

    void clickFromOutside()
    {
        const QPoint middle = mapTo(window(), rect().center());
        QTest::mouseClick(window()->windowHandle(), Qt::LeftButton, {}, middle);
    }

    int received = 0;

protected:
    bool event(QEvent* event) override
    {
        static const QSet<QEvent::Type> kInput{
            QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::Wheel,      QEvent::KeyPress,
            QEvent::InputMethod,      QEvent::DragEnter, QEvent::ContextMenu};
        const bool input = kInput.contains(event->type());
        received += input ? 1 : 0;
        return input || QWidget::event(event);
    }
};

template <class Event, class... Arguments>
void send(Sink& sink, Arguments... arguments)
{
    Event event(arguments...);
    QCoreApplication::sendEvent(&sink, &event);
}

using Input = void (*)(Sink&);
constexpr QPoint kPlace(5, 5);

} // namespace

class TestBusyFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 300);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_isBusy = false;
        m_busy = std::make_unique<BusyFilter>([this] { return m_isBusy; }, nullptr);
    }
    void cleanup()
    {
        m_busy.reset();
        m_window.reset();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void inputGetsNowhere_data();
    void inputGetsNowhere();
    void messageBoxCanBeAnswered();
    void openMenuIsClosedAndTheCursorWaits();
    void inputQueuedMeanwhileIsDropped();

private:
    void setBusy(bool busy)
    {
        m_isBusy = busy;
        m_busy->update();
    }

    bool m_isBusy = false;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<BusyFilter> m_busy;
};

void TestBusyFilter::inputGetsNowhere_data()
{
    QTest::addColumn<Input>("give");
    const std::pair<const char*, Input> inputs[] = {
        {"click", [](Sink& sink) { QTest::mouseClick(&sink, Qt::LeftButton); }},
        {"drag begun before",
         [](Sink& sink) {
             send<QMouseEvent>(sink, QEvent::MouseMove, kPlace, kPlace, Qt::NoButton,
                               Qt::LeftButton, Qt::KeyboardModifiers());
         }},
        {"wheel",
         [](Sink& sink) {
             send<QWheelEvent>(sink, kPlace, kPlace, QPoint(), QPoint(0, 120), Qt::NoButton,
                               Qt::KeyboardModifiers(), Qt::NoScrollPhase, false);
         }},
        {"key", [](Sink& sink) { QTest::keyClick(&sink, Qt::Key_A); }},
        {"composed text", [](Sink& sink) { send<QInputMethodEvent>(sink); }},
        {"drop",
         [](Sink& sink) {
             QMimeData data;
             send<QDragEnterEvent>(sink, kPlace, Qt::CopyAction, &data, Qt::LeftButton,
                                   Qt::KeyboardModifiers());
         }},
        {"context menu",
         [](Sink& sink) {
             send<QContextMenuEvent>(sink, QContextMenuEvent::Mouse, kPlace, kPlace);
         }},
        {"shortcut",
         [](Sink& sink) {
             QTest::keyClick(sink.window()->windowHandle(), Qt::Key_B, Qt::ControlModifier);
         }},
    };
    for (const auto& [name, give] : inputs)
        QTest::newRow(name) << give;
}

/// In the main window and in a modal dialog alike; whether it is busy is asked with each input.
void TestBusyFilter::inputGetsNowhere()
{
    QFETCH(Input, give);

    QDialog dialog(m_window.get());
    for (QWidget* parent : {m_window.get(), static_cast<QWidget*>(&dialog)}) {
        Sink sink(parent);
        if (parent == &dialog)
            dialog.open();
        sink.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(parent));
        for (const bool busy : {false, true, false}) {
            m_isBusy = busy;
            sink.received = 0;
            give(sink);
            QCoreApplication::processEvents();
            QCOMPARE(sink.received == 0, busy);
        }
    }
}

/// By a click, by Escape, by the shortcut of a button and by a menu that its text may have; what
/// is behind it gets nothing.
void TestBusyFilter::messageBoxCanBeAnswered()
{
    using Answer = void (*)(QMessageBox&);
    const Answer answers[] = {
        [](QMessageBox& box) {
            auto* button = box.button(QMessageBox::No);
            QTest::mouseClick(box.windowHandle(), Qt::LeftButton, {},
                              button->mapTo(&box, button->rect().center()));
        },
        [](QMessageBox& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Escape); },
        [](QMessageBox& box) {
            box.button(QMessageBox::No)->setText(QStringLiteral("&Leave it"));
            QTest::keyClick(box.windowHandle(), Qt::Key_L, Qt::AltModifier);
        },
        [](QMessageBox& box) {
            QMenu menu(&box);
            menu.addAction(QStringLiteral("No"), &box, [&box] { box.done(QMessageBox::No); });
            menu.popup(box.mapToGlobal(kPlace));
            QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, QPoint(20, 10));
        },
    };
    Sink behind(m_window.get());
    setBusy(true);
    for (const auto answer : answers) {
        QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("?"),
                        QMessageBox::Yes | QMessageBox::No, m_window.get());
        const ModalAnswer<QMessageBox> answered([&](QMessageBox& shown) {
            QTest::mouseClick(&behind, Qt::LeftButton);
            answer(shown);
        });
        QCOMPARE(box.exec(), int{QMessageBox::No});
        QCOMPARE(behind.received, 0);
    }
}

void TestBusyFilter::openMenuIsClosedAndTheCursorWaits()
{
    QMenu menu(m_window.get());
    QMenu* inner = menu.addMenu(QStringLiteral("More"));
    inner->addAction(QStringLiteral("Item"));
    menu.popup(m_window->mapToGlobal(kPlace));
    inner->popup(m_window->mapToGlobal(QPoint(60, 10)));
    QVERIFY(menu.isVisible() && inner->isVisible());
    setBusy(true);
    QVERIFY(!menu.isVisible() && !inner->isVisible());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    setBusy(true); // is told again
    setBusy(false);
    QVERIFY(!QGuiApplication::overrideCursor());
}

/// The user has clicked while the program was busy; when the click is delivered that is over.
/// Window systems differ in where in a pass they deliver: first, or last, behind the timers.
void TestBusyFilter::inputQueuedMeanwhileIsDropped()
{
    Sink sink(m_window.get());
    int delivered = 0;
    const auto deliver = [&] {
        ++delivered;
        sink.clickFromOutside();
    };
    setBusy(true);
    setBusy(false);
    QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
    QTimer::singleShot(0, this, deliver);
    QTRY_COMPARE(delivered, 2);
    QCOMPARE(sink.received, 0);
    QTRY_VERIFY((deliver(), sink.received > 0)); // but not for long
}

QTEST_MAIN(TestBusyFilter)
#include "TestBusyFilter.moc"
