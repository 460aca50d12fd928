#include "platform/ui/TableCells.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QTableWidget>

namespace pelorin {

namespace {

/// A spreadsheet puts a cell into quotes that holds quotes itself.
QString unquoted(const QString& cell)
{
    const QChar quote(u'"');
    if (cell.size() < 2 || !cell.startsWith(quote) || !cell.endsWith(quote))
        return cell;
    return cell.mid(1, cell.size() - 2).replace(QStringLiteral("\"\""), quote);
}

} // namespace

QString cellsText(const QTableView& table)
{
    const QAbstractItemModel& model = *table.model();
    QItemSelection cells = table.selectionModel()->selection();
    if (cells.isEmpty())
        cells.select(model.index(0, 0), model.index(model.rowCount() - 1, model.columnCount() - 1));
    QRect block;
    for (const QItemSelectionRange& range : cells)
        block |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    QStringList lines;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        QStringList texts;
        for (int column = block.left(); column <= block.right(); ++column) {
            const QModelIndex cell = model.index(row, column);
            texts << (cells.contains(cell) ? cell.data().toString() : QString());
        }
        lines << texts.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

std::vector<QStringList> cellsOf(const QString& text)
{
    QString rest = text;
    rest.remove(QLatin1Char('\r'));
    if (rest.endsWith(QLatin1Char('\n')))
        rest.chop(1);
    std::vector<QStringList> rows;
    for (const QString& line : rest.split(QLatin1Char('\n'))) {
        QStringList cells = line.split(QLatin1Char('\t'));
        for (QString& cell : cells)
            cell = unquoted(cell);
        rows.push_back(cells);
    }
    return rows;
}

QAction* addCopyAction(QTableView& table)
{
    auto* copy = new QAction(&table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    table.addAction(copy);
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
    QObject::connect(copy, &QAction::triggered, &table,
                     [&table] { QGuiApplication::clipboard()->setText(cellsText(table)); });
    return copy;
}

QTableWidgetItem& setReadOnlyCell(QTableWidget& table, int row, int column, const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setToolTip(text);
    table.setItem(row, column, item);
    return *item;
}

} // namespace pelorin
