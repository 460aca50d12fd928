#include "backup/EarlierStatesDialog.h"

#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/TableCells.h"
#include "sensor/JournalWords.h"
#include "sensor/ParameterWords.h"
#include "sensor/SafeWriter.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

constexpr int kPutBackButton = 1;
constexpr int kCloseButton = 2;
constexpr int kOnlyConnectedBox = 1080;
constexpr int kEntryList = 1081;
constexpr int kSummaryLabel = 1082;
constexpr int kDetailList = 1083;
constexpr int kNoteLabel = 1084;
constexpr int kDeleteButton = 1085;

constexpr QSize kSize(1160, 640); ///< logical pixels
constexpr int kRowMargin = 6;     ///< logical pixels

QString wordsOf(const SensorValues& values)
{
    QByteArray ids;
    for (const auto& value : values)
        ids.append(value.first);
    return parametersInWords(ids);
}

QString factoryText(const JournalEntry& entry)
{
    return parameterText('F', textOf(entry.values, 'F'));
}

QString typeInWords(const JournalEntry& entry)
{
    const QString type = QString::number(entry.ssiType);
    return entry.typeChosen ? languageString(strings::kTypeChosenByHand).arg(type) : type;
}

QString versionInWords(const QByteArray& version)
{
    return QStringLiteral("%1 (%2)").arg(revisionText(version), QString::fromLatin1(version));
}

/// The parameters of an entry in the order of the first page, then what its type does not have.
QByteArray idsOf(const JournalEntry& entry)
{
    const std::string_view known = sensorType(entry.ssiType).information;
    QByteArray ids;
    const auto has = [&entry](char id) {
        return entry.values.find(id) != entry.values.end() ||
               entry.written.find(id) != entry.written.end();
    };
    std::copy_if(known.begin(), known.end(), std::back_inserter(ids), has);
    for (const auto* values : {&entry.values, &entry.written}) {
        for (const auto& [id, text] : *values) {
            if (!ids.contains(id))
                ids.append(id);
        }
    }
    return ids;
}

void setRow(QTableWidget& list, int row, const QStringList& texts)
{
    for (int column = 0; column < list.columnCount(); ++column)
        setReadOnlyCell(list, row, column, texts.value(column));
}

/// A value in words and as the sensor has answered it, or is sent it; two empty texts without one.
QStringList cellsOf(char id, const SensorValues& values, const SensorValues& all)
{
    const auto value = values.find(id);
    if (value == values.end())
        return {QString(), QString()};
    return {valueInWords(id, value->second, all), QString::fromLatin1(value->second)};
}

} // namespace

EarlierStatesDialog::EarlierStatesDialog(QWidget* parent, const SafeWriter& writer, QString shown)
    : BaseDialog(QStringLiteral("128_EarlierStates"), parent), m_writer(writer),
      m_shown(std::move(shown))
{
}

void EarlierStatesDialog::setupTranslationMap()
{
    setTitleString(strings::kEarlierStatesTitle);
    addToTranslationMap(kOnlyConnectedBox, strings::kOnlyConnected);
    addToTranslationMap(kPutBackButton, strings::kPutBack);
    addToTranslationMap(kDeleteButton, strings::kDeleteEntry);
    addToTranslationMap(kCloseButton, strings::kClose);
    addAccessibleName(kEntryList, strings::kEarlierStatesTitle);
    addAccessibleName(kDetailList, strings::kSensorValuesName);
}

void EarlierStatesDialog::onInitDialog()
{
    m_onlyConnected = getControl<QCheckBox>(kOnlyConnectedBox);
    m_list = getControl<QTableWidget>(kEntryList);
    m_details = getControl<QTableWidget>(kDetailList);
    m_summary = getControl<QLabel>(kSummaryLabel);
    m_note = getControl<QLabel>(kNoteLabel);
    m_putBack = getControl<QPushButton>(kPutBackButton);
    m_delete = getControl<QPushButton>(kDeleteButton);
    m_list->setColumnCount(8);
    m_details->setColumnCount(5);
    new ColumnWidths(*m_list, {0.11, 0.16, 0.095, 0.085, 0.095, 0.13, 0.14, 0.185});
    new ColumnWidths(*m_details, {0.21, 0.27, 0.125, 0.27, 0.125});
    const QFontMetrics& metrics = m_list->fontMetrics();
    m_list->verticalHeader()->setDefaultSectionSize(2 * metrics.lineSpacing() + kRowMargin);
    m_details->verticalHeader()->setMinimumSectionSize(metrics.height() + kRowMargin);
    m_details->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    resize(kSize.expandedTo(sizeHint()));

    connect(m_list, &QTableWidget::itemSelectionChanged, this, &EarlierStatesDialog::showDetails);
    connect(m_onlyConnected, &QCheckBox::clicked, this, [this] {
        const JournalEntry* entry = selected();
        fill(entry ? entry->id : QString());
    });
    connect(m_delete, &QPushButton::clicked, this, &EarlierStatesDialog::remove);
    connect(&m_writer.runner(), &SequenceRunner::busyChanged, this,
            &EarlierStatesDialog::updateButtons);
    fill(m_shown);
}

