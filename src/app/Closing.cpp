#include "app/Closing.h"

#include "app/CommandGate.h"
#include "app/ConnectionSupervisor.h"
#include "app/PagePane.h"
#include "pages/SensorPage.h"
#include "sensor/SequenceRunner.h"

#include <QApplication>

#include <utility>

namespace pelorin {

Closing::Closing(QWidget& window, Shared shared)
    : QObject(&window), m_window(window), m_shared(std::move(shared))
{
}

void Closing::askFirst(const QString& reason, const std::function<void()>& stayed)
{
    QMetaObject::invokeMethod(
        this, [this, reason, stayed] { ask(reason, stayed); }, Qt::QueuedConnection);
}

void Closing::ask(const QString& reason, const std::function<void()>& stayed)
{
    CommandGate& gate = m_shared.gate;
    if (gate.isCloseWanted())
        return;
    if (!CommandGate::isDialogOpen() &&
        m_shared.pages.mayDiscard(gate, PagePane::Leaving::Window, reason)) {
        m_window.close();
    } else if (!gate.isCloseWanted()) { // nor during the question
        stayed();
    }
}

void Closing::goOn()
{
    if (isDone())
        return;
    if (CommandGate::isDialogOpen())
        endDialogs();
    shutDown();
}

void Closing::goOnSoon()
{
    if (m_shared.gate.isCloseWanted())
        QMetaObject::invokeMethod(this, &Closing::goOn, Qt::QueuedConnection);
}

/// They may be open one over the other.
void Closing::endDialogs()
{
    QWidget* dialog = QApplication::activeModalWidget();
    while (dialog && dialog->close())
        dialog = QApplication::activeModalWidget();
}

void Closing::enter(Stage stage)
{
    m_stage = stage;
    QMetaObject::invokeMethod(this, &Closing::shutDown, Qt::QueuedConnection);
}

/// The plan that runs is brought to its end also while a dialog waits for it. The supply goes off
/// as soon as no dialog is open; the window itself waits until commands have returned.
void Closing::shutDown()
{
    if (m_stage == Stage::No) {
        m_stage = Stage::WindingDown;
        m_shared.connection.stop();
        m_shared.runner.windDown([this] { enter(Stage::WoundDown); });
    }
    if (m_stage == Stage::WoundDown && !m_shared.isDisplayUnitOpen() &&
        !CommandGate::isDialogOpen()) {
        m_stage = Stage::PoweringDown;
        if (SensorPage* page = m_shared.pages.shownPage())
            page->setNewValues();
        m_shared.connection.shutDown([this] {
            Q_EMIT poweredDown();
            enter(Stage::PoweredDown);
        });
    }
    if (m_stage == Stage::PoweredDown && m_shared.gate.isFree()) {
        m_stage = Stage::Done;
        QMetaObject::invokeMethod(&m_window, &QWidget::close, Qt::QueuedConnection);
    }
}

} // namespace pelorin
