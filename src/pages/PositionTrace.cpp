#include "pages/PositionTrace.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kRefreshPeriod = 34ms;
constexpr double kSlack = 30.0;     ///< seconds kept beyond the longest, so as to drop them at once
constexpr double kGap = 1.0;        ///< seconds without a position that are not drawn over
constexpr double kSmallestMm = 0.1; ///< what is shown at least, or the resolution would look rough
constexpr double kRounding = 1e-6;  ///< seconds by which an edge may be off
constexpr int kLeft = 84;           ///< room for the numbers of the axes
constexpr int kBottom = 22;
constexpr int kEdge = 8;
constexpr int kLinesApart = 36; ///< pixels, at least
constexpr int kTimesApart = 90;

/// The distance of lines with round numbers: 1, 2 or 5 times a power of ten.
double roundStep(double smallest)
{
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= smallest)
            return factor * power;
    }
    return 10.0 * power;
}

int decimalsOfStep(double step)
{
    return std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
}

PositionPoints viewOf(const QList<PositionPoint>& points)
{
    return {points.constData(), static_cast<std::size_t>(points.size())};
}

} // namespace

PositionTrace::PositionTrace(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(kRefreshPeriod);
    connect(&m_refresh, &QTimer::timeout, this, &PositionTrace::refresh);
}

void PositionTrace::append(PositionPoints points)
{
    for (const PositionPoint& point : points)
        m_live.append(point);
    if (m_live.isEmpty())
        return;
    const double oldest = m_live.last().seconds - kLongest;
    if (m_live.first().seconds < oldest - kSlack) {
        const auto kept = pointsBetween(viewOf(m_live), oldest, m_live.last().seconds);
        m_live.remove(0, m_live.size() - static_cast<qsizetype>(kept.size()));
    }
    if (!m_isFrozen)
        refreshSoon();
}

void PositionTrace::setRecording(const QList<PositionPoint>& points)
{
    m_isRecording = m_isFrozen = true;
    m_frozen = points;
    m_duration = 0.0;
    follow();
    refresh();
}

void PositionTrace::setDuration(double seconds)
{
    const auto at = cursor(); // stays in sight
    m_duration = seconds;
    if (!m_isFrozen || points().isEmpty())
        follow();
    else
        show(at ? at->seconds + duration() / 2 : m_end);
    refresh();
}

void PositionTrace::setPaused(bool paused)
{
    if (m_isRecording || paused == m_isFrozen)
        return;
    refresh(); // what has come until now is kept, too
    m_isFrozen = paused;
    m_frozen = paused ? m_live : QList<PositionPoint>();
    if (!paused)
        m_cursor.reset();
    refresh();
}

void PositionTrace::setRangeHeld(bool held)
{
    m_isRangeHeld = held;
    refresh();
}

void PositionTrace::setZero(std::optional<double> millimetres)
{
    m_zero = millimetres;
    refresh();
}

void PositionTrace::setStroke(std::optional<double> millimetres)
{
    m_stroke = millimetres;
    update();
}

void PositionTrace::setResolution(double mmPerCount)
{
    m_resolution = mmPerCount;
    update();
}

const QList<PositionPoint>& PositionTrace::points() const
{
    return m_isFrozen ? m_frozen : m_live;
}

double PositionTrace::duration() const
{
    if (m_duration > 0.0 || points().isEmpty())
        return std::max(m_duration, 1.0);
    return std::max(points().last().seconds - points().first().seconds, 0.01);
}

PositionPoints PositionTrace::visible() const
{
    return pointsBetween(viewOf(points()), from() - kRounding, m_end + kRounding);
}

std::optional<PositionPoint> PositionTrace::cursor() const
{
    if (!m_cursor || *m_cursor < from() - kRounding || *m_cursor > m_end + kRounding)
        return std::nullopt;
    return pointNearest(visible(), *m_cursor);
}

std::optional<PositionPoint> PositionTrace::last() const
{
    return points().isEmpty() ? std::nullopt : std::optional(points().last());
}

QString PositionTrace::valueText(double millimetres) const
{
    return QString::number(millimetres - m_zero.value_or(0.0), 'f', positionDecimals(m_resolution));
}

