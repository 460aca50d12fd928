#pragma once

#include "pages/SensorPage.h"
#include "sensor/CompensationEntry.h"

#include <QList>

class QAction;
class QTableWidget;
class QTableWidgetItem;

namespace pelorin {

class CellEditor;

/// The two compensation tables, kept in the cells of their lists. The lookup table can be written
/// to a file and read from one; the compensation array is on the screen only. Blocks of cells are
/// copied and pasted as spreadsheets exchange them. A number that the file cannot hold is marked.
class TempCompDataPage final : public SensorPage
{
    Q_OBJECT

public:
    TempCompDataPage();

    /// Whether a cell of either table holds what neither came from a file nor was written to one.
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
    [[nodiscard]] bool isEntry(const QTableWidget& list, int row, int column) const;
    [[nodiscard]] bool mayReadOver(int rows);
    void keepAsInFile(int rows);
    [[nodiscard]] QStringList cellsOtherThanTyped() const;
    void addClipboardActions(QTableWidget& list);
    void paste(QTableWidget& list);
    void markTyped();
    void markCell(QTableWidgetItem& cell);

    QTableWidget* m_lookupList = nullptr;
    QTableWidget* m_arrayList = nullptr;
    CellEditor* m_editor = nullptr; ///< one over both lists
    QList<QAction*> m_copyActions;
    QList<QAction*> m_pasteActions;
};

} // namespace pelorin
