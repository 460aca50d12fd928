#include "pages/PositionView.h"

#include "pages/PositionTrace.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Profile.h"
#include "platform/core/Strings.h"
#include "platform/ui/KeptChoice.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

#include <chrono>
#include <cmath>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kFiguresPeriod = 250ms; ///< more often nobody can read them
constexpr auto kRangeRest = 1000ms;    ///< after which a range is what the user wants
constexpr int kDurations[] = {10, 30, 60, 120, 300, 600};
constexpr int kFirstDuration = 1;
constexpr int kRateDecimals = 1;

QString rangeSection()
{
    return QStringLiteral("Trace");
}

QString lowName()
{
    return QStringLiteral("Low");
}

QString highName()
{
    return QStringLiteral("High");
}

QString number(std::optional<double> value, int decimals)
{
    return value ? numberText(*value, decimals) : QString();
}

} // namespace

PositionView::PositionView(Kind kind, QWidget* parent)
    : QWidget(parent), m_kind(kind), m_trace(new PositionTrace(this))
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);
    layout->addWidget(m_trace, 0, 0);
    m_trace->setObjectName(QStringLiteral("positionTrace"));
    makeFigures(kind);
    placeFigures();
    makeControls(kind);
    m_figuresTimer.setSingleShot(true);
    m_figuresTimer.setInterval(kFiguresPeriod);
    connect(&m_figuresTimer, &QTimer::timeout, this, &PositionView::showFigures);
    connect(m_trace, &PositionTrace::changed, this, [this] {
        if (m_trace->isPaused()) {
            showFigures();
        } else {
            showFiguresSoon();
        }
    });
    connect(m_trace, &PositionTrace::zoomWanted, this, &PositionView::zoom);
    connect(m_trace, &PositionTrace::rangeHeld, this, [this] { m_holdRange->setChecked(true); });
    translate();
}

void PositionView::makeFigures(Kind kind)
{
    m_figures = {
        {strings::kMinimum, strings::kMillimetres,
         [this](const PositionFigures& figures) { return m_trace->valueText(figures.minimum); }},
        {strings::kMaximum, strings::kMillimetres,
         [this](const PositionFigures& figures) { return m_trace->valueText(figures.maximum); }},
        {strings::kSpan, strings::kMillimetres,
         [this](const PositionFigures& figures) { return length(figures.span()); }},
        {strings::kMean, strings::kMillimetres,
         [this](const PositionFigures& figures) { return m_trace->valueText(figures.mean); }},
        {strings::kDeviation, strings::kMillimetres,
         [](const PositionFigures& figures) { return number(figures.deviation, 4); }},
        {strings::kVelocity, strings::kMillimetresPerSecond,
         [this](const PositionFigures& figures) {
             const bool isKnown = m_isStreaming || m_trace->isPaused();
             return isKnown ? number(figures.velocity, kRateDecimals) : QString();
         }},
        {strings::kPositionsPerSecond, 0,
         [](const PositionFigures& figures) { return number(figures.perSecond, kRateDecimals); }},
        {strings::kLongestGap, strings::kSecondsUnit,
         [](const PositionFigures& figures) { return number(figures.longestGap, 4); }},
    };
    if (kind == Kind::Live) {
        m_figures.push_back({strings::kMalformedFrames, 0,
                             [this](const PositionFigures& figures) {
                                 const int count = malformedShown();
                                 return figures.count > 0 || count > 0 ? QString::number(count)
                                                                       : QString();
                             },
                             true});
        m_figures.push_back(
            {strings::kRecorded, strings::kSecondsUnit,
             [this](const PositionFigures& /*figures*/) { return number(m_recorded, 1); }, true});
    }
    m_figures.push_back({strings::kCursorTime, strings::kSecondsUnit,
                         [this](const auto&) {
                             const auto at = m_trace->cursor();
                             return at ? QString::number(at->seconds, 'f', 4) : QString();
                         },
                         true});
    m_figures.push_back({strings::kCursorPosition, strings::kMillimetres,
                         [this](const auto&) {
                             const auto at = m_trace->cursor();
                             return at ? m_trace->valueText(at->millimetres) : QString();
                         },
                         true});
}

/// Beside the trace.
void PositionView::placeFigures()
{
    auto* grid = new QGridLayout;
    int row = 0;
    for (Figure& figure : m_figures) {
        figure.captionLabel = new QLabel(this);
        figure.valueLabel = new QLabel(this);
        figure.valueLabel->setTextFormat(Qt::PlainText);
        figure.valueLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        figure.valueLabel->setMinimumWidth(fontMetrics().horizontalAdvance(
            QStringLiteral("-00000.0000 mm/s"))); // or the trace would change its width
        figure.valueLabel->setObjectName(QStringLiteral("figure%1").arg(figure.caption));
        grid->addWidget(figure.captionLabel, row, 0);
        grid->addWidget(figure.valueLabel, row++, 1);
    }
    m_relative = new QLabel(this);
    m_relative->setTextFormat(Qt::PlainText);
    grid->addWidget(m_relative, row++, 0, 1, 2);
    grid->setRowStretch(row, 1);
    static_cast<QGridLayout*>(layout())->addLayout(grid, 0, 1);
}

