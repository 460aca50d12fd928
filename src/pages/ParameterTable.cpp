#include "pages/ParameterTable.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"

#include <QTableWidget>

#include <array>

namespace pelorin {

namespace {

constexpr int kNameColumn = 0;
constexpr int kValueColumn = 1;
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
    m_rows.assign(rows.begin(), rows.end());
    list.setRowCount(rowCount());
    list.setColumnCount(static_cast<int>(kHeaderTexts.size()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < list.columnCount(); ++column) {
            auto* item = new QTableWidgetItem;
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            if (column != kNameColumn)
                item->setTextAlignment(Qt::AlignCenter);
            list.setItem(row, column, item);
        }
    }
    new ColumnWidths(list, {0.3, 0.4, 0.3});
}

void ParameterTable::translate()
{
    QStringList headers;
    for (const int number : kHeaderTexts)
        headers << languageString(number);
    m_list->setHorizontalHeaderLabels(headers);
    m_list->horizontalHeaderItem(kNameColumn)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int row = 0; row < rowCount(); ++row) {
        const auto& [label, unit] = m_rows[static_cast<std::size_t>(row)];
        m_list->item(row, kNameColumn)->setText(textOf(label));
        m_list->item(row, kUnitColumn)->setText(textOf(unit));
    }
}

QString ParameterTable::value(int row) const
{
    return m_list->item(row, kValueColumn)->text();
}

void ParameterTable::setValue(int row, const QString& text)
{
    m_list->item(row, kValueColumn)->setText(text);
}

void ParameterTable::setEditable(int row, bool editable)
{
    QTableWidgetItem* item = m_list->item(row, kValueColumn);
    item->setFlags(item->flags().setFlag(Qt::ItemIsEditable, editable));
}

} // namespace pelorin
