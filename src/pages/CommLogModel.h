#pragma once

#include "link/CommLog.h"

#include <QAbstractListModel>

namespace pelorin {

/// The lines of the communications log as they were at one moment, one row each. When each came
/// is told beside it.
class CommLogModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Rows of lines that are still there stay what they are.
    void setLines(CommLog::Snapshot lines);
    [[nodiscard]] const CommLog::Snapshot& lines() const { return m_lines; }
    /// When the line of a row came: local time, always as long.
    [[nodiscard]] QString timeText(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    CommLog::Snapshot m_lines;
};

} // namespace pelorin
