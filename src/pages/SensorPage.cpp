#include "pages/SensorPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Strings.h"
#include "platform/core/WindowMessage.h"
#include "sensor/FailureText.h"
#include "sensor/SequenceRunner.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <utility>

namespace pelorin {

SensorPage::SensorPage(QString formName) : m_formName(std::move(formName)) {}

SensorPage::~SensorPage() = default;

void SensorPage::makeDialog(QWidget* parent, SequenceRunner& runner)
{
    m_mainWindow = parent->window();
    m_runner = &runner;
    createFromForm(m_formName, parent);
}

SensorLink& SensorPage::link() const
{
    return m_runner->link();
}

void SensorPage::showReadValue(const Reply& /*reply*/) {}

void SensorPage::planEnded(const Outcome& /*outcome*/) {}

bool SensorPage::start(Plan plan, int statusString)
{
    if (!link().hasOpened()) { // nothing was asked, so nothing has failed
        setStatusText(strings::kNotConnected);
        return false;
    }
    const bool writing =
        std::any_of(plan.begin(), plan.end(), [](const Step& step) { return step.writes(); });
    setReading(!writing);
    const bool begun = m_runner->start(
        *this, std::move(plan),
        {.reply =
             [this](const Reply& reply) {
                 showReadValue(reply);
                 postLinkResult(1);
             },
         .ended = [this, writing](const Outcome& outcome) { finish(outcome, writing); }});
    if (m_runner->isRunning(*this)) {
        setStatusText(statusString);
    } else if (!begun && m_runner->isConnectWanted()) {
        setStatusText(strings::kConnecting);
    }
    if (!begun)
        setReading(false);
    return begun;
}

void SensorPage::setReading(bool reading)
{
    if (std::exchange(m_reading, reading) != reading)
        Q_EMIT readingChanged();
}

void SensorPage::cancelReading()
{
    if (!m_reading)
        return;
    setStatusText(strings::kReadingCancelled); // the answer to what was asked may take a while
    m_runner->abandon(*this);
}

void SensorPage::finish(const Outcome& outcome, bool writing)
{
    const bool cancelled = !writing && outcome.kind == Outcome::Kind::Abandoned;
    setReading(false);
    if (outcome.isDone()) {
        setStatusText(strings::kReady);
    } else if (cancelled) {
        setStatusText(strings::kReadingCancelled);
    } else if (outcome.kind == Outcome::Kind::StreamNotEnded) {
        setStatusText(strings::kStreamNotEnded);
    } else {
        setStatusText(writing ? strings::kWriteFailed : strings::kReadFailed,
                      {parameterArgument(outcome.parameter)});
    }
    if (!cancelled)
        postLinkResult(outcome.isDone() ? 1 : 0);
    planEnded(outcome);
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
    m_statusArguments.clear();
    renderStatusText();
    postStatusText();
}

void SensorPage::renderStatusText()
{
    m_statusText = languageString(m_statusString);
    if (m_statusArguments.size() == 1)
        m_statusText = m_statusText.arg(m_statusArguments[0]);
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
