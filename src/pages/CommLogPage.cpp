#include "pages/CommLogPage.h"

#include "link/CommLogFile.h"
#include "link/SensorLink.h"
#include "pages/CommLogModel.h"
#include "pages/LogSearch.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/KeptChoice.h"
#include "platform/ui/MessageBox.h"
#include "sensor/LogLineWords.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStyledItemDelegate>

#include <algorithm>
#include <chrono>
#include <optional>
#include <tuple>
#include <utility>

namespace pelorin {

namespace {

constexpr int kLogList = 1032;
constexpr int kClearButton = 1033;
constexpr int kSaveButton = 1034;
constexpr int kFindLabel = 1040;
constexpr int kFindEdit = 1041;
constexpr int kPreviousButton = 1042;
constexpr int kNextButton = 1043;
constexpr int kFoundLabel = 1044;
constexpr int kFollowBox = 1045;
constexpr int kWordsCaption = 1046;
constexpr int kWordsLabel = 1047;
constexpr int kDroppedLabel = 2032;

constexpr int kLinesOfWords = 2; ///< room for that many
constexpr std::chrono::milliseconds kFollowingPeriod{300};

/// Puts the time before each line, in a column, since all times are of the same length. Makes every
/// line as wide as the longest: the list asks for the size of one line only, and scrolls sideways
/// as far as that.
class LineDelegate final : public QStyledItemDelegate
{
public:
    LineDelegate(const CommLogModel& model, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model)
    {
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override
    {
        const QSize hint = QStyledItemDelegate::sizeHint(option, index);
        const QString longest(m_model.lines().longestLine(), QLatin1Char('0'));
        const QFontMetrics& metrics = option.fontMetrics;
        const int padding = hint.width() - metrics.horizontalAdvance(index.data().toString());
        return {metrics.horizontalAdvance(longest) + padding, hint.height()};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = m_model.timeText(index.row()) + QStringLiteral("   ") + option->text;
    }

private:
    const CommLogModel& m_model;
};

} // namespace

CommLogPage::CommLogPage() : SensorPage(QStringLiteral("DLG_PELORIN_COMLOG_PAGE")) {}

void CommLogPage::setupTranslationMap()
{
    addToTranslationMap(kClearButton, strings::kClear);
    addToTranslationMap(kSaveButton, strings::kSaveToDisk);
    addToTranslationMap(kFindLabel, strings::kFind);
    addToTranslationMap(kPreviousButton, strings::kFindPrevious);
    addToTranslationMap(kNextButton, strings::kFindNext);
    addToTranslationMap(kFollowBox, strings::kFollow);
    addToTranslationMap(kWordsCaption, strings::kLineInWords);
    addAccessibleName(kLogList, strings::kCommLog);
}

void CommLogPage::onInitDialog()
{
    m_model = new CommLogModel(this);
    m_search = new LogSearch(this);
    m_logList = getControl<QListView>(kLogList);
    m_findEdit = getControl<QLineEdit>(kFindEdit);
    m_foundLabel = getControl<QLabel>(kFoundLabel);
    m_wordsLabel = getControl<QLabel>(kWordsLabel);
    m_followBox = getControl<QCheckBox>(kFollowBox);
    keepChoice(*m_followBox, QStringLiteral("FollowLog"));
    m_wordsLabel->setMinimumHeight(kLinesOfWords * m_wordsLabel->fontMetrics().lineSpacing());

    connectList();
    connectSearch();
    addCopyActions();
    connect(m_followBox, &QCheckBox::toggled, this, &CommLogPage::follow);
    connect(&m_following, &QTimer::timeout, this, &CommLogPage::showLines);
    connect(getControl<QPushButton>(kClearButton), &QPushButton::clicked, this,
            &CommLogPage::clearLog);
    connect(getControl<QPushButton>(kSaveButton), &QPushButton::clicked, this,
            &CommLogPage::saveToDisk);
}

void CommLogPage::connectList()
{
    m_logList->setModel(m_model);
    m_logList->setItemDelegate(new LineDelegate(*m_model, this));
    m_logList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(m_logList->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        renderWords();
        renderFound();
    });
    for (const auto& [key, step] :
         {std::pair(Qt::Key_Left, QAbstractSlider::SliderSingleStepSub),
          std::pair(Qt::Key_Right, QAbstractSlider::SliderSingleStepAdd)}) {
        connect(new QShortcut(QKeySequence(key), m_logList, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, this,
                [this, action = step] { m_logList->horizontalScrollBar()->triggerAction(action); });
    }
}

void CommLogPage::connectSearch()
{
    connect(m_search, &LogSearch::progressed, this, &CommLogPage::onProgressed);
    connect(m_findEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_search->find(text);
        jump(Jump::Here);
    });
    connect(m_findEdit, &QLineEdit::returnPressed, this, [this] { jump(Jump::Next); });
    for (const auto& [button, key, where] :
         {std::tuple(kNextButton, QKeySequence::FindNext, Jump::Next),
          {kPreviousButton, QKeySequence::FindPrevious, Jump::Previous}}) {
        const auto go = [this, to = where] { jump(to); };
        connect(getControl<QPushButton>(button), &QPushButton::clicked, this, go);
        connect(new QShortcut(key, this), &QShortcut::activated, this, go);
    }
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_findEdit->setFocus();
        m_findEdit->selectAll();
    });
}

