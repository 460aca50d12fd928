#include "platform/ui/FileChooser.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/RecentFiles.h"
#include "platform/core/Strings.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

namespace pelorin {

namespace {

/// Offers files in a row of its own below the others.
void offer(QFileDialog& dialog, const QStringList& files)
{
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (!grid || files.isEmpty())
        return;
    auto* list = new QComboBox(&dialog);
    list->setObjectName(QStringLiteral("recentFiles"));
    list->setPlaceholderText(QString());
    for (const QString& file : files)
        list->addItem(QDir::toNativeSeparators(file));
    list->setCurrentIndex(-1);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* caption = new QLabel(languageString(strings::kRecentFiles), &dialog);
    caption->setBuddy(list);
    const int row = grid->rowCount();
    grid->addWidget(caption, row, 0);
    grid->addWidget(list, row, 1, 1, -1);
    QObject::connect(list, &QComboBox::activated, &dialog, [&dialog, files](int index) {
        if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            name->setText(files.at(index));
    });
}

/// The ending of a kind of files, such as "Text files (*.txt)"; the usual one for all files.
QString suffixOf(const QString& filter, const QString& usual)
{
    static const QRegularExpression kEnding(QStringLiteral("\\(\\*\\.(\\w+)"));
    const auto ending = kEnding.match(filter);
    return ending.hasMatch() ? ending.captured(1) : usual;
}

} // namespace

/// The toolkit's own dialog: those of the desktops ask whether a file may be replaced before its
/// name gets the ending, and so would have another one replaced unasked.
QString chooseFile(QWidget* parent, QFileDialog::AcceptMode acceptMode, const QString& title,
                   const QString& filter, const QString& suffix, bool offerRecent)
{
    const RecentFiles recent(suffix);
    QFileDialog dialog(parent, title, recent.folder(), filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(acceptMode);
    dialog.setFileMode(acceptMode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                             : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& chosen) {
        dialog.setDefaultSuffix(suffixOf(chosen, suffix));
    });
    if (offerRecent)
        offer(dialog, recent.files());
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString path = dialog.selectedFiles().value(0);
    (void)recent.add(path); // a profile that cannot be written is told at the end, too
    return path;
}

} // namespace pelorin
