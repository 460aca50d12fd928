#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QAction;
class QTableView;

namespace pelorin {

/// Cells of tables as text, the way spreadsheets exchange them: tabs between the columns, each row
/// a line.

/// The cells that are selected, or all where none are. A cell inside their block that is not
/// selected is empty.
[[nodiscard]] QString cellsText(const QTableView& table);

/// The cells of such a text, row by row.
[[nodiscard]] std::vector<QStringList> cellsOf(const QString& text);

/// Gives a table the key and the menu item that copy cellsText to the clipboard.
/// @return the item, whose caption is the caller's
QAction* addCopyAction(QTableView& table);

} // namespace pelorin
