#include "app/SupportFileDialog.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/core/WholeFile.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"

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

void SupportFileDialog::accept()
{
    const QString path =
        chooseFile(this, QFileDialog::AcceptSave, languageString(strings::kSupportTitle),
                   languageString(strings::kTextFileFilter), QStringLiteral("txt"));
    if (path.isNull())
        return;
    const QString text = getControl<QPlainTextEdit>(kTextEdit)->toPlainText();
    if (const auto saved = WholeFile(path).save(text.toUtf8()); !saved.isDone())
        return warn(this, saved.message());
    BaseDialog::accept();
}

} // namespace pelorin
