#include "app/BusyFilter.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QMessageBox>
#include <QWindow>

namespace pelorin {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
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

bool belongsToMessageBox(const QObject* object)
{
    const auto* box = qobject_cast<const QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return false;
    if (const auto* widget = qobject_cast<const QWidget*>(object))
        return widget->window() == box;
    return object == box->windowHandle() || object == qApp;
}

} // namespace

BusyFilter::BusyFilter(QObject* parent) : QObject(parent)
{
    m_releaseTimer.setSingleShot(true);
    m_releaseTimer.setInterval(0);
    connect(&m_releaseTimer, &QTimer::timeout, this, &BusyFilter::end);
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
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close(); // an open menu would wait for input for ever
    QApplication::setOverrideCursor(Qt::WaitCursor);
    qApp->installEventFilter(this);
}

void BusyFilter::release()
{
    // A click made while the thread slept is still on its way; the timer comes after it.
    if (m_busy)
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
    return isInput(event->type()) && !belongsToMessageBox(watched);
}

} // namespace pelorin
