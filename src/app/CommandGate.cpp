#include "app/CommandGate.h"

#include "platform/ui/MessageBox.h"

#include <QApplication>

namespace pelorin {

CommandGate::Scope::Scope(CommandGate& gate) : m_gate(gate)
{
    ++m_gate.m_depth;
}

CommandGate::Scope::~Scope()
{
    if (--m_gate.m_depth == 0)
        m_gate.wake();
}

CommandGate::CommandGate(QWidget& window) : m_window(window) {}

bool CommandGate::isDialogOpen()
{
    return QApplication::activeModalWidget() != nullptr;
}

void CommandGate::addNotice(const QString& text)
{
    m_notices << text;
    wake();
}

void CommandGate::wake()
{
    QMetaObject::invokeMethod(this, &CommandGate::lookAfter, Qt::QueuedConnection);
}

/// A program that is to end asks nothing more of its user.
void CommandGate::lookAfter()
{
    if (!isFree())
        return;
    if (m_notices.isEmpty() || m_closeWanted) {
        Q_EMIT freed();
        return;
    }
    const Scope scope(*this);
    (void)messageBox(&m_window, m_notices.takeFirst(), QMessageBox::Ok, QMessageBox::Information);
}

} // namespace pelorin
