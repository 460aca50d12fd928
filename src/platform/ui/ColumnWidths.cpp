#include "platform/ui/ColumnWidths.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableView>

#include <utility>

namespace pelorin {

ColumnWidths::ColumnWidths(QTableView& list, std::vector<double> shares)
    : QObject(&list), m_list(list), m_shares(std::move(shares))
{
    m_list.horizontalHeader()->setMinimumSectionSize(1);
    m_list.viewport()->installEventFilter(this);
    apply();
}

bool ColumnWidths::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        apply();
    return false;
}

void ColumnWidths::apply()
{
    const int width = m_list.viewport()->width();
    for (std::size_t column = 0; column < m_shares.size(); ++column)
        m_list.setColumnWidth(static_cast<int>(column), static_cast<int>(width * m_shares[column]));
}

} // namespace pelorin
