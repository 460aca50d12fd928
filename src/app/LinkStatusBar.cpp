#include "app/LinkStatusBar.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"

#include <QLabel>
#include <QResizeEvent>

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kLightPercent = 2;
constexpr int kMessagePercent = 85;
constexpr int kPortPercent = 13;
constexpr auto kBlinkPeriod = 500ms;

/// A pane whose width follows from its share of the bar, never from its text.
QLabel* makePane(QWidget* parent, const QString& name)
{
    auto* pane = new QLabel(parent);
    pane->setObjectName(name);
    pane->setTextFormat(Qt::PlainText);
    pane->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    pane->setMinimumWidth(1);
    return pane;
}

} // namespace

LinkStatusBar::LinkStatusBar(QWidget* parent)
    : QStatusBar(parent), m_linkLight(makePane(this, QStringLiteral("linkLight"))),
      m_message(makePane(this, QStringLiteral("messagePane"))),
      m_portText(makePane(this, QStringLiteral("portPane"))),
      m_entries(makePane(m_message, QStringLiteral("entriesText")))
{
    m_linkLight->setAlignment(Qt::AlignCenter);
    addWidget(m_linkLight, kLightPercent);
    addWidget(m_message, kMessagePercent);
    addWidget(m_portText, kPortPercent);
    m_blinkTimer.setInterval(Pacing::pause(kBlinkPeriod));
    connect(&m_blinkTimer, &QTimer::timeout, this, &LinkStatusBar::blink);
    translate();
}

void LinkStatusBar::setPort(int port)
{
    m_port = port;
    m_portText->setText(port == 0 ? languageString(strings::kNoPort)
                                  : languageString(strings::kPort).arg(port));
}

void LinkStatusBar::setText(const QString& text)
{
    m_messageString = 0;
    m_message->setText(text);
}

void LinkStatusBar::showString(int number)
{
    setText(languageString(number));
    m_messageString = number;
}

QString LinkStatusBar::text() const
{
    return m_message->text();
}

void LinkStatusBar::setEntryCount(int count)
{
    m_entryCount = count;
    m_entries->setText(count == 0 ? QString() : languageString(strings::kEntryCount).arg(count));
    placeEntries();
}

/// The message is cut where it would run into the number.
void LinkStatusBar::placeEntries()
{
    constexpr int kRoom = 16; // logical pixels before the port
    const int width = m_entryCount == 0 ? 0 : m_entries->sizeHint().width() + kRoom;
    m_entries->setVisible(m_entryCount != 0);
    m_entries->setGeometry(m_message->width() - width, 0, width, m_message->height());
    m_message->setContentsMargins(0, 0, width, 0);
}

void LinkStatusBar::setExplanation(std::function<QString()> explanation)
{
    m_explanation = std::move(explanation);
    showExplanation();
}

void LinkStatusBar::showExplanation()
{
    const QString text = m_explanation ? m_explanation() : QString();
    m_message->setToolTip(text);
    m_message->setAccessibleDescription(text);
}

void LinkStatusBar::setLinkState(int state)
{
    if (state == -1) {
        m_linkState = -1;
        m_blinkTimer.stop();
        showLight(Light::Gray);
    } else if (state != m_linkState) {
        m_linkState = state;
        if (state == 1) {
            m_blinkTimer.stop();
            showLight(Light::Green);
        } else {
            m_redShown = true;
            showLight(Light::Red);
            m_blinkTimer.start();
        }
    }
    describeLight();
}

void LinkStatusBar::translate()
{
    setPort(m_port);
    setEntryCount(m_entryCount);
    if (m_messageString != 0)
        showString(m_messageString);
    showExplanation();
    m_linkLight->setAccessibleName(languageString(strings::kLightName));
    describeLight();
}

void LinkStatusBar::describeLight()
{
    m_linkLight->setAccessibleDescription(languageString(m_linkState == 1 ? strings::kLightConnected
                                                         : m_linkState == -1
                                                             ? strings::kLightNoExchange
                                                             : strings::kLightNotConnected));
    m_linkLight->setToolTip(m_linkLight->accessibleDescription());
}

void LinkStatusBar::resizeEvent(QResizeEvent* event)
{
    setLinkState(m_linkState); // the light has no picture before the first time
    QStatusBar::resizeEvent(event);
    placeEntries();
}

void LinkStatusBar::blink()
{
    m_redShown = !m_redShown;
    showLight(m_redShown ? Light::Red : Light::Gray);
}

void LinkStatusBar::showLight(Light light)
{
    m_linkLight->setPixmap(lightPixmap(light));
}

} // namespace pelorin
