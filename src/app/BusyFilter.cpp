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

bool isUsableButton(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && widget.property("usableWhileBusy").toBool();
}

/// Whether an event is a click on the open dialog's button that is usable all the same, or a key
/// that presses it; or passes the dialog's window, from where it goes on to a widget.
bool isForUsableButton(const QObject* object, const QEvent& event)
{
    const QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog)
        return false;
    if (object->isWindowType()) {
        const auto buttons = dialog->findChildren<QAbstractButton*>();
        return object == dialog->windowHandle() &&
               std::any_of(buttons.begin(), buttons.end(),
                           [](const auto* button) { return isUsableButton(*button); });
    }
    const auto* button = qobject_cast<const QAbstractButton*>(object);
    if (!button || button->window() != dialog || !isUsableButton(*button))
        return false;
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return true;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
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
    return isInput(*event) && (m_passesLeft > 0 || m_isBusy()) && !belongsToMessageBox(watched) &&
           !isForUsableButton(watched, *event);
}

} // namespace pelorin
