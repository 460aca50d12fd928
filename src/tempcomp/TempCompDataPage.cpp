#include "tempcomp/TempCompDataPage.h"

#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/CellEditor.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/RowHeights.h"
#include "platform/ui/TableCells.h"
#include "sensor/LookupTableFile.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace pelorin {

namespace {

constexpr int kEnableBox = 1056;
constexpr int kLookupCaption = 1057;
constexpr int kLookupList = 1058;
constexpr int kLookupToSensorButton = 1059;
constexpr int kLookupToFileButton = 1060;
constexpr int kLookupFromFileButton = 1061;
constexpr int kArrayCaption = 1062;
constexpr int kArrayList = 1063;
constexpr int kArrayToSensorButton = 1067;
constexpr int kArrayToFileButton = 1068;
constexpr int kArrayFromFileButton = 1069;

/// Controls that have no function yet.
constexpr std::array kIdleControls = {kEnableBox, kLookupToSensorButton, kArrayToSensorButton,
                                      kArrayToFileButton, kArrayFromFileButton};

constexpr std::array kLookupHeaderTexts = {strings::kLookupRow, strings::kLookupPoint,
                                           strings::kLookupValue};

constexpr int kRowCount = 10;
constexpr int kRowPadding = 8; ///< room for the editor's frame
constexpr int kPointColumn = 1;
constexpr int kValueColumn = 2;
constexpr int kArrayColumnCount = 11;
constexpr int kInFileRole = Qt::UserRole; ///< of a cell: its text that is in a file, too

/// Numbers the rows; all other cells start empty and can be edited.
void fillRows(QTableWidget& list)
{
    list.setRowCount(kRowCount);
    for (int row = 0; row < kRowCount; ++row) {
        auto* number = new QTableWidgetItem(QString::number(row));
        number->setFlags(number->flags() & ~Qt::ItemIsEditable);
        list.setItem(row, 0, number);
        for (int column = 1; column < list.columnCount(); ++column) {
            auto* cell = new QTableWidgetItem;
            cell->setTextAlignment(Qt::AlignCenter);
            list.setItem(row, column, cell);
        }
    }
    list.verticalHeader()->setDefaultSectionSize(list.fontMetrics().height() + kRowPadding);
    new RowHeights(list);
    list.setMinimumHeight(list.horizontalHeader()->sizeHint().height() +
                          kRowCount * RowHeights::smallest(list) +
                          2 * list.frameWidth()); // a page without that room is scrolled
    const int columns = list.columnCount();
    new ColumnWidths(list, std::vector(static_cast<std::size_t>(columns), 1.0 / columns));
}

void setHeaders(QTableWidget& list, const QStringList& headers)
{
    list.setHorizontalHeaderLabels(headers);
    list.horizontalHeaderItem(0)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

/// What the file will hold for a text that it cannot hold as it was typed; empty for any other. An
/// empty cell is a 0.
QString keptInstead(int column, const QString& typed)
{
    const QString number = typed.trimmed();
    const auto [point, value] = textsOf(entryOf({typed, typed}));
    const QString kept = column == kPointColumn ? point : value;
    return number.isEmpty() || intlAtof(number) == intlAtof(kept) ? QString() : kept;
}

QString explanationOf(const QString& kept)
{
    return kept.isEmpty() ? QString() : languageString(strings::kFileWillHold).arg(kept);
}

/// Has the user choose a lookup-table file.
/// @return its path, empty if the user cancels
QString chooseTable(QWidget* parent, int captionText, QFileDialog::AcceptMode acceptMode)
{
    return chooseFile(parent, acceptMode, languageString(captionText),
                      languageString(strings::kTableFileFilter), QStringLiteral("csv"));
}

} // namespace

TempCompDataPage::TempCompDataPage() : SensorPage(QStringLiteral("DLG_PELORIN_TEMPCOMP_DATA")) {}

void TempCompDataPage::setupTranslationMap()
{
    addToTranslationMap(kEnableBox, strings::kEnableCompensation);
    addToTranslationMap(kLookupCaption, strings::kLookupTable);
    addAccessibleName(kLookupList, strings::kLookupTable);
    addToTranslationMap(kArrayCaption, strings::kCompensationArray);
    addAccessibleName(kArrayList, strings::kCompensationArray);
    for (const int button : {kLookupToSensorButton, kArrayToSensorButton})
        addToTranslationMap(button, strings::kWriteToSensor);
    for (const int button : {kLookupToFileButton, kArrayToFileButton})
        addToTranslationMap(button, strings::kWriteToFile);
    for (const int button : {kLookupFromFileButton, kArrayFromFileButton})
        addToTranslationMap(button, strings::kReadFromFile);
}

void TempCompDataPage::onInitDialog()
{
    m_lookupList = getControl<QTableWidget>(kLookupList);
    m_lookupList->setColumnCount(static_cast<int>(kLookupHeaderTexts.size()));
    fillRows(*m_lookupList);
    m_arrayList = getControl<QTableWidget>(kArrayList);
    m_arrayList->setColumnCount(kArrayColumnCount);
    fillRows(*m_arrayList);

    m_editor = new CellEditor(this, CellEditor::Keys::Move);
    for (QTableWidget* list : {m_lookupList, m_arrayList}) {
        m_editor->attach(list);
        addClipboardActions(*list);
    }
    connect(m_editor, &CellEditor::typed, this, &TempCompDataPage::markTyped);
    connect(m_editor, &CellEditor::blockPasted, this, [this] {
        paste(m_editor->cell().model() == m_lookupList->model() ? *m_lookupList : *m_arrayList);
    });
    connect(m_lookupList, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* cell) { markCell(*cell); });

