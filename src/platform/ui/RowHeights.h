#pragma once

#include <QObject>

class QTableView;

namespace pelorin {

/// Gives the rows of a list a height with which all of them are shown, where that is enough to read
/// them. A list that has more rows than room is scrolled.
class RowHeights final : public QObject
{
public:
    /// The rows get their usual height as the largest.
    explicit RowHeights(QTableView& list);

    /// The height in which a row can be read, in logical pixels.
    [[nodiscard]] static int smallest(const QTableView& list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    QTableView& m_list;
    const int m_largest;
};

} // namespace pelorin
