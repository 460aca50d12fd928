#include "backup/ReviewDialog.h"

#include "link/SensorIdentification.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/core/WholeFile.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/TableCells.h"
#include "sensor/Comparison.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace pelorin {

namespace {

using Refusal = RestoreChoice::Refusal;
using State = ComparedParameter::State;
using Purpose = ReviewDialog::Purpose;

constexpr int kWriteControl = 1;
constexpr int kCancelControl = 2;
constexpr int kSourceControl = 1060;
constexpr int kTableControl = 1061;
constexpr int kSuggestionControl = 1062;
constexpr int kAllControl = 1063;
constexpr int kOutputControl = 1064;
constexpr int kRefusalControl = 1065;
constexpr int kNoteControl = 1066;
constexpr int kSaveControl = 1067;
constexpr int kRowMargin = 6; ///< logical pixels

enum Column { kName, kSensor, kSaved, kSensorWords, kSavedWords, kState, kWritten, kColumns };
const std::vector<double> kShares = {0.16, 0.08, 0.08, 0.2, 0.2, 0.1, 0.18};
const std::vector<double> kSharesWithoutWritten = {0.2, 0.1, 0.1, 0.25, 0.25, 0.1, 0.0};
const std::vector<double> kSharesOfFile = {0.3, 0.0, 0.2, 0.0, 0.5, 0.0, 0.0};
constexpr std::array kColumnsOfSensor = {kSensor, kSensorWords, kState};

/// Every parameter of the type; of a file alone, those that it has.
std::vector<ComparedParameter> rowsOf(const ReviewDialog::Review& review)
{
    if (review.purpose == Purpose::Show) {
        std::string ids;
        for (const char id : sensorType(kSsiTypeUnknown).information)
            ids += std::string(review.saved.count(id), id);
        return compare(ids, {}, review.saved);
    }
    return compare(sensorType(review.ssiType).information, review.sensor, review.saved);
}

} // namespace

ReviewDialog::ReviewDialog(QWidget* parent, Review review)
    : BaseDialog(QStringLiteral("126_Review"), parent), m_review(std::move(review)),
      m_all(chooseAll(m_review.ssiType, m_review.sensor, m_review.saved,
                      m_review.purpose == Purpose::PutBack)),
      m_outputSettings(chooseOutputSettings(m_review.ssiType, m_review.sensor, m_review.saved)),
      m_unlike(unlikeSaved(m_review.ssiType, m_review.sensor, m_review.saved))
{
}

const RestoreChoice& ReviewDialog::choice() const
{
    static const RestoreChoice kNothing{.refusal = Refusal::NotSaved};
    if (m_review.purpose == Purpose::PutBack || m_allRadio->isChecked())
        return m_all;
    return m_outputRadio->isChecked() ? m_outputSettings : kNothing;
}

void ReviewDialog::setupTranslationMap()
{
    setTitleString(m_review.purpose == Purpose::Show      ? strings::kBackupFileTitle
                   : m_review.purpose == Purpose::Compare ? strings::kComparison
                                                          : strings::kReviewTitle);
    addToTranslationMap(kWriteControl, strings::kWriteButton);
    addToTranslationMap(kCancelControl, onlyShows() ? strings::kOk : strings::kCancel);
    addToTranslationMap(kAllControl, strings::kAllParameters);
    addToTranslationMap(kOutputControl, strings::kOutputSettingsOnly);
    addToTranslationMap(kSaveControl, strings::kSaveToDisk);
    addAccessibleName(kTableControl, strings::kComparison);
}

void ReviewDialog::onInitDialog()
{
    m_table = getControl<QTableWidget>(kTableControl);
    m_allRadio = getControl<QRadioButton>(kAllControl);
    m_outputRadio = getControl<QRadioButton>(kOutputControl);
    m_table->setRowCount(static_cast<int>(rowsOf(m_review).size()));
    m_table->setColumnCount(kColumns);
    m_table->verticalHeader()->setMinimumSectionSize(m_table->fontMetrics().height() + kRowMargin);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    showColumns();
    for (QRadioButton* radio : {m_allRadio, m_outputRadio}) {
        radio->setVisible(isRestore());
        connect(radio, &QRadioButton::toggled, this, &ReviewDialog::onChosen);
    }
    auto* save = getControl<QPushButton>(kSaveControl);
    save->setVisible(onlyShows());
    connect(save, &QPushButton::clicked, this, &ReviewDialog::saveRows);
    getControl<QPushButton>(kWriteControl)->setVisible(!onlyShows());
    suggest();
}

void ReviewDialog::showColumns()
{
    const bool fileOnly = m_review.purpose == Purpose::Show;
    m_table->setColumnHidden(kWritten, onlyShows());
    for (const int column : kColumnsOfSensor)
        m_table->setColumnHidden(column, fileOnly);
    new ColumnWidths(*m_table, fileOnly      ? kSharesOfFile
                               : onlyShows() ? kSharesWithoutWritten
                                             : kShares);
}

