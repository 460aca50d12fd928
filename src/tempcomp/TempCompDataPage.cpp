#include "tempcomp/TempCompDataPage.h"

#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/CellEditor.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"
#include "sensor/LookupTableFile.h"

#include <QAbstractButton>
#include <QHeaderView>
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
    const int columns = list.columnCount();
    new ColumnWidths(list, std::vector(static_cast<std::size_t>(columns), 1.0 / columns));
}

void setHeaders(QTableWidget& list, const QStringList& headers)
{
    list.setHorizontalHeaderLabels(headers);
    list.horizontalHeaderItem(0)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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

    m_editor = new CellEditor(this);
    m_editor->attach(m_lookupList);
    m_editor->attach(m_arrayList);

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
}

bool TempCompDataPage::hasEntries() const
{
    for (const QTableWidget* list : {m_lookupList, m_arrayList}) {
        for (int row = 0; row < kRowCount; ++row) {
            for (int column = 1; column < list->columnCount(); ++column) {
                if (!m_editor->text(*list, row, column).isEmpty())
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
    const CompensationTable table = lookupTable();
    const WholeFile::Outcome outcome = writeLookupTableFile(path, table);
    if (!outcome.isDone()) {
        warn(window(), outcome.message());
        return;
    }
    const QStringList cells = cellsOtherThanTyped(table);
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
    } else {
        showLookupTable(*table);
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
    for (int row = 0; row < std::min(entryCount, kRowCount); ++row) {
        const auto [point, value] = textsOf(table[static_cast<std::size_t>(row)]);
        m_lookupList->item(row, kPointColumn)->setText(point);
        m_lookupList->item(row, kValueColumn)->setText(value);
    }
    if (entryCount > kRowCount) {
        warn(window(), languageString(strings::kRowsIgnored)
                           .arg(QString::number(entryCount), QString::number(kRowCount),
                                QString::number(entryCount - kRowCount)));
    }
}

/// What was written for each cell that does not hold just that number; an empty cell is a 0.
QStringList TempCompDataPage::cellsOtherThanTyped(const CompensationTable& written) const
{
    const auto header = [this](int column) {
        return m_lookupList->horizontalHeaderItem(column)->text();
    };
    QStringList cells;
    for (int row = 0; row < kRowCount; ++row) {
        const auto [point, value] = textsOf(written[static_cast<std::size_t>(row)]);
        for (const auto& [column, text] : {std::pair(kPointColumn, point), {kValueColumn, value}}) {
            const QString typed = m_lookupList->item(row, column)->text().trimmed();
            if (!typed.isEmpty() && intlAtof(typed) != intlAtof(text)) {
                cells << QStringLiteral("%1 %2, %3: %4")
                             .arg(header(0), QString::number(row), header(column), text);
            }
        }
    }
    return cells;
}

} // namespace pelorin
