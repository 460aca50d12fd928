#include "pages/PasswordDialog.h"

#include "platform/core/Strings.h"

#include <QLineEdit>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kPromptEdit = 1063;
constexpr int kPasswordEdit = 1064;

} // namespace

PasswordDialog::PasswordDialog(QWidget* parent, int promptId)
    : BaseDialog(QStringLiteral("122_Password"), parent), m_promptId(promptId)
{
}

void PasswordDialog::setupTranslationMap()
{
    setTitleString(strings::kPasswordTitle);
    addToTranslationMap(kPromptEdit, m_promptId);
    addToTranslationMap(kOkButton, strings::kOk);
    addToTranslationMap(kCancelButton, strings::kCancel);
    addAccessibleName(kPromptEdit, strings::kNoteName);
    addAccessibleName(kPasswordEdit, strings::kPasswordName);
}

void PasswordDialog::onInitDialog()
{
    auto* password = getControl<QLineEdit>(kPasswordEdit);
    password->setFocus();
    password->selectAll();
}

void PasswordDialog::accept()
{
    m_password = getControl<QLineEdit>(kPasswordEdit)->text();
    BaseDialog::accept();
}

} // namespace pelorin
