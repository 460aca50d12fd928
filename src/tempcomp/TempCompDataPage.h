#pragma once

#include "pages/SensorPage.h"
#include "sensor/CompensationEntry.h"

class QTableWidget;

namespace pelorin {

class CellEditor;

/// The two compensation tables, kept in the cells of their lists. The lookup table can be written
/// to a file and read from one; the compensation array is on the screen only.
class TempCompDataPage final : public SensorPage
{
    Q_OBJECT

public:
    TempCompDataPage();

    /// Whether a cell of either table holds anything.
    [[nodiscard]] bool hasEntries() const;

    void translate() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void writeToFile();
    void readFromFile();
    [[nodiscard]] CompensationTable lookupTable() const;
    void showLookupTable(const CompensationTable& table);
    [[nodiscard]] QStringList cellsOtherThanTyped(const CompensationTable& written) const;

    QTableWidget* m_lookupList = nullptr;
    QTableWidget* m_arrayList = nullptr;
    CellEditor* m_editor = nullptr; ///< one over both lists
};

} // namespace pelorin
