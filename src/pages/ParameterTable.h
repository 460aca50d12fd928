#pragma once

#include <QString>

#include <span>
#include <vector>

class QTableWidget;

namespace pelorin {

/// A list of parameters, one a row: its name, its value and its unit. The list fills its width and
/// is named in the current language; values are set by row.
class ParameterTable
{
public:
    /// String numbers, 0 for none.
    struct Row
    {
        int label;
        int unit;
    };

    /// @param list of the page's form, which outlives this object
    void attach(QTableWidget& list, std::span<const Row> rows);
    void translate();

    [[nodiscard]] int rowCount() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QString value(int row) const;
    void setValue(int row, const QString& text);
    /// Whether the user may edit the value; at first none may be.
    void setEditable(int row, bool editable);

private:
    QTableWidget* m_list = nullptr;
    std::vector<Row> m_rows;
};

} // namespace pelorin
