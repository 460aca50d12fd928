#include "pages/CommLogModel.h"

#include <QDateTime>

#include <utility>

namespace pelorin {

void CommLogModel::setLines(CommLog::Snapshot lines)
{
    const int before = m_lines.size();
    if (before == 0 || lines.first() != m_lines.first()) {
        beginResetModel();
        m_lines = std::move(lines);
        endResetModel();
    } else if (lines.size() > before) {
        beginInsertRows({}, before, lines.size() - 1);
        m_lines = std::move(lines);
        endInsertRows();
    }
}

QString CommLogModel::timeText(int row) const
{
    return QDateTime::fromMSecsSinceEpoch(m_lines.time(row))
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
}

int CommLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

QVariant CommLogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return m_lines.line(index.row());
    return role == Qt::AccessibleDescriptionRole ? timeText(index.row()) : QVariant();
}

} // namespace pelorin
