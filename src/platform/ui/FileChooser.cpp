#include "platform/ui/FileChooser.h"

namespace pelorin {

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
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace pelorin