void PositionView::makeControls(Kind kind)
{
    m_controls = new QHBoxLayout;
    m_timeCaption = new QLabel(this);
    m_durations = new QComboBox(this);
    m_durations->setObjectName(QStringLiteral("durationCombo"));
    m_timeCaption->setBuddy(m_durations);
    m_controls->addWidget(m_timeCaption);
    m_controls->addWidget(m_durations);
    for (const int seconds : kDurations)
        m_durations->addItem(QString(), seconds);
    if (kind == Kind::Recording)
        m_durations->addItem(QString(), 0);
    const int chosen = kind == Kind::Recording ? m_durations->count() - 1 : kFirstDuration;
    m_durations->setCurrentIndex(chosen);
    if (kind == Kind::Live) { // a recording is shown as a whole at first
        keepChoice(*m_durations, QStringLiteral("TraceSeconds"));
        m_trace->setDuration(m_durations->currentData().toInt());
    }
    connect(m_durations, &QComboBox::activated, this,
            [this] { m_trace->setDuration(m_durations->currentData().toInt()); });

    const auto add = [this](QAbstractButton* button, const char* name, int caption) {
        button->setObjectName(QLatin1String(name));
        m_buttons.emplace_back(button, caption);
        m_controls->addWidget(button);
        if (auto* push = qobject_cast<QPushButton*>(button))
            push->setAutoDefault(false); // Enter closes a recording
        return button;
    };
    m_holdRange = add(new QCheckBox(this), "holdRangeCheck", strings::kHoldRange);
    connect(m_holdRange, &QAbstractButton::toggled, m_trace, &PositionTrace::setRangeHeld);
    if (kind == Kind::Live) {
        holdKeptRange();
        QAbstractButton* pause = add(new QPushButton(this), "pauseButton", strings::kPause);
        pause->setCheckable(true);
        connect(pause, &QAbstractButton::toggled, this, [this](bool paused) {
            m_frozenMalformed = m_malformed;
            m_trace->setPaused(paused);
        });
    }
    m_zero = add(new QPushButton(this), "zeroButton", strings::kZeroHere);
    m_zero->setCheckable(true);
    connect(m_zero, &QAbstractButton::toggled, this, [this](bool wanted) {
        const auto at = m_trace->cursor() ? m_trace->cursor() : m_trace->last();
        m_trace->setZero(wanted && at ? std::optional(at->millimetres) : std::nullopt);
        m_zero->setChecked(m_trace->zero().has_value()); // not before there is a position
    });
    connect(add(new QPushButton(this), "copyFiguresButton", strings::kCopy),
            &QAbstractButton::clicked, this, &PositionView::copyFigures);
    m_controls->addStretch(1);
    static_cast<QGridLayout*>(layout())->addLayout(m_controls, 1, 0, 1, 2);
}

/// The range that was held in the run before is held.
void PositionView::holdKeptRange()
{
    const auto texts = Profile().readTexts(rangeSection());
    const TraceRange kept{texts.value(lowName()).toDouble(), texts.value(highName()).toDouble()};
    if (kept.low < kept.high && std::isfinite(kept.high - kept.low)) {
        m_keptRange = kept;
        m_trace->holdRange(kept);
        m_holdRange->setChecked(true);
    }
    m_rangeTimer.setSingleShot(true);
    m_rangeTimer.setInterval(kRangeRest);
    connect(&m_rangeTimer, &QTimer::timeout, this, [this] { tellUnkept(window(), keepRange()); });
    connect(m_holdRange, &QAbstractButton::clicked, &m_rangeTimer, qOverload<>(&QTimer::start));
    connect(m_trace, &PositionTrace::rangeHeld, &m_rangeTimer, qOverload<>(&QTimer::start));
}

/// The next run gets the range of this one, unless there is none before the first position.
WholeFile::Outcome PositionView::keepRange()
{
    m_rangeTimer.stop();
    const TraceRange range = m_trace->scale().range;
    const bool isHeld = m_holdRange->isChecked();
    const auto wanted = isHeld ? std::optional(range) : std::nullopt;
    if (m_kind != Kind::Live || wanted == m_keptRange || (isHeld && range.low >= range.high))
        return {};
    m_keptRange = wanted;
    const auto textOf = [isHeld](double millimetres) {
        return isHeld ? QString::number(millimetres, 'g', 17) : QString();
    };
    return Profile().writeTexts(rangeSection(),
                                {{lowName(), textOf(range.low)}, {highName(), textOf(range.high)}});
}

