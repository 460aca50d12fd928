#include "pages/CommLogModel.h"

#include <utility>

namespace pelorin {

void CommLogModel::setLines(CommLog::Snapshot lines)
{
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

int CommLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

QVariant CommLogModel::data(const QModelIndex& index, int role) const
{
    return role == Qt::DisplayRole && index.isValid() ? m_lines.line(index.row()) : QVariant();
}

} // namespace pelorin
