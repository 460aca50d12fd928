#include "pages/AboutDialog.h"

#include "platform/core/ProgramVersion.h"
#include "platform/core/Strings.h"
#include "platform/ui/Pictures.h"

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

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : BaseDialog(QStringLiteral("118_About"), parent) {}

void AboutDialog::setupTranslationMap()
{
    setTitleString(strings::kAboutTitle);
    addToTranslationMap(kNameEdit, strings::kProgram);
    addToTranslationMap(kVersionLabel, strings::kVersionLabel);
    addToTranslationMap(kOkButton, strings::kOk);
    addAccessibleName(kNameEdit, strings::kProgramName);
    addAccessibleName(kIconLabel, strings::kIconName);
}

void AboutDialog::onInitDialog()
{
    getControl<QLabel>(kIconLabel)->setPixmap(programIcon().pixmap(128));
    getControl<QLineEdit>(kVersionEdit)->setText(programVersion());
    for (const int id : {kNameEdit, kVersionEdit}) {
        auto* edit = getControl<QLineEdit>(id);
        QPalette colors = edit->palette();
        colors.setColor(QPalette::Base, Qt::transparent); // text to read, not a field to fill
        edit->setPalette(colors);
    }
    getControl<QPushButton>(kOkButton)->setFocus();
}

} // namespace pelorin
