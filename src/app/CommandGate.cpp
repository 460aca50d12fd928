#include "app/CommandGate.h"

#include "platform/ui/MessageBox.h"

#include <QApplication>

#include <utility>

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

void CommandGate::requestClose()
{
    m_closeWanted = true;
    for (const Notice& notice : std::exchange(m_notices, {}))
        qWarning("%s", qUtf8Printable(notice.text));
}

void CommandGate::addNotice(const Notice& notice)
{
    if (notice.text.isEmpty())
        return;
    if (m_closeWanted) { // a program that is to end asks nothing more of its user
        qWarning("%s", qUtf8Printable(notice.text));
        return;
    }
    m_notices.push_back(notice);
    wake();
}

void CommandGate::wake()
{
    QMetaObject::invokeMethod(this, &CommandGate::lookAfter, Qt::QueuedConnection);
}

void CommandGate::lookAfter()
{
    if (!isFree())
        return;
    if (m_notices.empty()) {
        Q_EMIT freed();
        return;
    }
    const Notice notice = m_notices.front();
    m_notices.erase(m_notices.begin());
    const int answer = ask(notice);
    if (notice.answered && !m_closeWanted)
        notice.answered(answer); // with the gate free: what follows may have a question of its own
}

int CommandGate::ask(const Notice& notice)
{
    const Scope scope(*this);
    if (!notice.buttons.isEmpty())
        return askWithButtons(&m_window, notice.text, notice.buttons);
    (void)messageBox(&m_window, notice.text, QMessageBox::Ok, QMessageBox::Information);
    return 0;
}

} // namespace pelorin
