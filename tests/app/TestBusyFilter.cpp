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
#include <QTimer>
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
    }

    int received = 0;

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::InputMethod:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::ContextMenu:
            ++received;
            return true;
        default:
            return QWidget::event(event);
        }
    }
};

using Input = void (*)(Sink&);

void sendWheel(QObject& target)
{
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&target, &event);
}

void sendDrop(Sink& sink)
{
    QMimeData data;
    data.setText(QStringLiteral("text"));
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&sink, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&sink, &drop);
}

void sendContextMenu(Sink& sink)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&sink, &event);
}

void sendComposedText(Sink& sink)
{
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x"));
    QCoreApplication::sendEvent(&sink, &event);
}

void sendDrag(Sink& sink)
{
    QMouseEvent event(QEvent::MouseMove, {5, 5}, {5, 5}, {5, 5}, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&sink, &event);
}

QWindow* windowOf(const Sink& sink)
{
    return sink.window()->windowHandle();
}

QPoint middleInWindow(const Sink& sink)
{
    return sink.mapTo(sink.window(), sink.rect().center());
}

} // namespace

class TestBusyFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void inputGetsNowhere_data();
    void inputGetsNowhere();
    void messageBoxCanBeAnswered();
    void menuOfAMessageBoxCanBeUsed();
    void openMenuIsClosed();
    void stateIsOneAndLastsUntilItsReleaseHasPassed();
    void inputQueuedMeanwhileIsDropped();

private:
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<BusyFilter> m_busy;
};

void TestBusyFilter::init()
{
    m_window = std::make_unique<QWidget>();
    m_window->resize(400, 300);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_busy = std::make_unique<BusyFilter>(nullptr);
}

void TestBusyFilter::cleanup()
{
    m_busy.reset();
    m_window.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestBusyFilter::inputGetsNowhere_data()
{
    QTest::addColumn<Input>("give");
    const std::pair<const char*, Input> inputs[] = {
        {"click", [](Sink& sink) { QTest::mouseClick(&sink, Qt::LeftButton); }},
        {"drag begun before", &sendDrag},
        {"wheel", [](Sink& sink) { sendWheel(sink); }},
        {"key", [](Sink& sink) { QTest::keyClick(&sink, Qt::Key_A); }},
        {"composed text", &sendComposedText},
        {"drop", &sendDrop},
        {"context menu", &sendContextMenu},
        {"shortcut",
         [](Sink& sink) { QTest::keyClick(windowOf(sink), Qt::Key_B, Qt::ControlModifier); }},
    };
    for (const auto& [name, give] : inputs)
        QTest::newRow(name) << give;
}

/// In the main window and in a modal dialog alike; before and afterwards the input arrives.
void TestBusyFilter::inputGetsNowhere()
{
    QFETCH(Input, give);

    const auto arrives = [give](Sink& sink) {
        sink.received = 0;
        give(sink);
        QCoreApplication::processEvents();
        return sink.received > 0;
    };
    QDialog dialog(m_window.get());
    for (QWidget* parent : {m_window.get(), static_cast<QWidget*>(&dialog)}) {
        Sink sink(parent);
        if (parent == &dialog)
            dialog.open();
        sink.show();
        sink.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(parent));
        QVERIFY(arrives(sink));
        m_busy->begin();
        QVERIFY(!arrives(sink));
        m_busy->release();
        QTRY_VERIFY(!m_busy->isBusy());
        QVERIFY(arrives(sink));
    }
}

/// By a click, by Escape and by the shortcut of a button; what is behind it gets nothing.
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
    };
    Sink behind(m_window.get());
    behind.show();
    m_busy->begin();
    for (const auto answer : answers) {
        QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("?"),
                        QMessageBox::Yes | QMessageBox::No, m_window.get());
        const ModalAnswer<QMessageBox> answered([&](QMessageBox& shown) {
            QTest::mouseClick(&behind, Qt::LeftButton);
            answer(shown);
        });
        QCOMPARE(box.exec(), int{QMessageBox::No});
        QCOMPARE(behind.received, 0);
        QVERIFY(m_busy->isBusy());
    }
}

/// Desktops that let the text of a box be selected give it a menu to copy it.
void TestBusyFilter::menuOfAMessageBoxCanBeUsed()
{
    m_busy->begin();
    QMessageBox box(QMessageBox::Information, QString(), QStringLiteral("Text"), QMessageBox::Ok,
                    m_window.get());
    QMenu menu(&box);
    bool chosen = false;
    menu.addAction(QStringLiteral("Copy"), this, [&chosen] { chosen = true; });
    const ModalAnswer<QMessageBox> answered([&menu](QMessageBox& shown) {
        menu.popup(shown.mapToGlobal(QPoint(5, 5)));
        QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, QPoint(20, 10));
        shown.accept();
    });
    box.exec();
    QVERIFY(chosen);
}

void TestBusyFilter::openMenuIsClosed()
{
    QMenu menu(m_window.get());
    QMenu* inner = menu.addMenu(QStringLiteral("More"));
    inner->addAction(QStringLiteral("Item"));
    menu.popup(m_window->mapToGlobal(QPoint(10, 10)));
    inner->popup(m_window->mapToGlobal(QPoint(60, 10)));
    QVERIFY(menu.isVisible() && inner->isVisible());
    m_busy->begin();
    QVERIFY(!menu.isVisible() && !inner->isVisible());
    QVERIFY(!QApplication::activePopupWidget());
}

/// The user has clicked while the thread slept; when the click is delivered the release has been
/// asked for already. Window systems differ in where in a pass they deliver: first, or last, behind
/// the timers.
void TestBusyFilter::inputQueuedMeanwhileIsDropped()
{
    Sink sink(m_window.get());
    sink.show();
    int delivered = 0;
    const auto deliver = [&] {
        ++delivered;
        QTest::mouseClick(windowOf(sink), Qt::LeftButton, {}, middleInWindow(sink));
    };
    QTimer behindOthers;
    behindOthers.setSingleShot(true);
    connect(&behindOthers, &QTimer::timeout, this, deliver);
    m_busy->begin();
    m_busy->release();
    QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
    behindOthers.start(0);
    QTRY_VERIFY(delivered == 2 && !m_busy->isBusy());
    QCOMPARE(sink.received, 0);
}

void TestBusyFilter::stateIsOneAndLastsUntilItsReleaseHasPassed()
{
    m_busy->release(); // of nothing, which must not end what begins
    m_busy->begin();
    m_busy->release();
    m_busy->begin();
    for (int pass = 0; pass < 5; ++pass) {
        QCoreApplication::processEvents();
        QVERIFY(m_busy->isBusy());
    }
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    m_busy->begin();
    m_busy->release();
    QTRY_VERIFY(!m_busy->isBusy());
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(TestBusyFilter)
#include "TestBusyFilter.moc"
