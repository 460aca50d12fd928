#pragma once

#include <QFileDialog>

namespace pelorin {

/// Has the user choose a file in a modal dialog; before an existing one is saved to, the dialog
/// asks whether it may be replaced. It begins in the folder of the last file of that kind.
/// @param acceptMode to save to a file, or to open one that exists
/// @param filter the kinds of files, as file dialogs take them
/// @param suffix what a name that is typed without an ending gets, without the point, unless the
///        user has chosen another kind of files; the kind
/// @param offerRecent whether the last files of that kind can be chosen from a list
/// @return the path; null if the user gives up
[[nodiscard]] QString chooseFile(QWidget* parent, QFileDialog::AcceptMode acceptMode,
                                 const QString& title, const QString& filter, const QString& suffix,
                                 bool offerRecent = false);

} // namespace pelorin
