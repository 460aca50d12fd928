#pragma once

#include "pages/TraceScale.h"
#include "sensor/PositionFigures.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace pelorin {

/// Draws positions over their time, live or recorded. A cursor tells the value at one moment; it is
/// set and moved with the mouse and with Left, Right, Home and End (with Shift by single
/// positions) and taken away by Escape. Plus and minus ask for less or more time, Page Up and
/// Page Down move what stands still. Up and Down move the range of the positions, Ctrl with plus,
/// minus or the wheel changes it.
class PositionTrace final : public QWidget
{
    Q_OBJECT

public:
    static constexpr double kLongest = 600.0; ///< seconds that a live trace keeps

    explicit PositionTrace(QWidget* parent = nullptr);

    /// Adds what has come. It is shown at most 30 times a second, and not while paused.
    void append(PositionPoints points);
    /// Tells that the stream begins anew: before its first position none was waited for.
    void begin() { m_hasNone = true; }
    /// Whether the stream has no position yet; what there is has come of one before it.
    [[nodiscard]] bool hasNone() const { return m_hasNone; }
    /// Tells that positions were waited for until now: the trace goes on without them.
    void waitUntil(double seconds);
    /// Forgets what has come, but not what is shown while paused.
    void clear();
    /// Shows a recording, which stands still.
    void setRecording(const QList<PositionPoint>& points);

    /// @param seconds what is shown; all there is if 0
    void setDuration(double seconds);
    /// Keeps what is shown, whatever comes meanwhile.
    void setPaused(bool paused);
    [[nodiscard]] bool isPaused() const { return m_isFrozen; }
    /// Keeps the range of the positions; it otherwise follows what is shown.
    void setRangeHeld(bool held);
    /// Keeps a range from now on.
    void holdRange(const TraceRange& range);
    /// Shows positions relative to one.
    void setZero(std::optional<double> millimetres);
    [[nodiscard]] std::optional<double> zero() const { return m_zero; }
    /// Marks 0 and the end of the stroke; nothing if it is not known.
    void setStroke(std::optional<double> millimetres);
    /// @param mmPerCount 0 if it is not known
    void setResolution(double mmPerCount);

    [[nodiscard]] PositionPoints visible() const;
    /// The position at the cursor; nothing while the cursor is not within what is shown.
    [[nodiscard]] std::optional<PositionPoint> cursor() const;
    /// The position that came last.
    [[nodiscard]] std::optional<PositionPoint> last() const;
    /// The time at the left and the right edge.
    [[nodiscard]] double from() const { return m_end - duration(); }
    [[nodiscard]] double end() const { return m_end; }
    /// Where the positions are drawn.
    [[nodiscard]] QRect plot() const;
    [[nodiscard]] TraceScale scale() const;
    /// A position as text, with the decimals that it carries, relative where that is wanted.
    [[nodiscard]] QString valueText(double millimetres) const;

    [[nodiscard]] QSize sizeHint() const override { return {480, 220}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 120}; }

Q_SIGNALS:
    /// What is shown, or the cursor, has changed.
    void changed();
    /// Less (1) or more (-1) time is wanted.
    void zoomWanted(int steps);
    /// The user has chosen a range, which is held.
    void rangeHeld();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] const QList<PositionPoint>& points() const;
    [[nodiscard]] double duration() const;
    [[nodiscard]] bool hasRange() const { return m_range.low < m_range.high; }
    void fitRange();
    void setRange(const TraceRange& range);
    void zoomRange(bool closer, double millimetres);
    void follow();
    void show(double seconds);
    void refreshSoon();
    void refresh();
    void moveCursor(double seconds);
    void turnPage(int direction);
    void stepCursor(int direction, bool single);
    void drawTrace(QPainter& painter) const;

    QList<PositionPoint> m_live;
    QList<PositionPoint> m_frozen; ///< what is shown while frozen
    bool m_hasNone = false;
    bool m_isFrozen = false;
    bool m_isRecording = false;
    double m_duration = 30.0;
    double m_end = 0.0;
    double m_waited = 0.0; ///< seconds, as of the points
    TraceRange m_range;
    bool m_isRangeHeld = false;
    std::optional<double> m_zero;
    std::optional<double> m_stroke;
    double m_resolution = 0.0;
    std::optional<double> m_cursor; ///< seconds
    QTimer m_refresh;
};

} // namespace pelorin