void EarlierStatesDialog::translate()
{
    BaseDialog::translate();
    const auto text = [](int number) { return languageString(number); };
    m_list->setHorizontalHeaderLabels(
        {text(strings::kTimeHeader), text(strings::kDeviceHeader), text(strings::kTypeOfSensor),
         text(strings::kRevisionHeader), text(strings::kFactoryText), text(strings::kWriterHeader),
         text(strings::kWrittenHeader), text(strings::kOutcomeHeader)});
    const QString before = text(strings::kBeforeHeader);
    const QString written = text(strings::kWrittenHeader);
    const QString raw = text(strings::kRawHeader);
    m_details->setHorizontalHeaderLabels(
        {text(strings::kParameterHeader), before, raw.arg(before), written, raw.arg(written)});
    for (int row = 0; row < m_list->rowCount(); ++row)
        showEntry(row);
    showNotes();
    showDetails();
}

const JournalEntry* EarlierStatesDialog::selected() const
{
    const QList<QTableWidgetSelectionRange> ranges = m_list->selectedRanges();
    return ranges.isEmpty() ? nullptr : &m_entries.at(ranges.constFirst().topRow());
}

/// Reads the journal anew.
/// @param selected the entry to select; else the newest is
void EarlierStatesDialog::fill(const QString& selected)
{
    const bool identified = m_writer.runner().link().isIdentified();
    m_onlyConnected->setEnabled(identified);
    const QSignalBlocker blocker(m_list); // rows and entries do not go together on the way
    auto [entries, unreadable] = m_writer.journal().contents();
    m_unreadable = unreadable;
    if (identified && m_onlyConnected->isChecked())
        entries.removeIf([this](auto& entry) { return !m_writer.isConnected(entry); });
    m_entries = entries;
    m_list->setRowCount(static_cast<int>(m_entries.size()));
    int row = 0;
    for (int at = 0; at < m_list->rowCount(); ++at) {
        showEntry(at);
        if (m_entries.at(at).id == selected)
            row = at;
    }
    m_list->selectRow(row);
    m_list->setCurrentCell(row, 0);

    showNotes();
    showDetails();
}

void EarlierStatesDialog::showNotes()
{
    QStringList notes{m_problem};
    if (m_unreadable > 0) {
        notes << languageString(strings::kEntriesNotRead)
                     .arg(m_writer.journal().folder(), QString::number(m_unreadable));
    }
    notes.removeAll(QString());
    m_note->setText(notes.join(QLatin1Char('\n')));
    m_note->setVisible(!notes.isEmpty());
}

void EarlierStatesDialog::showEntry(int row)
{
    const JournalEntry& entry = m_entries.at(row);
    setRow(*m_list, row,
           {timeInWords(entry), deviceInWords(entry), typeInWords(entry),
            versionInWords(entry.version), factoryText(entry), writerInWords(entry.by),
            wordsOf(entry.written), outcomeInWords(entry).replace(u'\n', u' ')});
}

void EarlierStatesDialog::showDetails()
{
    updateButtons();
    const JournalEntry* entry = selected();
    m_summary->setText(entry ? deviceInWords(*entry) + u'\n' + outcomeInWords(*entry) : QString());
    const QByteArray ids = entry ? idsOf(*entry) : QByteArray();
    m_details->setRowCount(static_cast<int>(ids.size()));
    for (int row = 0; row < m_details->rowCount(); ++row) {
        const char id = ids.at(row);
        const SensorValues after = overlaid(entry->values, entry->written);
        setRow(*m_details, row,
               QStringList{parameterInWords(id)} + cellsOf(id, entry->values, entry->values) +
                   cellsOf(id, entry->written, after));
    }
}

void EarlierStatesDialog::updateButtons()
{
    m_putBack->setEnabled(canBePutBack());
    m_delete->setEnabled(selected() != nullptr);
}

bool EarlierStatesDialog::canBePutBack() const
{
    const SequenceRunner& runner = m_writer.runner();
    const JournalEntry* entry = selected();
    return entry && runner.link().isIdentified() && runner.link().ssiType() == entry->ssiType &&
           !runner.isBusy() && !runner.isConnectWanted() && !m_writer.isRunning();
}

/// The sensor may have gone since the button was last looked after.
void EarlierStatesDialog::accept()
{
    if (canBePutBack())
        return BaseDialog::accept();
    m_problem = languageString(m_writer.runner().link().isIdentified() ? strings::kBeingConnected
                                                                       : strings::kNotIdentified);
    showNotes();
    updateButtons();
}

void EarlierStatesDialog::remove()
{
    const JournalEntry entry = *selected();
    const auto answer =
        messageBox(this, languageString(strings::kAskToDelete).arg(timeInWords(entry)),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::Question);
    if (answer != QMessageBox::Yes)
        return;
    const auto next = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                   [&entry](auto& other) { return other.id == entry.id; });
    const qsizetype row = next - m_entries.cbegin();
    m_problem = m_writer.journal().remove(entry).message();
    const QString neighbour = m_problem.isEmpty() ? m_entries.value(row + 1).id : entry.id;
    fill(neighbour);
}

} // namespace pelorin
