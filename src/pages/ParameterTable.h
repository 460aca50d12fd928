#pragma once

#include "pages/FieldMark.h"

#include <QString>

#include <span>
#include <vector>

class QAction;
class QTableWidget;

namespace pelorin {

/// A list of parameters, one a row: its name, its value and its unit. The list fills its width and
/// is named in the current language; values are set by row, and changed by the user. Its rows can
/// be copied.
class ParameterTable
{
public:
    static constexpr int kValueColumn = 1;

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
    /// What was set by the program, whatever the user has made of it.
    [[nodiscard]] const QString& original(int row) const { return at(row).original; }
    /// What the table shows counts as set by the program.
    void acceptValues();
    void restoreValues();
    [[nodiscard]] QString label(int row) const;
    void mark(int row, const FieldMark& mark);
    /// Whether the user may edit the value; at first none may be.
    void setEditable(int row, bool editable);

private:
    /// A row of the table.
    struct Parameter
    {
        Row texts;
        QString original{};
        FieldMark mark{};
    };

    [[nodiscard]] const Parameter& at(int row) const
    {
        return m_rows[static_cast<std::size_t>(row)];
    }
    void showLabel(int row);

    QTableWidget* m_list = nullptr;
    QAction* m_copy = nullptr;
    std::vector<Parameter> m_rows;
};

} // namespace pelorin
