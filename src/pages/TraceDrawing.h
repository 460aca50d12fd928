#pragma once

#include "pages/TraceScale.h"
#include "sensor/PositionFigures.h"

#include <QPalette>

class QPainter;

namespace pelorin {

/// Draws what a trace consists of.
class TraceDrawing
{
public:
    /// @param painter outlives this
    TraceDrawing(QPainter& painter, const QPalette& colors, const TraceScale& scale);

    /// Lines across with their positions, to the left of the plot.
    /// @param zero mm that are shown as 0
    void drawLevels(double zero) const;
    /// Lines upwards with their times, below the plot.
    /// @param negative whether there are times before 0
    void drawTimes(bool negative) const;
    /// The ends of the stroke.
    void drawStroke(double millimetres) const;
    /// A line through positions that lie within the times shown, but not over silences.
    void drawPositions(PositionPoints points) const;
    /// An arrow at the right edge towards a position above or below what is shown.
    void drawOutside(double millimetres) const;
    void drawCursor(const PositionPoint& at) const;

private:
    [[nodiscard]] QColor faint() const;

    QPainter& m_painter;
    const QPalette m_colors;
    const TraceScale m_scale;
};

} // namespace pelorin