    connect(getControl<QAbstractButton>(kLookupToFileButton), &QAbstractButton::clicked, this,
            &TempCompDataPage::writeToFile);
    connect(getControl<QAbstractButton>(kLookupFromFileButton), &QAbstractButton::clicked, this,
            &TempCompDataPage::readFromFile);
    for (const int control : kIdleControls)
        getControl<QWidget>(control)->setEnabled(false);
}

void TempCompDataPage::translate()
{
    SensorPage::translate();
    QStringList lookupHeaders;
    for (const int text : kLookupHeaderTexts)
        lookupHeaders << languageString(text);
    setHeaders(*m_lookupList, lookupHeaders);

    QStringList arrayHeaders{languageString(strings::kArrayRow)};
    for (int column = 1; column < kArrayColumnCount; ++column)
        arrayHeaders << languageString(strings::kArrayValue).arg(column - 1);
    setHeaders(*m_arrayList, arrayHeaders);

    for (const int control : kIdleControls)
        getControl<QWidget>(control)->setToolTip(languageString(strings::kNoFunction));
    for (QAction* copy : m_copyActions)
        copy->setText(languageString(strings::kCopy));
    for (QAction* paste : m_pasteActions)
        paste->setText(languageString(strings::kPaste));
    for (int cell = 0; cell < kRowCount * m_lookupList->columnCount(); ++cell)
        markCell(*m_lookupList->item(cell % kRowCount, cell / kRowCount));
}

void TempCompDataPage::addClipboardActions(QTableWidget& list)
{
    m_copyActions << addCopyAction(list);
    auto* action = new QAction(&list);
    action->setShortcut(QKeySequence::Paste);
    action->setShortcutContext(Qt::WidgetShortcut);
    list.addAction(action);
    m_pasteActions << action;
    connect(action, &QAction::triggered, this, [this, &list] { paste(list); });
}

/// From the open or the first selected cell on; the row numbers stay.
void TempCompDataPage::paste(QTableWidget& list)
{
    m_editor->commit();
    const auto selected = list.selectedRanges();
    const int firstRow = selected.isEmpty() ? 0 : selected.first().topRow();
    const int firstColumn = selected.isEmpty() ? 1 : qMax(1, selected.first().leftColumn());
    bool whole = true;
    int row = firstRow;
    for (const QStringList& texts : cellsOf(QGuiApplication::clipboard()->text())) {
        int column = firstColumn;
        for (const QString& text : texts) {
            if (QTableWidgetItem* cell = list.item(row, column++)) {
                cell->setText(text);
            } else {
                whole = false;
            }
        }
        ++row;
    }
    if (!whole)
        warn(window(), languageString(strings::kCellsLeftOut));
}

void TempCompDataPage::markTyped()
{
    const QModelIndex cell = m_editor->cell();
    if (cell.model() != m_lookupList->model())
        return;
    const QString typed = m_editor->text(*m_lookupList, cell.row(), cell.column());
    m_editor->mark(explanationOf(keptInstead(cell.column(), typed)));
}

void TempCompDataPage::markCell(QTableWidgetItem& cell)
{
    if (cell.column() < kPointColumn)
        return;
    const QSignalBlocker marking(m_lookupList);
    const QString explanation = explanationOf(keptInstead(cell.column(), cell.text()));
    cell.setToolTip(explanation);
    cell.setData(Qt::AccessibleDescriptionRole, explanation);
    cell.setIcon(explanation.isEmpty() ? QIcon()
                                       : style()->standardIcon(QStyle::SP_MessageBoxWarning));
}

