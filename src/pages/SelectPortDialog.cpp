#include "pages/SelectPortDialog.h"

#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/Strings.h"

#include <QDesktopServices>
#include <QPushButton>
#include <QUrl>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kDeviceManagerButton = 3;
constexpr int kPortCombo = 1001;
constexpr int kPortLabel = 1002;

void openDeviceFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(ComPortNames::deviceFolder()));
}

} // namespace

SelectPortDialog::SelectPortDialog(QWidget* parent, int port)
    : BaseDialog(QStringLiteral("112_SelectPort"), parent), m_port(port)
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
}

void SelectPortDialog::onInitDialog()
{
    auto* ports = getControl<SerialPortComboBox>(kPortCombo);
    ports->init();
    ports->selectPort(m_port);
    connect(getControl<QPushButton>(kDeviceManagerButton), &QPushButton::clicked, this,
            &openDeviceFolder);
}

void SelectPortDialog::accept()
{
    m_port = getControl<SerialPortComboBox>(kPortCombo)->getSelectedPort();
    BaseDialog::accept();
}

} // namespace pelorin
