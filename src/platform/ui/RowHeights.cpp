#include "platform/ui/RowHeights.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kSmallestMargin = 4; ///< logical pixels above and below a line of text

} // namespace

RowHeights::RowHeights(QTableView& list)
    : QObject(&list), m_list(list), m_largest(list.verticalHeader()->defaultSectionSize())
{
    m_list.viewport()->installEventFilter(this);
    apply();
}

int RowHeights::smallest(const QTableView& list)
{
    return list.fontMetrics().height() + kSmallestMargin;
}

bool RowHeights::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        apply();
    return false;
}

void RowHeights::apply()
{
    const int least = smallest(m_list);
    const int rows = std::max(m_list.model()->rowCount(), 1);
    const int height = m_list.viewport()->height() / rows;
    m_list.verticalHeader()->setMinimumSectionSize(least);
    m_list.verticalHeader()->setDefaultSectionSize(
        std::clamp(height, least, std::max(least, m_largest)));
}

} // namespace pelorin
