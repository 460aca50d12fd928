#include "pages/SerialPortComboBox.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QEvent>
#include <QStringList>

namespace pelorin {

namespace {

QString comName(int port)
{
    return QStringLiteral("COM%1").arg(port);
}

/// "COM33 - ttyUSB0, FT232R USB UART" or "COM98 - simulated, sensor?type=1".
QString description(const PresentPort& port)
{
    QStringList details{port.shortName, port.description};
    if (port.simulated) {
        details = {languageString(strings::kSimulated),
                   port.shortName.section(QLatin1Char(':'), 1)};
    }
    details.removeAll(QString());
    return comName(port.number) + QStringLiteral(" - ") + details.join(QStringLiteral(", "));
}

} // namespace

void SerialPortComboBox::init()
{
    const int selected = getSelectedPort();
    clear();
    const auto ports = ComPortNames().presentPorts();
    for (const PresentPort& port : ports)
        addItem(description(port), port.number);
    selectPort(selected);
    setPlaceholderText(count() == 0 ? languageString(strings::kNoPortPresent) : QString());
}

void SerialPortComboBox::selectPort(int port)
{
    m_givenPort = port;
    int index = findData(port);
    if (index < 0 && port > 0) {
        index = 0;
        while (index < count() && itemData(index).toInt() < port)
            ++index;
        insertItem(index, comName(port), port);
    }
    setCurrentIndex(index);
}

int SerialPortComboBox::getSelectedPort() const
{
    return currentIndex() < 0 ? m_givenPort : currentData().toInt();
}

void SerialPortComboBox::showPopup()
{
    init();
    QComboBox::showPopup();
}

void SerialPortComboBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        init();
    QComboBox::changeEvent(event);
}

} // namespace pelorin
