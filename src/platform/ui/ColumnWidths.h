#pragma once

#include <QObject>

#include <vector>

class QTableView;

namespace pelorin {

/// Keeps the columns of a list at fixed shares of its width, whatever its size.
class ColumnWidths final : public QObject
{
public:
    /// @param list gets this object as a child
    /// @param shares of the visible width, one a column; 1 in all
    ColumnWidths(QTableView& list, std::vector<double> shares);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    QTableView& m_list;
    std::vector<double> m_shares;
};

} // namespace pelorin