bool TempCompDataPage::isEntry(const QTableWidget& list, int row, int column) const
{
    const QString text = m_editor->text(list, row, column);
    return !text.isEmpty() && text != list.item(row, column)->data(kInFileRole).toString();
}

bool TempCompDataPage::hasEntries() const
{
    for (const QTableWidget* list : {m_lookupList, m_arrayList}) {
        for (int row = 0; row < kRowCount; ++row) {
            for (int column = 1; column < list->columnCount(); ++column) {
                if (isEntry(*list, row, column))
                    return true;
            }
        }
    }
    return false;
}

void TempCompDataPage::writeToFile()
{
    m_editor->commit();
    const QString path = chooseTable(window(), strings::kWriteToFile, QFileDialog::AcceptSave);
    if (path.isEmpty())
        return;
    const WholeFile::Outcome outcome = writeLookupTableFile(path, lookupTable());
    if (!outcome.isDone()) {
        warn(window(), outcome.message());
        return;
    }
    keepAsInFile(kRowCount);
    const QStringList cells = cellsOtherThanTyped();
    if (!cells.isEmpty()) {
        warn(window(), languageString(strings::kOtherThanTyped) + QStringLiteral("\n\n") +
                           cells.join(QLatin1Char('\n')));
    }
}

void TempCompDataPage::readFromFile()
{
    const QString path = chooseTable(window(), strings::kReadFromFile, QFileDialog::AcceptOpen);
    if (path.isEmpty())
        return;
    const auto [outcome, table] = readLookupTableFile(path);
    if (!outcome.isDone()) {
        warn(window(), outcome.message());
    } else if (!table) {
        warn(window(), languageString(strings::kNotATable));
    } else if (mayReadOver(std::min(static_cast<int>(table->size()), kRowCount))) {
        showLookupTable(*table);
    }
}

/// What the user has entered is replaced by nobody else: asks.
bool TempCompDataPage::mayReadOver(int rows)
{
    bool entered = false;
    for (int row = 0; row < rows; ++row) {
        for (const int column : {kPointColumn, kValueColumn})
            entered |= isEntry(*m_lookupList, row, column);
    }
    return !entered ||
           askWithButtons(window(), languageString(strings::kAskToReadOver),
                          {languageString(strings::kStay), languageString(strings::kDiscard)},
                          0) == 1;
}

void TempCompDataPage::keepAsInFile(int rows)
{
    for (int row = 0; row < rows; ++row) {
        for (const int column : {kPointColumn, kValueColumn}) {
            QTableWidgetItem* cell = m_lookupList->item(row, column);
            cell->setData(kInFileRole, cell->text());
        }
    }
}

CompensationTable TempCompDataPage::lookupTable() const
{
    CompensationTable table;
    for (int row = 0; row < kRowCount; ++row) {
        table.push_back(entryOf({m_lookupList->item(row, kPointColumn)->text(),
                                 m_lookupList->item(row, kValueColumn)->text()}));
    }
    return table;
}

/// Rows beyond the table's last entry keep their texts.
void TempCompDataPage::showLookupTable(const CompensationTable& table)
{
    const int entryCount = static_cast<int>(table.size());
    const int rows = std::min(entryCount, kRowCount);
    for (int row = 0; row < rows; ++row) {
        const auto [point, value] = textsOf(table[static_cast<std::size_t>(row)]);
        m_lookupList->item(row, kPointColumn)->setText(point);
        m_lookupList->item(row, kValueColumn)->setText(value);
    }
    keepAsInFile(rows);
    if (entryCount > kRowCount) {
        warn(window(), languageString(strings::kRowsIgnored)
                           .arg(QString::number(entryCount), QString::number(kRowCount),
                                QString::number(entryCount - kRowCount)));
    }
}

/// What was written for each cell that does not hold just that number.
QStringList TempCompDataPage::cellsOtherThanTyped() const
{
    const auto header = [this](int column) {
        return m_lookupList->horizontalHeaderItem(column)->text();
    };
    QStringList cells;
    for (int row = 0; row < kRowCount; ++row) {
        for (const int column : {kPointColumn, kValueColumn}) {
            const QString kept = keptInstead(column, m_lookupList->item(row, column)->text());
            if (!kept.isEmpty()) {
                cells << QStringLiteral("%1 %2, %3: %4")
                             .arg(header(0), QString::number(row), header(column), kept);
            }
        }
    }
    return cells;
}

} // namespace pelorin
