#include "pages/PositionTrace.h"

#include "pages/TraceDrawing.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::duration<double> kShortestRefresh = 34ms;
constexpr std::chrono::duration<double> kLongestRefresh = 250ms;
constexpr double kSlack = 30.0;    ///< seconds kept beyond the longest, so as to drop them at once
constexpr double kRounding = 1e-6; ///< seconds by which an edge may be off
constexpr int kLeft = 84;          ///< room for the numbers of the axes
constexpr int kBottom = 22;
constexpr int kEdge = 8;
constexpr double kRangeStep = 0.1; ///< of its height
constexpr double kRangeZoom = 1.25;
constexpr double kPage = 0.9; ///< of the time shown

} // namespace

PositionTrace::PositionTrace(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &PositionTrace::refresh);
}

void PositionTrace::append(PositionPoints points)
{
    for (PositionPoint point : points) {
        point.isFirst = std::exchange(m_hasNone, false);
        m_live.append(point);
    }
    if (m_live.isEmpty())
        return;
    const double oldest = m_live.last().seconds - kLongest;
    if (m_live.first().seconds < oldest - kSlack) {
        const auto kept = pointsBetween(m_live, oldest, m_live.last().seconds);
        m_live.remove(0, m_live.size() - static_cast<qsizetype>(kept.size()));
    }
    if (!m_isFrozen)
        refreshSoon();
}

void PositionTrace::waitUntil(double seconds)
{
    m_waited = seconds;
    if (!m_isFrozen)
        refreshSoon();
}

void PositionTrace::clear()
{
    m_live.clear();
    m_waited = 0.0;
    if (m_isFrozen)
        return;
    m_cursor.reset();
    m_end = 0.0;
    refresh();
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
    if (!m_isFrozen || points().isEmpty()) {
        follow();
    } else {
        show(at ? at->seconds + duration() / 2 : m_end);
    }
    refresh();
}

void PositionTrace::setPaused(bool paused)
{
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

void PositionTrace::holdRange(const TraceRange& range)
{
    m_range = range;
    setRangeHeld(true);
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
    return pointsBetween(points(), from() - kRounding, m_end + kRounding);
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
    return numberText(millimetres - m_zero.value_or(0.0), positionDecimals(m_resolution));
}

QRect PositionTrace::plot() const
{
    return rect().adjusted(kLeft, kEdge, -kEdge, -kBottom);
}

TraceScale PositionTrace::scale() const
{
    return {plot(), from(), m_end, m_range};
}

void PositionTrace::follow()
{
    if (const auto newest = last())
        m_end = newest->seconds;
    if (!m_isFrozen)
        m_end = std::max(m_end, m_waited);
}

/// Moves the view so that it ends at a moment, within what there is.
void PositionTrace::show(double seconds)
{
    const double newest = points().last().seconds;
    m_end = std::clamp(seconds, std::min(points().first().seconds + duration(), newest), newest);
}

/// Before the positions have moved by a pixel there is little to see.
void PositionTrace::refreshSoon()
{
    if (m_refresh.isActive())
        return;
    const std::chrono::duration<double> perPixel(scale().secondsPerPixel());
    m_refresh.start(std::chrono::ceil<std::chrono::milliseconds>(
        std::clamp(perPixel, kShortestRefresh, kLongestRefresh)));
}

void PositionTrace::fitRange()
{
    const PositionPoints shown = visible();
    if (shown.empty())
        return;
    const auto [least, most] = std::ranges::minmax_element(shown, {}, &PositionPoint::millimetres);
    m_range = TraceRange::around(least->millimetres, most->millimetres);
}

/// The user's own range is held.
void PositionTrace::setRange(const TraceRange& range)
{
    if (!hasRange())
        return; // nothing was shown yet
    holdRange(range);
    Q_EMIT rangeHeld();
}

void PositionTrace::refresh()
{
    if (!m_isFrozen)
        follow();
    if (!m_isRangeHeld || !hasRange())
        fitRange();
    update();
    Q_EMIT changed();
}

void PositionTrace::moveCursor(double seconds)
{
    const auto nearest = pointNearest(points(), seconds);
    if (!nearest)
        return;
    m_cursor = nearest->seconds;
    if (m_isFrozen && *m_cursor > m_end) {
        show(*m_cursor);
    } else if (m_isFrozen && *m_cursor < from()) {
        show(*m_cursor + duration());
    }
    refresh();
}

/// Only what stands still can be moved.
void PositionTrace::turnPage(int direction)
{
    if (!m_isFrozen || points().isEmpty())
        return;
    show(m_end + direction * kPage * duration());
    refresh();
}

/// To the next position, or to the next one that is at least a pixel away.
void PositionTrace::stepCursor(int direction, bool single)
{
    const auto at = cursor();
    if (!at)
        return moveCursor(m_end);
    const PositionPoints all = points();
    const double away = single ? 0.0 : scale().secondsPerPixel();
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
    moveCursor(scale().secondsAt(event->position().x()));
}

void PositionTrace::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    if (turned == 0)
        return;
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        zoomRange(turned > 0, scale().millimetresAt(event->position().y()));
    } else {
        Q_EMIT zoomWanted(turned > 0 ? 1 : -1);
    }
}

void PositionTrace::zoomRange(bool closer, double millimetres)
{
    setRange(m_range.zoomed(closer ? 1 / kRangeZoom : kRangeZoom, millimetres));
}

void PositionTrace::keyPressEvent(QKeyEvent* event)
{
    const bool single = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool ofRange = event->modifiers().testFlag(Qt::ControlModifier);
    const bool closer = event->key() == Qt::Key_Plus;
    switch (event->key()) {
    case Qt::Key_Left:
        return stepCursor(-1, single);
    case Qt::Key_Right:
        return stepCursor(1, single);
    case Qt::Key_Home:
        return moveCursor(from());
    case Qt::Key_End:
        return moveCursor(m_end);
    case Qt::Key_Up:
        return setRange(m_range.moved(kRangeStep));
    case Qt::Key_Down:
        return setRange(m_range.moved(-kRangeStep));
    case Qt::Key_PageUp:
        return turnPage(-1);
    case Qt::Key_PageDown:
        return turnPage(1);
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        if (ofRange)
            return zoomRange(closer, (m_range.low + m_range.high) / 2);
        Q_EMIT zoomWanted(closer ? 1 : -1);
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
    const bool isEmpty = visible().empty() || !hasRange(); // what has just come has none yet
    if (isEmpty) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(plot(), Qt::AlignCenter, languageString(strings::kNoPositions));
    } else {
        drawTrace(painter);
    }
    QColor frame = palette().color(hasFocus() ? QPalette::Highlight : QPalette::Text);
    frame.setAlphaF(hasFocus() ? 1.0F : 0.3F);
    painter.setPen(frame);
    painter.drawRect(plot().adjusted(-1, -1, 0, 0));
}

void PositionTrace::drawTrace(QPainter& painter) const
{
    const TraceDrawing drawing(painter, palette(), scale());
    drawing.drawLevels(m_zero.value_or(0.0));
    drawing.drawTimes(m_isRecording);
    if (m_stroke)
        drawing.drawStroke(*m_stroke);
    painter.setClipRect(plot());
    drawing.drawPositions(visible());
    drawing.drawOutside(visible().back().millimetres);
    if (const auto at = cursor())
        drawing.drawCursor(*at);
    painter.setClipping(false);
}

} // namespace pelorin
