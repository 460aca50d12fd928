#include "pages/PasswordDialog.h"

#include <QLineEdit>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kPromptEdit = 1063;
constexpr int kPasswordEdit = 1064;

constexpr int kTitleText = 228;
constexpr int kPromptNameText = 1103;
constexpr int kPasswordNameText = 1200;

} // namespace

PasswordDialog::PasswordDialog(QWidget* parent, int promptId)
    : BaseDialog(QStringLiteral("122_Password"), parent), m_promptId(promptId)
{
}

void PasswordDialog::setupTranslationMap()
{
    setTitleString(kTitleText);
    addToTranslationMap(kPromptEdit, m_promptId);
    addToTranslationMap(kOkButton, 241);
    addToTranslationMap(kCancelButton, 120);
    addAccessibleName(kPromptEdit, kPromptNameText);
    addAccessibleName(kPasswordEdit, kPasswordNameText);
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
