#include "pages/CommLogPage.h"

#include "link/CommLogFile.h"
#include "link/SensorLink.h"
#include "pages/CommLogModel.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

constexpr int kLogList = 1032;
constexpr int kClearButton = 1033;
constexpr int kSaveButton = 1034;
constexpr int kDroppedLabel = 2032;

/// Makes every line as wide as the longest: the list asks for the size of one line only, and
/// scrolls sideways as far as that.
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

private:
    const CommLogModel& m_model;
};

} // namespace

CommLogPage::CommLogPage() : SensorPage(QStringLiteral("DLG_PELORIN_COMLOG_PAGE")) {}

void CommLogPage::setupTranslationMap()
{
    addToTranslationMap(kClearButton, strings::kClear);
    addToTranslationMap(kSaveButton, strings::kSaveToDisk);
    addAccessibleName(kLogList, strings::kCommLog);
}

void CommLogPage::onInitDialog()
{
    m_model = new CommLogModel(this);
    m_logList = getControl<QListView>(kLogList);
    m_logList->setModel(m_model);
    m_logList->setItemDelegate(new LineDelegate(*m_model, this));
    m_logList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    for (const auto& [key, step] :
         {std::pair(Qt::Key_Left, QAbstractSlider::SliderSingleStepSub),
          std::pair(Qt::Key_Right, QAbstractSlider::SliderSingleStepAdd)}) {
        connect(new QShortcut(QKeySequence(key), m_logList, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, this,
                [this, action = step] { m_logList->horizontalScrollBar()->triggerAction(action); });
    }

    m_copyAction = new QAction(m_logList);
    m_copyAction->setShortcut(QKeySequence::Copy);
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    m_logList->addAction(m_copyAction);
    connect(m_copyAction, &QAction::triggered, this, &CommLogPage::copySelectedLines);
    connect(getControl<QPushButton>(kClearButton), &QPushButton::clicked, this,
            &CommLogPage::clearLog);
    connect(getControl<QPushButton>(kSaveButton), &QPushButton::clicked, this,
            &CommLogPage::saveToDisk);
}

void CommLogPage::translate()
{
    SensorPage::translate();
    m_copyAction->setText(languageString(strings::kCopy));
    showDroppedLines();
}

void CommLogPage::getCurrentValues()
{
    m_model->setLines(link().commLog().snapshot());
    showDroppedLines();
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
    getCurrentValues();
}

void CommLogPage::copySelectedLines() const
{
    QItemSelection selection = m_logList->selectionModel()->selection();
    if (selection.isEmpty())
        return;
    std::sort(selection.begin(), selection.end(),
              [](const auto& left, const auto& right) { return left.top() < right.top(); });
    QString text;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            text += m_model->lines().line(row) + QLatin1Char('\n');
    }
    text.chop(1);
    QGuiApplication::clipboard()->setText(text);
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
