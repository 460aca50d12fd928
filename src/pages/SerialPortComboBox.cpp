#include "pages/SerialPortComboBox.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"

#include <QEvent>
#include <QStringList>

#include <algorithm>
#include <chrono>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

/// The system tells of new devices in no way that works everywhere, and looking is quick.
constexpr auto kPollPeriod = 500ms;
constexpr int kLooksOfTaken = 10; ///< within which a device that goes was taken: five seconds
constexpr int kKeyRole = Qt::UserRole;

/// What an entry is found again by: the number of a port that has one, else its device.
QString keyOf(const PresentPort& port)
{
    return ComPortNames::nameOf(port.number, port.device);
}

/// "COM33 - ttyUSB0, FT232R USB UART, FTDI, A50285BI" or "COM98 - simulated, sensor?type=1".
QString description(const PresentPort& port)
{
    const QString details = port.simulated
                                ? languageString(strings::kSimulated) + QStringLiteral(", ") +
                                      port.shortName.section(QLatin1Char(':'), 1)
                                : port.details();
    const QString name = ComPortNames::nameOf(port.number, languageString(strings::kNewPortNumber));
    return name + QStringLiteral(" - ") + details;
}

} // namespace

SerialPortComboBox::SerialPortComboBox(QWidget* parent) : QComboBox(parent)
{
    m_poll.setInterval(Pacing::pause(kPollPeriod));
    connect(&m_poll, &QTimer::timeout, this, &SerialPortComboBox::init);
}

void SerialPortComboBox::setDevices(const SerialDevices& devices)
{
    m_devices = devices;
}

void SerialPortComboBox::init()
{
    const QList<PresentPort> former =
        std::exchange(m_ports, ComPortNames().presentPorts(m_devices.all()));
    lookForTaken(former);
    const QString selected = currentData(kKeyRole).toString();
    QStringList keys;
    for (const PresentPort& port : std::as_const(m_ports))
        keys << keyOf(port);
    if (!selected.isEmpty() && !keys.contains(selected)) {
        // It keeps its place, as far as the entries before it have kept theirs.
        qsizetype place = 0;
        for (int row = 0; row < currentIndex(); ++row)
            place = std::max(place, keys.indexOf(itemData(row, kKeyRole).toString()) + 1);
        keys.insert(place, selected);
    }
    show(keys);
    setCurrentIndex(selected.isEmpty() ? -1 : findData(selected, kKeyRole));
    setPlaceholderText(count() == 0 ? languageString(strings::kNoPortPresent) : QString());
    Q_EMIT refreshed();
}

/// What was there at the first look may have been so for long.
void SerialPortComboBox::lookForTaken(const QList<PresentPort>& former)
{
    const auto isIn = [](const QList<PresentPort>& ports, const QString& device) {
        return std::any_of(ports.begin(), ports.end(),
                           [&](const PresentPort& port) { return port.device == device; });
    };
    for (const PresentPort& port : former) {
        const int since = m_pluggedIn.value(port.device, -kLooksOfTaken);
        if (!isIn(m_ports, port.device) && m_looks - since < kLooksOfTaken)
            m_takenDevice = port.device;
    }
    for (const PresentPort& port : std::as_const(m_ports)) {
        if (m_looks == 0 || isIn(former, port.device))
            continue;
        m_pluggedIn[port.device] = m_looks;
        m_takenDevice.clear();
    }
    ++m_looks;
}

/// Changes what has changed: the list may be open.
void SerialPortComboBox::show(const QStringList& keys)
{
    for (int row = 0; row < keys.size(); ++row) {
        const QString& key = keys.at(row);
        const int former = findData(key, kKeyRole);
        if (former < row)
            insertItem(row, key, key);
        for (int surplus = row; surplus < former; ++surplus)
            removeItem(row);
    }
    while (count() > keys.size())
        removeItem(count() - 1);
    for (const PresentPort& port : std::as_const(m_ports)) {
        const int row = findData(keyOf(port), kKeyRole);
        setItemText(row, description(port));
        setItemData(row, port.adapter.byId.isEmpty() ? port.device : port.adapter.byId,
                    Qt::ToolTipRole);
    }
}

void SerialPortComboBox::selectPort(int port)
{
    m_givenPort = port;
    const QString name = ComPortNames::nameOf(port);
    int index = findData(name, kKeyRole);
    if (index < 0 && port > 0) {
        index = 0;
        while (index < count() && index < m_ports.size() && m_ports.at(index).number != 0 &&
               m_ports.at(index).number < port)
            ++index;
        insertItem(index, name, name);
    }
    setCurrentIndex(index);
}

void SerialPortComboBox::selectFirstRealPort()
{
    const auto found = std::find_if(m_ports.cbegin(), m_ports.cend(),
                                    [](const PresentPort& port) { return !port.simulated; });
    if (found != m_ports.cend())
        setCurrentIndex(findData(keyOf(*found), kKeyRole));
}

int SerialPortComboBox::getSelectedPort() const
{
    if (currentIndex() < 0)
        return m_givenPort;
    return ComPortNames::numberIn(currentData(kKeyRole).toString()).value_or(0);
}

const PresentPort* SerialPortComboBox::selectedDevice() const
{
    const auto found = std::find_if(
        m_ports.cbegin(), m_ports.cend(),
        [key = currentData(kKeyRole).toString()](const auto& port) { return keyOf(port) == key; });
    return found == m_ports.cend() ? nullptr : &*found;
}

bool SerialPortComboBox::hasRealPort() const
{
    return std::any_of(m_ports.cbegin(), m_ports.cend(),
                       [](const PresentPort& port) { return !port.simulated; });
}

void SerialPortComboBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        init();
    QComboBox::changeEvent(event);
}

void SerialPortComboBox::showEvent(QShowEvent* event)
{
    m_poll.start();
    QComboBox::showEvent(event);
}

void SerialPortComboBox::hideEvent(QHideEvent* event)
{
    m_poll.stop();
    QComboBox::hideEvent(event);
}

} // namespace pelorin
