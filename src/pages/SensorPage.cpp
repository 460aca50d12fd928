#include "pages/SensorPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "sensor/ClosingCommand.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace pelorin {

SensorPage::SensorPage(QString formName) : m_formName(std::move(formName)) {}

SensorPage::~SensorPage() = default;

void SensorPage::makeDialog(QWidget* parent, SensorLink& link)
{
    m_mainWindow = parent->window();
    m_link = &link;
    createFromForm(m_formName, parent);
}

void SensorPage::takeLinkReply(RequestId request, int result)
{
    if (request == 0 || request != m_outstanding)
        return;
    m_outstanding = 0;
    onLinkReply(linkWasLost() ? 0 : result);
}

void SensorPage::onLinkReply(int /*result*/) {}

bool SensorPage::releaseLink()
{
    return false;
}

void SensorPage::sensorChanged() {}

void SensorPage::linkLost() {}

bool SensorPage::isWriting() const
{
    return false;
}

void SensorPage::beginSequence()
{
    m_lossesAtStart = link().lossCount();
}

bool SensorPage::linkWasLost() const
{
    return link().lossCount() != m_lossesAtStart;
}

void SensorPage::requestConnect()
{
    m_outstanding = link().requestConnect();
}

void SensorPage::requestPosition()
{
    m_outstanding = link().requestPosition();
}

void SensorPage::requestRead(char id)
{
    m_outstanding = link().requestRead(id);
}

void SensorPage::requestWrite(char id, const QByteArray& value)
{
    m_outstanding = link().requestWrite(id, value);
}

bool SensorPage::sendClosingCommand()
{
    m_outstanding = requestClosingCommand(link());
    return m_outstanding != 0;
}

void SensorPage::showBusy(int busy)
{
    post(WM_BUSY, static_cast<std::uintptr_t>(busy));
}

void SensorPage::postStatusText()
{
    post(WM_STATUS_TEXT, reinterpret_cast<std::uintptr_t>(&m_statusText));
}

void SensorPage::postLinkResult(int result)
{
    post(WM_LINK_STATE, static_cast<std::uintptr_t>(result));
}

void SensorPage::setStatusText(int stringNumber, const QStringList& arguments)
{
    m_statusString = stringNumber;
    m_statusArguments = arguments;
    renderStatusText();
    if (!m_statusText.isNull())
        postStatusText();
}

void SensorPage::clearStatusText()
{
    m_statusString = 0;
    renderStatusText();
    postStatusText();
}

QString SensorPage::parameterArgument(char id)
{
    return QString::number(static_cast<unsigned char>(id));
}

void SensorPage::renderStatusText()
{
    m_statusText = languageString(m_statusString);
    if (m_statusArguments.size() == 1) {
        m_statusText = m_statusText.arg(m_statusArguments[0]);
    } else if (m_statusArguments.size() == 2) {
        m_statusText = m_statusText.arg(m_statusArguments[0], m_statusArguments[1]);
    }
}

void SensorPage::post(int message, std::uintptr_t wParam)
{
    if (m_mainWindow)
        QCoreApplication::postEvent(m_mainWindow, new WindowMessage(message, wParam));
}

int SensorPage::comboSelectedData(const QComboBox& combo)
{
    return combo.currentIndex() < 0 ? -1 : combo.currentData().toInt();
}

bool SensorPage::selectComboByData(QComboBox& combo, int data)
{
    const int index = combo.findData(data);
    if (index >= 0)
        combo.setCurrentIndex(index);
    return index >= 0;
}

void SensorPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        renderStatusText();
    BaseDialog::changeEvent(event);
}

} // namespace pelorin
