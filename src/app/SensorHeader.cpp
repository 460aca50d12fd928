#include "app/SensorHeader.h"

#include "app/BusyFilter.h"
#include "app/Light.h"
#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ElidedLabel.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>

#include <utility>

namespace pelorin {

namespace {

constexpr int kMargin = 4; ///< logical pixels
constexpr int kGap = 20;   ///< shrinks where there is little room

enum class State { NotConnected, Lost, NotIdentified, Connected };

State stateOf(const SensorLink& link)
{
    if (link.linkFailed() == 1)
        return State::Lost;
    if (link.isIdentified())
        return State::Connected;
    return link.versionText().isEmpty() ? State::NotConnected : State::NotIdentified;
}

Light lightOf(State state)
{
    switch (state) {
    case State::Connected:
        return Light::Green;
    case State::Lost:
    case State::NotIdentified:
        return Light::Red;
    case State::NotConnected:
        break;
    }
    return Light::Gray;
}

} // namespace

SensorHeader::SensorHeader(QWidget* parent, const SafeWriter& writer)
    : QFrame(parent), m_writer(writer), m_light(new QLabel(this)), m_state(new QLabel(this)),
      m_cancelButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("sensorHeader"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 0, kMargin, 0);
    layout->addWidget(m_light);
    QFont bold = font();
    bold.setBold(true);
    m_state->setObjectName(QStringLiteral("headerState"));
    m_state->setFont(bold);
    layout->addWidget(m_state);
    for (int field = 0; field < FieldCount; ++field) {
        QLabel* label =
            field == Revision || field == SafeWrites ? new ElidedLabel(this) : new QLabel(this);
        label->setObjectName(QStringLiteral("headerField%1").arg(field));
        label->setTextFormat(Qt::PlainText);
        layout->addSpacerItem(new QSpacerItem(kGap, 0, QSizePolicy::Maximum));
        layout->addWidget(label);
        m_fields[static_cast<std::size_t>(field)] = label;
    }
    layout->addStretch(1);
    const int height = QFontMetrics(bold).height() + 2 * kMargin;
    m_cancelButton->setObjectName(QStringLiteral("cancelReadingButton"));
    m_cancelButton->setProperty(BusyFilter::kUsableWhileBusy, true);
    m_cancelButton->setFocusPolicy(Qt::NoFocus); // Escape presses it
    m_cancelButton->setFixedHeight(height - 2);
    m_cancelButton->hide();
    connect(m_cancelButton, &QPushButton::clicked, this, &SensorHeader::cancelChosen);
    layout->addWidget(m_cancelButton);
    setFixedHeight(height);
    showSensor();
}

void SensorHeader::offerCancel(bool offered)
{
    m_cancelButton->setVisible(offered);
}

void SensorHeader::forgetSensor()
{
    m_factoryText.clear();
    showSensor();
}

void SensorHeader::showSensor()
{
    const State state = stateOf(m_writer.runner().link());
    const SensorValues& known = m_writer.runner().known();
    if (state != State::Connected) {
        m_factoryText.clear();
    } else if (const auto read = known.find('F'); read != known.end()) {
        m_factoryText = read->second;
    }
    setAccessibleName(languageString(strings::kSensor));
    m_cancelButton->setText(languageString(strings::kCancel));
    m_light->setPixmap(lightPixmap(lightOf(state)));
    m_state->setText(stateText());
    m_state->setEnabled(state != State::NotConnected);
    for (int field = 0; field < FieldCount; ++field)
        m_fields[static_cast<std::size_t>(field)]->setText(text(static_cast<Field>(field)));
    const bool connected = state == State::Connected;
    if (std::exchange(m_connected, connected) != connected)
        Q_EMIT connectedChanged(connected);
}

QString SensorHeader::stateText() const
{
    switch (stateOf(m_writer.runner().link())) {
    case State::Connected:
        return languageString(strings::kHeaderConnected);
    case State::Lost:
        return languageString(strings::kHeaderLost);
    case State::NotIdentified:
        return languageString(strings::kHeaderNotIdentified);
    case State::NotConnected:
        break;
    }
    return languageString(strings::kHeaderNotConnected);
}

QString SensorHeader::text(Field field) const
{
    const SensorLink& link = m_writer.runner().link();
    const State state = stateOf(link);
    const bool connected = state == State::Connected;
    switch (field) {
    case Type:
        if (!connected)
            return {};
        return languageString(link.isTypeByHand() ? strings::kTypeNumberByHand
                                                  : strings::kTypeNumber)
            .arg(link.ssiType());
    case Revision:
        if (!connected && state != State::NotIdentified)
            return {};
        return languageString(strings::kFirmwareRevision).arg(revisionText(link.versionText()));
    case FactoryText:
        return QString::fromLatin1(m_factoryText).trimmed();
    case Port: {
        if (!connected && state != State::NotIdentified)
            return {};
        const QString name = ComPortNames::nameOf(link.portNumber());
        return ComPortNames().isSimulated(name)
                   ? QStringLiteral("%1 (%2)").arg(name, languageString(strings::kSimulated))
                   : name;
    }
    case SafeWrites:
        if (!connected)
            return {};
        return languageString(m_writer.settings().enabled ? strings::kHeaderSafeWritesOn
                                                          : strings::kHeaderSafeWritesOff);
    case FieldCount:
        break;
    }
    return {};
}

} // namespace pelorin