void CommLogPage::addCopyActions()
{
    m_copyAction = new QAction(m_logList);
    m_copyAction->setShortcut(QKeySequence::Copy);
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    m_copyWithTimesAction = new QAction(m_logList);
    m_logList->addActions({m_copyAction, m_copyWithTimesAction});
    connect(m_copyAction, &QAction::triggered, this, [this] { copySelectedLines(false); });
    connect(m_copyWithTimesAction, &QAction::triggered, this, [this] { copySelectedLines(true); });
}

void CommLogPage::translate()
{
    SensorPage::translate();
    m_copyAction->setText(languageString(strings::kCopy));
    showDroppedLines();
    m_copyWithTimesAction->setText(languageString(strings::kCopyWithTimes));
    m_wordsLabel->setAccessibleDescription(languageString(strings::kLineInWords));
    renderWords();
    renderFound();
}

void CommLogPage::getCurrentValues()
{
    showLines();
    if (m_followBox->isChecked()) {
        m_following.start(kFollowingPeriod);
    } else {
        m_logList->scrollToTop();
    }
}

void CommLogPage::setNewValues()
{
    m_following.stop();
}

void CommLogPage::follow(bool on)
{
    if (!on)
        return m_following.stop();
    showLines();
    m_following.start(kFollowingPeriod);
}

/// Shows the lines that there are; the selected one stays so as long as it is there.
void CommLogPage::showLines()
{
    const CommLog::Snapshot lines = link().commLog().snapshot();
    const CommLog::Snapshot& shown = m_model->lines();
    const std::int64_t current = currentLine();
    if (lines.first() != shown.first() || lines.size() != shown.size()) {
        m_model->setLines(lines);
        m_search->setLines(lines);
        showDroppedLines();
        if (current >= lines.first() && current != currentLine())
            m_logList->setCurrentIndex(m_model->index(static_cast<int>(current - lines.first())));
        renderWords();
    }
    if (m_followBox->isChecked())
        m_logList->scrollToBottom();
}

/// Says how many lines are gone; in no line of its own, which would be saved and copied.
void CommLogPage::showDroppedLines() const
{
    const qint64 dropped = m_model->lines().droppedLines();
    QLabel& label = *getControl<QLabel>(kDroppedLabel);
    label.setVisible(dropped > 0);
    if (dropped > 0)
        label.setText(languageString(strings::kDroppedLines).arg(dropped));
}

void CommLogPage::clearLog()
{
    link().commLog().clear();
    showLines();
}

void CommLogPage::copySelectedLines(bool withTimes) const
{
    QItemSelection selection = m_logList->selectionModel()->selection();
    if (selection.isEmpty())
        return;
    std::sort(selection.begin(), selection.end(),
              [](const auto& left, const auto& right) { return left.top() < right.top(); });
    QString text;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (withTimes)
                text += m_model->timeText(row) + QLatin1Char('\t');
            text += m_model->lines().line(row) + QLatin1Char('\n');
        }
    }
    text.chop(1);
    QGuiApplication::clipboard()->setText(text);
}

/// The line that has the cursor, as the log counts; that before the first one if none has.
std::int64_t CommLogPage::currentLine() const
{
    return m_model->lines().first() + m_logList->currentIndex().row();
}

void CommLogPage::jump(Jump where)
{
    m_jump = where;
    onProgressed();
}

void CommLogPage::onProgressed()
{
    const std::int64_t current = currentLine();
    std::optional<std::int64_t> found;
    if (m_jump == Jump::Previous) {
        found = m_search->before(current);
    } else if (m_jump != Jump::None) {
        found = m_search->nextFrom(m_jump == Jump::Next ? current + 1 : current);
    }
    if (found) {
        const auto row = static_cast<int>(*found - m_model->lines().first());
        m_logList->setCurrentIndex(m_model->index(row));
    }
    if (found || !m_search->isSearching())
        m_jump = Jump::None;
    renderFound();
}

void CommLogPage::renderFound()
{
    const QString count = QString::number(m_search->count());
    QString text;
    if (m_search->isSearching()) {
        text = languageString(strings::kFoundSoFar).arg(count);
    } else if (m_search->count() > 0) {
        const QString number = QString::number(m_search->numberOf(currentLine()));
        text = languageString(strings::kFoundOf).arg(number, count);
    } else if (!m_findEdit->text().isEmpty()) {
        text = languageString(strings::kNotFound);
    }
    m_foundLabel->setText(text);
}

void CommLogPage::renderWords()
{
    const int row = m_logList->currentIndex().row();
    m_wordsLabel->setText(row < 0 ? QString() : logLineInWords(m_model->lines(), row));
}

/// Saves the lines that are shown, whatever the link has added since.
void CommLogPage::saveToDisk()
{
    const CommLog::Snapshot shown = m_model->lines();
    const QString path =
        chooseFile(window(), QFileDialog::AcceptSave, languageString(strings::kSaveToDisk),
                   languageString(strings::kTextFileFilter), QStringLiteral("txt"));
    if (path.isEmpty())
        return;
    if (const auto outcome = saveCommLog(path, shown); !outcome.isDone())
        warn(window(), outcome.message());
}

} // namespace pelorin