void PositionView::hideEvent(QHideEvent* event)
{
    (void)keepRange(); // the window may close: nobody could be told
    QWidget::hideEvent(event);
}

void PositionView::addButton(QPushButton* button)
{
    m_controls->addWidget(button);
}

void PositionView::translate()
{
    m_timeCaption->setText(languageString(strings::kTimeShown));
    for (int i = 0; i < m_durations->count(); ++i) {
        const int seconds = m_durations->itemData(i).toInt();
        const bool minutes = seconds >= 60;
        m_durations->setItemText(
            i, seconds == 0 ? languageString(strings::kWholeRecording)
                            : languageString(minutes ? strings::kMinutes : strings::kSeconds)
                                  .arg(minutes ? seconds / 60 : seconds));
    }
    for (const auto& [button, caption] : m_buttons)
        button->setText(languageString(caption));
    for (const Figure& figure : m_figures) {
        figure.captionLabel->setText(languageString(figure.caption));
        figure.valueLabel->setAccessibleDescription(languageString(figure.caption));
    }
    m_trace->setAccessibleName(languageString(strings::kTraceName));
    showFigures();
}

void PositionView::append(PositionPoints points, int malformed, double seconds)
{
    m_trace->append(points);
    if (malformed > 0) {
        m_malformed.append({points.empty() ? seconds : points.back().seconds, malformed});
        showFiguresSoon();
    }
    while (!m_malformed.isEmpty() && m_malformed.first().first < seconds - PositionTrace::kLongest)
        m_malformed.removeFirst();
}

void PositionView::begin(double seconds)
{
    m_begun = seconds;
    m_trace->begin();
    showFigures();
}

void PositionView::clear()
{
    m_malformed.clear();
    m_zero->setChecked(false);
    m_trace->clear();
}

void PositionView::setStreaming(bool streaming)
{
    m_isStreaming = streaming;
    showFigures();
}

void PositionView::setRecorded(std::optional<double> seconds)
{
    m_recorded = seconds;
    showFiguresSoon();
}

int PositionView::malformedShown() const
{
    const double from = isWaiting() ? m_begun : m_trace->from();
    int count = 0;
    for (const auto& [seconds, frames] : m_trace->isPaused() ? m_frozenMalformed : m_malformed) {
        if (seconds >= from && seconds <= m_trace->end())
            count += frames;
    }
    return count;
}

QString PositionView::length(std::optional<double> millimetres) const
{
    return millimetres ? m_trace->valueText(*millimetres + m_trace->zero().value_or(0.0))
                       : QString();
}

/// What is paused is told as it was.
bool PositionView::isWaiting() const
{
    return m_trace->hasNone() && !m_trace->isPaused();
}

/// What a stream before amounted to would be taken for what the sensor sends now.
PositionFigures PositionView::shownFigures() const
{
    return isWaiting() ? PositionFigures() : positionFigures(m_trace->visible(), m_trace->end());
}

QString PositionView::textOf(const Figure& figure, const PositionFigures& figures)
{
    return figures.count > 0 || figure.always ? figure.text(figures) : QString();
}

void PositionView::zoom(int steps)
{
    const int index = m_durations->currentIndex() - steps;
    if (index < 0 || index >= m_durations->count())
        return;
    m_durations->setCurrentIndex(index);
    m_trace->setDuration(m_durations->currentData().toInt());
}

void PositionView::showFiguresSoon()
{
    if (!m_figuresTimer.isActive())
        m_figuresTimer.start();
}

void PositionView::showFigures()
{
    const PositionFigures figures = shownFigures();
    QStringList words;
    for (const Figure& figure : m_figures) {
        QString text = textOf(figure, figures);
        if (!text.isEmpty() && figure.unit != 0)
            text += u' ' + languageString(figure.unit);
        figure.valueLabel->setText(text);
        if (!text.isEmpty())
            words << languageString(figure.caption) + u' ' + text;
    }
    const auto zero = m_trace->zero();
    m_relative->setText(zero ? languageString(strings::kRelativeTo).arg(length(*zero)) : QString());
    const QString description =
        words.isEmpty() ? languageString(strings::kNoPositions) : words.join(QStringLiteral(", "));
    if (description != m_trace->accessibleDescription())
        m_trace->setAccessibleDescription(description);
}

void PositionView::copyFigures() const
{
    const PositionFigures figures = shownFigures();
    QString text;
    for (const Figure& figure : m_figures) {
        text += languageString(figure.caption) + u'\t' + textOf(figure, figures) + u'\t' +
                (figure.unit != 0 ? languageString(figure.unit) : QString()) + u'\n';
    }
    if (const auto zero = m_trace->zero())
        text += languageString(strings::kRelativeTo).arg(length(*zero)) + u'\n';
    QGuiApplication::clipboard()->setText(text);
}

} // namespace pelorin
