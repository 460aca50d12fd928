#include "pages/ParameterTable.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/RowHeights.h"
#include "platform/ui/TableCells.h"

#include <QAction>
#include <QTableWidget>

#include <array>

namespace pelorin {

namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = ParameterTable::kValueColumn;
constexpr int kUnitColumn = 2;
constexpr std::array kHeaderTexts = {strings::kParameterHeader, strings::kValueHeader,
                                     strings::kUnitHeader}; // by column

QString textOf(int stringNumber)
{
    return stringNumber != 0 ? languageString(stringNumber) : QString();
}

} // namespace

void ParameterTable::attach(QTableWidget& list, std::span<const Row> rows)
{
    m_list = &list;
    m_copy = addCopyAction(list);
    m_copy->setShortcutContext(Qt::WindowShortcut); // also from the list of pages
    m_rows.clear();
    for (const Row& row : rows)
        m_rows.push_back({row});
    list.setRowCount(rowCount());
    list.setColumnCount(static_cast<int>(kHeaderTexts.size()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < list.columnCount(); ++column) {
            QTableWidgetItem& cell = setReadOnlyCell(list, row, column);
            if (column != kNameColumn)
                cell.setTextAlignment(Qt::AlignCenter);
        }
    }
    new ColumnWidths(list, {0.3, 0.4, 0.3});
    new RowHeights(list);
}

void ParameterTable::translate()
{
    m_copy->setText(languageString(strings::kCopy));
    QStringList headers;
    for (const int number : kHeaderTexts)
        headers << languageString(number);
    m_list->setHorizontalHeaderLabels(headers);
    m_list->horizontalHeaderItem(kNameColumn)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int row = 0; row < rowCount(); ++row) {
        showLabel(row);
        m_list->item(row, kUnitColumn)->setText(textOf(at(row).texts.unit));
    }
}

QString ParameterTable::label(int row) const
{
    return textOf(at(row).texts.label);
}

void ParameterTable::showLabel(int row)
{
    m_list->item(row, kNameColumn)->setText(at(row).mark.caption(label(row)));
}

QString ParameterTable::value(int row) const
{
    return m_list->item(row, kValueColumn)->text();
}

void ParameterTable::setValue(int row, const QString& text)
{
    m_rows[static_cast<std::size_t>(row)].original = text;
    m_list->item(row, kValueColumn)->setText(text);
}

void ParameterTable::acceptValues()
{
    for (int row = 0; row < rowCount(); ++row)
        setValue(row, value(row));
}

void ParameterTable::restoreValues()
{
    for (int row = 0; row < rowCount(); ++row)
        setValue(row, original(row));
}

void ParameterTable::mark(int row, const FieldMark& mark)
{
    m_rows[static_cast<std::size_t>(row)].mark = mark;
    showLabel(row);
    for (const int column : {kNameColumn, kValueColumn}) {
        QTableWidgetItem* item = m_list->item(row, column);
        item->setFont(mark.font(m_list->font()));
        item->setToolTip(mark.explanation);
        item->setData(Qt::AccessibleDescriptionRole, mark.explanation);
    }
}

void ParameterTable::setEditable(int row, bool editable)
{
    QTableWidgetItem* item = m_list->item(row, kValueColumn);
    item->setFlags(item->flags().setFlag(Qt::ItemIsEditable, editable));
}

} // namespace pelorin
