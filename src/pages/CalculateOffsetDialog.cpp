#include "pages/CalculateOffsetDialog.h"

#include "pages/PackageTable.h"
#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kInformation = 1029;
constexpr int kSeDistanceLabel = 1030;
constexpr int kSeDistanceEdit = 1031;
constexpr int kStrokeLabel = 1032;
constexpr int kStrokeEdit = 1033;
constexpr int kDeadZoneLabel = 1036;
constexpr int kDeadZoneEdit = 1037;
constexpr int kPackageLabel = 1039;
constexpr int kPackageCombo = 1041;
constexpr int kUnitLabels[] = {1034, 1035, 1038};

} // namespace

CalculateOffsetDialog::CalculateOffsetDialog(QWidget* parent, bool reverse, double strokeLength)
    : BaseDialog(QStringLiteral("114_CalculateOffset"), parent), m_reverse(reverse),
      m_strokeLength(strokeLength)
{
}

void CalculateOffsetDialog::setupTranslationMap()
{
    setTitleString(strings::kOffsetTitle);
    addToTranslationMap(kInformation, strings::kOffsetNote);
    addToTranslationMap(kSeDistanceLabel, strings::kSeDistance);
    addToTranslationMap(kStrokeLabel, strings::kStrokeLength);
    addToTranslationMap(kDeadZoneLabel, strings::kDeadZone);
    for (const int unit : kUnitLabels)
        addToTranslationMap(unit, strings::kMillimetres);
    addToTranslationMap(kPackageLabel, strings::kSensorPackage);
    addToTranslationMap(kOkButton, strings::kOk);
    addToTranslationMap(kCancelButton, strings::kCancel);
}

void CalculateOffsetDialog::onInitDialog()
{
    m_seDistanceEdit = getControl<QLineEdit>(kSeDistanceEdit);
    m_strokeEdit = getControl<QLineEdit>(kStrokeEdit);
    m_deadZoneEdit = getControl<QLineEdit>(kDeadZoneEdit);
    if (m_strokeLength != 0.0)
        m_strokeEdit->setText(QString::asprintf("%01.01f", m_strokeLength));
    m_strokeEdit->setEnabled(m_reverse);
    m_deadZoneEdit->setEnabled(m_reverse);
    m_seDistanceEdit->setFocus();
    m_seDistanceEdit->selectAll();
    listPackages();
}

void CalculateOffsetDialog::listPackages()
{
    QStringList names;
    PackageTable table;
    QString name;
    PackageEntry entry;
    while (table.next(name, entry.seDistance, entry.inactiveZone) == 1)
        names << name;
    std::sort(names.begin(), names.end(), [](const QString& left, const QString& right) {
        return left.localeAwareCompare(right) < 0;
    });

    auto* packages = getControl<QComboBox>(kPackageCombo);
    packages->addItems(names);
    packages->setCurrentIndex(-1);
    connect(packages, &QComboBox::activated, this, &CalculateOffsetDialog::choosePackage);
}

void CalculateOffsetDialog::choosePackage()
{
    const auto* packages = getControl<QComboBox>(kPackageCombo);
    const auto show = [](QLineEdit* edit, double distance) {
        edit->setText(QString::asprintf("%01.03f", distance));
    };
    PackageTable table;
    QString name;
    PackageEntry entry;
    while (table.next(name, entry.seDistance, entry.inactiveZone) == 1) {
        if (name != packages->currentText())
            continue;
        show(m_seDistanceEdit, entry.seDistance);
        show(m_deadZoneEdit, entry.inactiveZone);
        break;
    }
}

bool CalculateOffsetDialog::isComplete()
{
    for (QLineEdit* edit : {m_seDistanceEdit, m_strokeEdit, m_deadZoneEdit}) {
        if (!edit->isEnabled() || !edit->text().isEmpty())
            continue;
        warn(this, languageString(strings::kValueMissing));
        edit->setFocus();
        edit->selectAll();
        return false;
    }
    return true;
}

void CalculateOffsetDialog::accept()
{
    if (!isComplete())
        return;
    const double seDistance = intlAtof(m_seDistanceEdit->text());
    m_strokeLength = intlAtof(m_strokeEdit->text());
    m_offset = m_reverse ? seDistance + m_strokeLength + intlAtof(m_deadZoneEdit->text())
                         : seDistance * -1.0;
    BaseDialog::accept();
}

} // namespace pelorin
