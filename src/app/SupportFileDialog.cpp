#include "app/SupportFileDialog.h"

#include "platform/core/Strings.h"

#include <QFontDatabase>
#include <QPlainTextEdit>

#include <utility>

namespace pelorin {

namespace {

constexpr int kSaveButton = 1;
constexpr int kCancelButton = 2;
constexpr int kHintLabel = 1060;
constexpr int kTextEdit = 1061;

} // namespace

SupportFileDialog::SupportFileDialog(QWidget* parent, QString text)
    : BaseDialog(QStringLiteral("138_SupportFile"), parent), m_text(std::move(text))
{
}

void SupportFileDialog::setupTranslationMap()
{
    setTitleString(strings::kSupportTitle);
    addToTranslationMap(kHintLabel, strings::kSupportHint);
    addToTranslationMap(kSaveButton, strings::kSaveToDisk);
    addToTranslationMap(kCancelButton, strings::kCancel);
}

void SupportFileDialog::onInitDialog()
{
    auto* edit = getControl<QPlainTextEdit>(kTextEdit);
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    edit->setPlainText(m_text);
}

QString SupportFileDialog::text() const
{
    return getControl<QPlainTextEdit>(kTextEdit)->toPlainText();
}

} // namespace pelorin
