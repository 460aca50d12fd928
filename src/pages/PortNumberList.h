#pragma once

#include "sensor/Settings.h"

class QTableWidget;

namespace pelorin {

/// The serial devices that are there or that the settings name, and the COM number of each, which
/// the user changes.
class PortNumberList
{
public:
    static constexpr int kNumberColumn = 2;

    /// @param list of a form, with a cell editor; outlives this object
    void attach(QTableWidget& list);

    /// @param ports of the settings
    void show(const QList<PortSetting>& ports);
    /// A typed number alone is a COM number; devices without one, or with the number that they
    /// have anyway, are left out.
    [[nodiscard]] QList<PortSetting> entered() const;
    /// The row of one that was entered.
    [[nodiscard]] int rowOf(qsizetype entered) const;
    void translate();

private:
    struct Row
    {
        QString device;
        QString description;
        QString name; ///< the number that it has now; empty without one
        bool isSet;   ///< by the settings
        bool isPresent;
    };

    [[nodiscard]] QString nameIn(int row) const;

    QTableWidget* m_list = nullptr;
    std::vector<Row> m_rows;
};

} // namespace pelorin
