#pragma once

#include "pages/TraceScale.h"
#include "platform/core/WholeFile.h"
#include "sensor/PositionFigures.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QAbstractButton;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace pelorin {

class PositionTrace;

/// A trace of positions with its controls, and beside it the figures of what it shows.
class PositionView final : public QWidget
{
    Q_OBJECT

public:
    enum class Kind { Live, Recording };

    PositionView(Kind kind, QWidget* parent);

    /// @param malformed how many frames were none
    /// @param seconds when all of it had come
    void append(PositionPoints points, int malformed, double seconds);
    /// Tells whether positions come: what the magnet does now is not known without them.
    void setStreaming(bool streaming);
    /// Tells that a stream is begun: the trace keeps what came of the one before, but until a
    /// position comes there are no figures.
    /// @param seconds now
    void begin(double seconds);
    /// Forgets what has come.
    void clear();
    /// Tells how much is recorded; nothing if nothing was.
    void setRecorded(std::optional<double> seconds);
    [[nodiscard]] PositionTrace& trace() { return *m_trace; }
    /// Puts a further button behind the controls.
    void addButton(QPushButton* button);
    void translate();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    struct Figure
    {
        int caption;
        int unit; ///< number of a text; 0 without one
        std::function<QString(const PositionFigures&)> text;
        bool always = false; ///< told also without positions
        QLabel* captionLabel = nullptr;
        QLabel* valueLabel = nullptr;
    };

    void makeFigures(Kind kind);
    void placeFigures();
    void makeControls(Kind kind);
    void holdKeptRange();
    [[nodiscard]] WholeFile::Outcome keepRange();
    void zoom(int steps);
    void showFigures();
    void showFiguresSoon();
    void copyFigures() const;
    [[nodiscard]] bool isWaiting() const;
    [[nodiscard]] PositionFigures shownFigures() const;
    [[nodiscard]] static QString textOf(const Figure& figure, const PositionFigures& figures);
    [[nodiscard]] int malformedShown() const;
    [[nodiscard]] QString length(std::optional<double> millimetres) const;

    const Kind m_kind;
    PositionTrace* m_trace = nullptr;
    QLabel* m_timeCaption = nullptr;
    QComboBox* m_durations = nullptr;
    QHBoxLayout* m_controls = nullptr;
    QLabel* m_relative = nullptr;
    QAbstractButton* m_holdRange = nullptr;
    QAbstractButton* m_zero = nullptr;
    std::vector<std::pair<QAbstractButton*, int>> m_buttons; ///< with the numbers of their texts
    std::vector<Figure> m_figures;
    QList<std::pair<double, int>> m_malformed;       ///< when, and how many frames
    QList<std::pair<double, int>> m_frozenMalformed; ///< as they were when the trace was paused
    double m_begun = 0.0;                            ///< seconds, when the stream was begun
    bool m_isStreaming = false;
    std::optional<double> m_recorded; ///< seconds
    QTimer m_figuresTimer;
    std::optional<TraceRange> m_keptRange; ///< in the profile
    QTimer m_rangeTimer;                   ///< after it what was moved many times is kept once
};

} // namespace pelorin
