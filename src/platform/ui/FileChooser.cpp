#include "platform/ui/FileChooser.h"

#include <QRegularExpression>

namespace pelorin {

namespace {

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
                   const QString& filter, const QString& suffix)
{
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(acceptMode);
    dialog.setFileMode(acceptMode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                             : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& chosen) {
        dialog.setDefaultSuffix(suffixOf(chosen, suffix));
    });
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace pelorin
