#include "app/BusyFilter.h"

#include "platform/core/WindowMessage.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QWindow>

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

} // namespace

BusyFilter::BusyFilter(QObject* parent) : QObject(parent)
{
    m_releaseTimer.setInterval(0);
    connect(&m_releaseTimer, &QTimer::timeout, this, [this] {
        if (--m_passesLeft == 0)
            end();
    });
}

BusyFilter::~BusyFilter()
{
    end();
}

void BusyFilter::begin()
{
    m_releaseTimer.stop();
    if (m_busy)
        return;
    m_busy = true;
    // An open menu would wait for input for ever.
    for (QWidget* popup = QApplication::activePopupWidget(); popup && popup->close();)
        popup = QApplication::activePopupWidget();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    qApp->installEventFilter(this);
}

void BusyFilter::release()
{
    if (!m_busy)
        return;
    // A click made while the thread slept is still on its way. Where timers come before the
    // window system's events in a pass of the event loop, it is delivered after the first one.
    m_passesLeft = 2;
    m_releaseTimer.start();
}

void BusyFilter::end()
{
    m_releaseTimer.stop();
    if (!m_busy)
        return;
    m_busy = false;
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
}

bool BusyFilter::eventFilter(QObject* watched, QEvent* event)
{
    (void)WindowMessage::from(event); // whatever a worker has written of it
    return isInput(*event) && !belongsToMessageBox(watched);
}

} // namespace pelorin
