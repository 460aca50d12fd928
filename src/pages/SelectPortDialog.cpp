#include "pages/SelectPortDialog.h"

#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/PortNumbers.h"
#include "platform/core/PortOpening.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

#include <utility>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kDeviceManagerButton = 3;
constexpr int kWithoutPortButton = 4;
constexpr int kDemonstrationButton = 5;
constexpr int kPortCombo = 1001;
constexpr int kPortLabel = 1002;
constexpr int kStateLabel = 1003;
constexpr int kStateLines = 3;

void openDeviceFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(ComPortNames::deviceFolder()));
}

} // namespace

SelectPortDialog::SelectPortDialog(QWidget* parent, int port, Use use, const SerialDevices& devices)
    : BaseDialog(QStringLiteral("112_SelectPort"), parent), m_port(port), m_use(use),
      m_devices(devices)
{
}

QWidget* SelectPortDialog::createControl(const QString& className, QWidget* parent)
{
    if (className == QLatin1String("SerialPortComboBox"))
        return new SerialPortComboBox(parent);
    return BaseDialog::createControl(className, parent);
}

void SelectPortDialog::setupTranslationMap()
{
    setTitleString(strings::kSelectPort);
    addToTranslationMap(kPortLabel, strings::kPortLabel);
    addToTranslationMap(kOkButton, strings::kOk);
    addToTranslationMap(kCancelButton, strings::kCancel);
    addToTranslationMap(kWithoutPortButton, strings::kWithoutPort);
    addToTranslationMap(kDemonstrationButton, strings::kDemonstration);
}

void SelectPortDialog::onInitDialog()
{
    auto* state = getControl<QLabel>(kStateLabel);
    state->setMinimumHeight(kStateLines * state->fontMetrics().lineSpacing());

    auto* ports = getControl<SerialPortComboBox>(kPortCombo);
    ports->setDevices(m_devices);
    ports->init();
    ports->selectPort(m_port);
    connect(ports, &SerialPortComboBox::refreshed, this, &SelectPortDialog::showState);
    connect(ports, &QComboBox::currentIndexChanged, this, &SelectPortDialog::showState);
    connect(getControl<QPushButton>(kDeviceManagerButton), &QPushButton::clicked, this,
            &openDeviceFolder);
    for (const auto& [id, result] : {std::pair(kWithoutPortButton, kWithoutPort),
                                     std::pair(kDemonstrationButton, kDemonstration)}) {
        auto* button = getControl<QPushButton>(id);
        button->setVisible(m_use == Use::Start);
        connect(button, &QPushButton::clicked, this, [this, code = result] { done(code); });
    }
    showState();
}

void SelectPortDialog::translate()
{
    BaseDialog::translate();
    showState();
}

void SelectPortDialog::showState()
{
    auto* ports = getControl<SerialPortComboBox>(kPortCombo);
    if (ports->currentIndex() < 0) // nobody has chosen yet: what is plugged in is meant
        ports->selectFirstRealPort();
    getControl<QLabel>(kStateLabel)->setText(stateText());
    getControl<QPushButton>(kOkButton)->setEnabled(ports->currentIndex() >= 0);
}

/// What keeps the chosen port from being used.
QString SelectPortDialog::stateText() const
{
    const auto* ports = getControl<SerialPortComboBox>(kPortCombo);
    const PresentPort* port = ports->selectedDevice();
    if (const QString& taken = ports->takenDevice(); !taken.isEmpty() && (!port || port->simulated))
        return languageString(strings::kAdapterTaken).arg(taken);
    if (!ports->hasRealPort() && !port)
        return languageString(strings::kNoAdapter);
    if (port && port->simulated)
        return QString();
    using State = SerialDevices::State;
    const QString device = !port                          ? ports->currentText()
                           : port->adapter.path.isEmpty() ? port->device
                                                          : port->adapter.path;
    switch (port ? m_devices.stateOf(device) : State::Missing) {
    case State::Missing:
        return languageString(strings::kPortMissing).arg(device);
    case State::NotPermitted:
        return noPermissionText(device, device, m_devices);
    case State::InUse:
        return languageString(strings::kPortInUse).arg(device);
    case State::Usable:
        break;
    }
    return QString();
}

void SelectPortDialog::accept()
{
    const auto* ports = getControl<SerialPortComboBox>(kPortCombo);
    const PresentPort* port = ports->selectedDevice();
    if (port && port->number == 0) {
        const int number = ComPortNames().freeNumber();
        const SerialDevice& adapter = port->adapter;
        const auto kept =
            keepPortNumber(number, adapter.byId.isEmpty() ? adapter.path : adapter.byId);
        if (!kept.isDone())
            return warn(this, kept.message());
        m_port = number;
    } else {
        m_port = ports->getSelectedPort();
    }
    BaseDialog::accept();
}

} // namespace pelorin