/// All parameters belong to the sensor that they were saved of; another one is asked about.
void ReviewDialog::suggest()
{
    m_outputRadio->setEnabled(m_outputSettings.refusal == Refusal::None);
    m_allRadio->setChecked(isRestore() && m_unlike.isEmpty());
}

void ReviewDialog::translate()
{
    BaseDialog::translate();
    renderHeadings();
    renderTexts();
    onChosen();
}

void ReviewDialog::onChosen()
{
    getControl<QPushButton>(kWriteControl)->setEnabled(choice().refusal == Refusal::None);
    renderRows();
}

void ReviewDialog::renderHeadings()
{
    const QString sensor = languageString(strings::kSensor);
    const QString saved = languageString(
        m_review.purpose == Purpose::PutBack ? strings::kEarlierHeader : strings::kFileHeader);
    const QString inWords = languageString(strings::kInWords);
    m_table->setHorizontalHeaderLabels({languageString(strings::kParameterHeader), sensor, saved,
                                        inWords.arg(sensor), inWords.arg(saved),
                                        languageString(strings::kComparison),
                                        languageString(strings::kToBeWritten)});
}

/// What differs says so in a word, and stands out.
void ReviewDialog::renderRows()
{
    int row = 0;
    for (const ComparedParameter& parameter : rowsOf(m_review)) {
        const QStringList texts = {parameterInWords(parameter.id),
                                   QString::fromLatin1(parameter.sensor),
                                   QString::fromLatin1(parameter.saved),
                                   parameter.sensorInWords,
                                   parameter.savedInWords,
                                   stateText(parameter.state),
                                   writtenText(parameter.id)};
        QFont font = m_table->font();
        font.setBold(parameter.state == State::Differs && m_review.purpose != Purpose::Show);
        for (int column = 0; column < kColumns; ++column)
            setReadOnlyCell(*m_table, row, column, texts[column]).setFont(font);
        ++row;
    }
}

QString ReviewDialog::writtenText(char id) const
{
    const RestoreChoice& chosen = choice();
    if (chosen.refusal != Refusal::None)
        return {};
    const auto value = chosen.values.find(id);
    QString text = languageString(strings::kStays);
    if (value != chosen.values.end()) {
        text = QString::fromLatin1(value->second);
        text += QStringLiteral(" = ");
        text += valueInWords(id, value->second, overlaid(m_review.sensor, chosen.values));
    }
    if (const auto origin = chosen.origins.find(id); origin != chosen.origins.end())
        text += QStringLiteral(": ") + languageString(textNumberOf(origin->second));
    return text;
}

void ReviewDialog::renderTexts()
{
    const auto show = [this](int control, const QString& text) {
        auto* label = getControl<QLabel>(control);
        label->setText(text);
        label->setVisible(!text.isEmpty());
    };
    QStringList notes;
    QByteArray missing;
    for (const char id : std::string_view("FV")) {
        if (m_review.saved.find(id) == m_review.saved.end())
            missing += id;
    }
    if (m_review.purpose != Purpose::PutBack && !missing.isEmpty())
        notes << languageString(strings::kNotInBackup).arg(parametersInWords(missing));
    QByteArray unknown;
    for (const auto& [id, value] : m_review.saved) {
        if (!sensorType(m_review.ssiType).has(id))
            unknown += id;
    }
    if (isRestore() && !unknown.isEmpty())
        notes << languageString(strings::kNotOfThisType).arg(parametersInWords(unknown));
    if (!onlyShows() && asksForStream(m_review.saved))
        notes << languageString(strings::kStreamNotWritten);
    show(kSourceControl, m_review.source);
    show(kNoteControl, notes.join(QLatin1Char('\n')));
    show(kSuggestionControl, suggestionText());
    show(kRefusalControl, isRestore() ? refusalText(m_outputSettings) : QString());
}

QString ReviewDialog::suggestionText() const
{
    const QString unlike = parametersInWords(m_unlike);
    switch (m_review.purpose) {
    case Purpose::Restore:
        return unlike.isEmpty() ? languageString(strings::kSameSensor)
                                : languageString(strings::kPerhapsAnotherSensor).arg(unlike);
    case Purpose::PutBack:
        return unlike.isEmpty() ? QString() : languageString(strings::kNotAsThen).arg(unlike);
    case Purpose::Compare:
    case Purpose::Show:
        break;
    }
    return {};
}

void ReviewDialog::saveRows()
{
    const QString path =
        chooseFile(this, QFileDialog::AcceptSave, languageString(strings::kSaveToDisk),
                   languageString(strings::kComparisonFilter), QStringLiteral("csv"));
    if (path.isNull())
        return;
    const auto rows = rowsOf(m_review);
    if (const auto saved = WholeFile(path).save(m_review.purpose == Purpose::Show ? csvOfSaved(rows)
                                                                                  : csvOf(rows));
        !saved.isDone())
        warn(this, saved.message());
}

} // namespace pelorin