QRect PositionTrace::plot() const
{
    return rect().adjusted(kLeft, kEdge, -kEdge, -kBottom);
}

double PositionTrace::perColumn() const
{
    return duration() / std::max(1, plot().width() - 1);
}

int PositionTrace::xOf(double seconds) const
{
    return plot().left() + static_cast<int>(std::lround((seconds - from()) / perColumn()));
}

/// Also for marks far outside of what is shown.
int PositionTrace::yOf(double millimetres) const
{
    const double share = (m_range.high - millimetres) / (m_range.high - m_range.low);
    return plot().top() +
           static_cast<int>(std::lround(std::clamp(share, -9.0, 9.0) * (plot().height() - 1)));
}

PositionTrace::Range PositionTrace::fittingRange() const
{
    const PositionPoints shown = visible();
    if (shown.empty())
        return m_range;
    const auto [least, most] = std::ranges::minmax_element(shown, {}, &PositionPoint::millimetres);
    const double middle = (least->millimetres + most->millimetres) / 2;
    const double half = std::max(most->millimetres - least->millimetres, kSmallestMm) / 2;
    const double step = roundStep(half / 5); // steady while little changes
    return {std::floor((middle - half) / step - 0.5) * step,
            std::ceil((middle + half) / step + 0.5) * step};
}

void PositionTrace::follow()
{
    if (const auto newest = last())
        m_end = newest->seconds;
}

/// Moves the view so that it ends at a moment, within what there is.
void PositionTrace::show(double seconds)
{
    const double newest = points().last().seconds;
    m_end = std::clamp(seconds, std::min(points().first().seconds + duration(), newest), newest);
}

void PositionTrace::refreshSoon()
{
    if (!m_refresh.isActive())
        m_refresh.start();
}

void PositionTrace::refresh()
{
    if (!m_isFrozen)
        follow();
    if (!m_isRangeHeld || m_range.high <= m_range.low)
        m_range = fittingRange();
    update();
    Q_EMIT changed();
}

void PositionTrace::moveCursor(double seconds)
{
    const auto nearest = pointNearest(viewOf(points()), seconds);
    if (!nearest)
        return;
    m_cursor = nearest->seconds;
    if (m_isFrozen && *m_cursor > m_end)
        show(*m_cursor);
    else if (m_isFrozen && *m_cursor < from())
        show(*m_cursor + duration());
    refresh();
}

/// To the next position, or to the next one that is at least a pixel away.
void PositionTrace::stepCursor(int direction, bool single)
{
    const auto at = cursor();
    if (!at)
        return moveCursor(m_end);
    const PositionPoints all = viewOf(points());
    const double away = single ? 0.0 : perColumn();
    if (direction > 0) {
        const auto next =
            std::ranges::upper_bound(all, at->seconds + away, {}, &PositionPoint::seconds);
        moveCursor(next == all.end() ? all.back().seconds : next->seconds);
    } else {
        const auto next =
            std::ranges::lower_bound(all, at->seconds - away, {}, &PositionPoint::seconds);
        moveCursor(next == all.begin() ? all.front().seconds : (next - 1)->seconds);
    }
}

void PositionTrace::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        mouseMoveEvent(event);
}

/// Comes only while a button is down.
void PositionTrace::mouseMoveEvent(QMouseEvent* event)
{
    const double x =
        std::clamp(event->position().x(), double(plot().left()), double(plot().right()));
    moveCursor(from() + (x - plot().left()) * perColumn());
}

void PositionTrace::wheelEvent(QWheelEvent* event)
{
    if (const int turned = event->angleDelta().y(); turned != 0)
        Q_EMIT zoomWanted(turned > 0 ? 1 : -1);
}

