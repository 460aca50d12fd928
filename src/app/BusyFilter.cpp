#include "app/BusyFilter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace pelorin {

namespace {

bool isInput(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseMove: // of a drag that began before
        return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

/// Whether an object is the open message box, a part of it or a menu of its own.
bool belongsToMessageBox(const QObject* object)
{
    const auto* box = qobject_cast<const QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return false;
    if (const auto* window = qobject_cast<const QWindow*>(object))
        return window == box->windowHandle() || window->transientParent() == box->windowHandle();
    while (object && object != box)
        object = object->parent();
    return object == box;
}

bool isUsable(const QWidget& control)
{
    return control.isVisible() && control.isEnabled() &&
           control.property(BusyFilter::kUsableWhileBusy).toBool();
}

/// A control of a window that is usable all the same, null if there is none.
template <class Control>
Control* usableControl(const QObject* window)
{
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowHandle() != window)
            continue;
        const auto controls = widget->findChildren<Control*>();
        const auto found = std::find_if(controls.begin(), controls.end(),
                                        [](const Control* control) { return isUsable(*control); });
        if (found != controls.end())
            return *found;
    }
    return nullptr;
}

/// @return the button that Escape presses while the program is busy; null if it presses none
QAbstractButton* cancelButton(const QObject* window, const QEvent& event)
{
    if (event.type() != QEvent::KeyPress || !window->isWindowType())
        return nullptr;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && !key.isAutoRepeat()
               ? usableControl<QAbstractButton>(window)
               : nullptr;
}

/// Whether an event is a click on a control that is usable all the same, or a key that presses it
/// or goes on to the next one; or passes its window, from where it goes on to a control.
bool isForUsableControl(const QObject* object, const QEvent& event)
{
    if (object->isWindowType())
        return usableControl<QWidget>(object) != nullptr;
    const auto* control = qobject_cast<const QWidget*>(object);
    if (!control || !isUsable(*control))
        return false;
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return true;
    constexpr std::array kKeys{Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab,
                               Qt::Key_Backtab};
    const int key = static_cast<const QKeyEvent&>(event).key();
    return std::find(kKeys.begin(), kKeys.end(), key) != kKeys.end();
}

} // namespace

BusyFilter::BusyFilter(std::function<bool()> isBusy, QObject* parent)
    : QObject(parent), m_isBusy(std::move(isBusy))
{
    m_dropTimer.setInterval(0);
    connect(&m_dropTimer, &QTimer::timeout, this, [this] {
        if (--m_passesLeft == 0)
            m_dropTimer.stop();
    });
    qApp->installEventFilter(this);
}

BusyFilter::~BusyFilter()
{
    showCursor(false);
}

void BusyFilter::update()
{
    showCursor(m_isBusy());
    if (m_isBusy()) {
        // An open menu would wait for input for ever.
        for (QWidget* popup = QApplication::activePopupWidget(); popup && popup->close();)
            popup = QApplication::activePopupWidget();
        return;
    }
    // A click of a moment ago may still be on its way. Where timers come before the window
    // system's events in a pass of the event loop, it is delivered after the first one.
    m_passesLeft = 2;
    m_dropTimer.start();
}

void BusyFilter::showCursor(bool shown)
{
    if (shown == m_cursorShown)
        return;
    m_cursorShown = shown;
    if (shown) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

bool BusyFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (!isInput(*event) || (m_passesLeft == 0 && !m_isBusy()) || belongsToMessageBox(watched))
        return false;
    if (auto* cancel = m_isBusy() ? cancelButton(watched, *event) : nullptr) {
        cancel->click();
        return true;
    }
    return !isForUsableControl(watched, *event);
}

} // namespace pelorin
