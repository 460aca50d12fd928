#include "pages/TraceDrawing.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QList>
#include <QPainter>

namespace pelorin {

namespace {

constexpr double kRounding = 1e-6; ///< seconds by which an edge may be off
constexpr int kLinesApart = 36;    ///< pixels, at least
constexpr int kTimesApart = 90;
constexpr int kToNumber = 6; ///< pixels from the plot
constexpr int kArrow = 10;   ///< pixels high

} // namespace

TraceDrawing::TraceDrawing(QPainter& painter, const QPalette& colors, const TraceScale& scale)
    : m_painter(painter), m_colors(colors), m_scale(scale)
{
}

QColor TraceDrawing::faint() const
{
    QColor color = m_colors.color(QPalette::Text);
    color.setAlphaF(0.15F);
    return color;
}

void TraceDrawing::drawLevels(double zero) const
{
    const QRect& area = m_scale.area;
    const double step = roundStep(m_scale.millimetresPerPixel() * kLinesApart);
    const int half = m_painter.fontMetrics().height() / 2;
    for (const double value :
         multiples(step, m_scale.range.low - zero, m_scale.range.high - zero)) {
        const int y = m_scale.yOf(value + zero);
        m_painter.setPen(faint());
        m_painter.drawLine(area.left(), y, area.right(), y);
        m_painter.setPen(m_colors.color(QPalette::WindowText));
        m_painter.drawText(QRect(0, y - half, area.left() - kToNumber, 2 * half),
                           Qt::AlignRight | Qt::AlignVCenter,
                           numberText(value, decimalsOfStep(step)));
    }
}

/// A time that has no room at the right edge is left out.
void TraceDrawing::drawTimes(bool negative) const
{
    const QRect& area = m_scale.area;
    const QFontMetrics metrics = m_painter.fontMetrics();
    const double step = roundStep(m_scale.secondsPerPixel() * kTimesApart);
    for (const double time : multiples(step, m_scale.from, m_scale.to)) {
        const int x = m_scale.xOf(time);
        m_painter.setPen(faint());
        m_painter.drawLine(x, area.top(), x, area.bottom());
        const QString text =
            languageString(strings::kSeconds).arg(numberText(time, decimalsOfStep(step)));
        const int half = metrics.horizontalAdvance(text) / 2 + 1;
        if ((time < -step / 2 && !negative) || x + half > m_painter.window().right())
            continue;
        m_painter.setPen(m_colors.color(QPalette::WindowText));
        m_painter.drawText(QRect(x - half, area.bottom() + 2, 2 * half, metrics.height()),
                           Qt::AlignCenter, text);
    }
}

void TraceDrawing::drawStroke(double millimetres) const
{
    const QRect& area = m_scale.area;
    m_painter.setPen(QPen(m_colors.color(QPalette::Text), 1, Qt::DashLine));
    for (const double end : {0.0, millimetres}) {
        if (const int y = m_scale.yOf(end); area.contains(area.left(), y))
            m_painter.drawLine(area.left(), y, area.right(), y);
    }
}

/// A column shows the whole of what falls into it, however many positions those are.
void TraceDrawing::drawPositions(PositionPoints points) const
{
    m_painter.setPen(m_colors.color(QPalette::Highlight));
    QList<QPoint> line;
    double before = 0.0;
    const auto draw = [&] {
        if (line.size() == 1)
            m_painter.drawPoint(line.first());
        m_painter.drawPolyline(line.constData(), static_cast<int>(line.size()));
        line.clear();
    };
    for (const PositionColumn& column :
         positionColumns(points, m_scale.from - kRounding, m_scale.secondsPerPixel())) {
        const bool isSilent = column.first.seconds - before > kPositionSilence;
        if (!line.isEmpty() && (isSilent || column.first.isFirst))
            draw();
        before = column.last.seconds;
        const int x = m_scale.area.left() + column.column;
        line.append({x, m_scale.yOf(column.first.millimetres)});
        if (column.minimum == column.maximum)
            continue;
        for (const double value : {column.minimum, column.maximum, column.last.millimetres})
            line.append({x, m_scale.yOf(value)});
    }
    draw();
}

void TraceDrawing::drawOutside(double millimetres) const
{
    if (millimetres >= m_scale.range.low && millimetres <= m_scale.range.high)
        return;
    const bool isAbove = millimetres > m_scale.range.high;
    const QRect inner = m_scale.area.adjusted(0, kArrow, -kArrow, -kArrow);
    const QPoint base = isAbove ? inner.topRight() : inner.bottomRight();
    const QPoint across(kArrow / 2, 0);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_colors.color(QPalette::Highlight));
    m_painter.drawPolygon(
        QPolygon({base - across, base + across, base + QPoint(0, isAbove ? -kArrow : kArrow)}));
    m_painter.setBrush(Qt::NoBrush);
}

void TraceDrawing::drawCursor(const PositionPoint& at) const
{
    const int x = m_scale.xOf(at.seconds);
    const int y = m_scale.yOf(at.millimetres);
    m_painter.setPen(m_colors.color(QPalette::Text));
    m_painter.drawLine(x, m_scale.area.top(), x, m_scale.area.bottom());
    m_painter.drawEllipse(QPoint(x, y), 3, 3);
}

} // namespace pelorin