void PositionTrace::keyPressEvent(QKeyEvent* event)
{
    const bool single = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
    case Qt::Key_Left:
        return stepCursor(-1, single);
    case Qt::Key_Right:
        return stepCursor(1, single);
    case Qt::Key_Home:
        return moveCursor(from());
    case Qt::Key_End:
        return moveCursor(m_end);
    case Qt::Key_Plus:
        Q_EMIT zoomWanted(1);
        return;
    case Qt::Key_Minus:
        Q_EMIT zoomWanted(-1);
        return;
    case Qt::Key_Escape:
        if (m_cursor) {
            m_cursor.reset();
            return refresh();
        }
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void PositionTrace::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.fillRect(plot(), palette().base());
    const bool isEmpty = visible().empty();
    if (isEmpty) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(plot(), Qt::AlignCenter, languageString(strings::kNoPositions));
    } else {
        drawGrid(painter);
        painter.setClipRect(plot());
        drawPositions(painter);
        drawCursor(painter);
        painter.setClipping(false);
    }
    const auto frame = hasFocus() ? QPalette::Highlight : QPalette::Mid;
    painter.setPen(palette().color(frame));
    painter.drawRect(plot().adjusted(-1, -1, 0, 0));
}

void PositionTrace::drawGrid(QPainter& painter) const
{
    const QRect area = plot();
    const QColor text = palette().color(QPalette::WindowText);
    QColor faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.15F);
    const double zero = m_zero.value_or(0.0);
    const double perPixel = (m_range.high - m_range.low) / std::max(1, area.height());
    const double step = roundStep(perPixel * kLinesApart);
    const int half = fontMetrics().height() / 2;
    for (double value = std::ceil((m_range.low - zero) / step) * step;
         value <= m_range.high - zero + step * 1e-6; value += step) {
        const int y = yOf(value + zero);
        painter.setPen(faint);
        painter.drawLine(area.left(), y, area.right(), y);
        painter.setPen(text);
        painter.drawText(
            QRect(0, y - half, kLeft - 6, 2 * half), Qt::AlignRight | Qt::AlignVCenter,
            QString::number(std::abs(value) < step / 2 ? 0.0 : value, 'f', decimalsOfStep(step)));
    }
    const double timeStep = roundStep(perColumn() * kTimesApart);
    for (double time = std::ceil(from() / timeStep) * timeStep; time <= m_end; time += timeStep) {
        const int x = xOf(time);
        painter.setPen(faint);
        painter.drawLine(x, area.top(), x, area.bottom());
        if (time < -timeStep / 2)
            continue; // nothing was followed then
        painter.setPen(text);
        const int room = std::min(kTimesApart / 2, width() - x);
        painter.drawText(QRect(x - room, area.bottom() + 2, 2 * room, kBottom - 2), Qt::AlignCenter,
                         languageString(strings::kSeconds)
                             .arg(QString::number(std::abs(time), 'f', decimalsOfStep(timeStep))));
    }
    if (!m_stroke)
        return;
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
    for (const double end : {0.0, *m_stroke}) {
        if (const int y = yOf(end); area.contains(area.left(), y))
            painter.drawLine(area.left(), y, area.right(), y);
    }
}

/// A column shows the whole of what falls into it, however many positions those are.
void PositionTrace::drawPositions(QPainter& painter) const
{
    painter.setPen(palette().color(QPalette::Highlight));
    QList<QPoint> line;
    double before = 0.0;
    const auto draw = [&] {
        if (line.size() == 1)
            painter.drawPoint(line.first());
        painter.drawPolyline(line.constData(), static_cast<int>(line.size()));
        line.clear();
    };
    for (const PositionColumn& column :
         positionColumns(visible(), from() - kRounding, perColumn())) {
        if (!line.isEmpty() && column.first.seconds - before > kGap)
            draw();
        before = column.last.seconds;
        const int x = plot().left() + column.column;
        line.append({x, yOf(column.first.millimetres)});
        if (column.minimum == column.maximum)
            continue;
        for (const double value : {column.minimum, column.maximum, column.last.millimetres})
            line.append({x, yOf(value)});
    }
    draw();
}

void PositionTrace::drawCursor(QPainter& painter) const
{
    const auto at = cursor();
    if (!at)
        return;
    const int x = xOf(at->seconds);
    const int y = yOf(at->millimetres);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(x, plot().top(), x, plot().bottom());
    painter.drawEllipse(QPoint(x, y), 3, 3);
}

} // namespace pelorin
