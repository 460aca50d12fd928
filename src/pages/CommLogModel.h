#pragma once

#include "link/CommLog.h"

#include <QAbstractListModel>

namespace pelorin {

/// The lines of the communications log as they were at one moment, one row each.
class CommLogModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setLines(CommLog::Snapshot lines);
    [[nodiscard]] const CommLog::Snapshot& lines() const { return m_lines; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    CommLog::Snapshot m_lines;
};

} // namespace pelorin
