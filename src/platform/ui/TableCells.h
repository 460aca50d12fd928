#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QAction;
class QTableView;
class QTableWidget;
class QTableWidgetItem;

namespace pelorin {

/// Cells of tables, and their text the way spreadsheets exchange it: tabs between the columns, each
/// row a line.

/// The cells that are selected, or all where none are. A cell inside their block that is not
/// selected is empty.
[[nodiscard]] QString cellsText(const QTableView& table);

/// The cells of such a text, row by row.
[[nodiscard]] std::vector<QStringList> cellsOf(const QString& text);

/// Gives a table the key and the menu item that copy cellsText to the clipboard.
/// @return the item, whose caption is the caller's
QAction* addCopyAction(QTableView& table);

/// Makes a cell that is only read. Its tooltip has the text, too, which may be longer than the
/// cell.
QTableWidgetItem& setReadOnlyCell(QTableWidget& table, int row, int column,
                                  const QString& text = {});

} // namespace pelorin
