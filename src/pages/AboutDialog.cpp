#include "pages/AboutDialog.h"

#include "platform/core/ProgramVersion.h"
#include "platform/core/Strings.h"
#include "platform/ui/Pictures.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kNameEdit = 1038;
constexpr int kVersionEdit = 1039;
constexpr int kIconLabel = 1040;
constexpr int kVersionLabel = 1041;
constexpr int kLicenceLabel = 1042;
constexpr int kLicenceEdit = 1043;
constexpr int kCommitLabel = 1044;
constexpr int kCommitEdit = 1045;
constexpr int kToolkitLabel = 1046;
constexpr int kToolkitEdit = 1047;

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : BaseDialog(QStringLiteral("118_About"), parent) {}

void AboutDialog::setupTranslationMap()
{
    setTitleString(strings::kAboutTitle);
    addToTranslationMap(kNameEdit, strings::kProgram);
    addToTranslationMap(kVersionLabel, strings::kVersionLabel);
    addToTranslationMap(kLicenceLabel, strings::kLicenceLabel);
    addToTranslationMap(kCommitLabel, strings::kCommitLabel);
    addToTranslationMap(kToolkitLabel, strings::kToolkitLabel);
    addToTranslationMap(kOkButton, strings::kOk);
    addAccessibleName(kNameEdit, strings::kProgramName);
    addAccessibleName(kIconLabel, strings::kIconName);
}

void AboutDialog::onInitDialog()
{
    getControl<QLabel>(kIconLabel)->setPixmap(programIcon().pixmap(128));
    getControl<QLineEdit>(kVersionEdit)->setText(programVersion());
    const QString commit = QCoreApplication::applicationVersion();
    getControl<QLineEdit>(kCommitEdit)->setText(commit);
    getControl<QLineEdit>(kCommitEdit)->setVisible(!commit.isEmpty());
    getControl<QLabel>(kCommitLabel)->setVisible(!commit.isEmpty());
    getControl<QLineEdit>(kToolkitEdit)->setText(QLatin1String(qVersion()));
    for (const int id : {kNameEdit, kVersionEdit, kLicenceEdit, kCommitEdit, kToolkitEdit}) {
        auto* edit = getControl<QLineEdit>(id);
        QPalette colors = edit->palette();
        colors.setColor(QPalette::Base, Qt::transparent); // text to read, not a field to fill
        edit->setPalette(colors);
    }
    getControl<QPushButton>(kOkButton)->setFocus();
}

} // namespace pelorin
