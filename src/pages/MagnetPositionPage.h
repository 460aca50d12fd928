#pragma once

#include "pages/SensorPage.h"
#include "sensor/PositionRecorder.h"

#include <QTimer>

#include <chrono>

class QCheckBox;
class QPushButton;

namespace pelorin {

class ColorableTextBox;
class PositionStream;
class PositionView;

/// Shows the live magnet position while the sensor streams it, its trace and figures, and records
/// it. The stream begins when the page is shown; whoever leaves the page ends it before.
class MagnetPositionPage final : public SensorPage
{
    Q_OBJECT

public:
    /// @param stream outlives the page
    explicit MagnetPositionPage(PositionStream& stream);
    ~MagnetPositionPage() override;

    void getCurrentValues() override;
    void setNewValues() override { m_interrupted = false; }
    void resume() override;

protected:
    void onInitDialog() override;
    void setupTranslationMap() override;
    void translate() override;

private:
    using Clock = std::chrono::steady_clock;

    /// Where positions come from.
    struct Source
    {
        QString device;
        QByteArray version;
        double resolution = 0.0;

        bool operator==(const Source&) const = default;
    };

    void showPosition(double position);
    void showStep(int text);
    void clearStep();
    void takeFrames(const QList<PositionSample>& samples, int malformed);
    void makeView();
    void beginStreaming();
    [[nodiscard]] double secondsAt(Clock::time_point time) const;
    void record();
    void endRecording(const WholeFile::Outcome& outcome);
    void showText(const QString& text);
    void stopPolling();

    PositionStream& m_stream;
    ColorableTextBox* m_positionBox = nullptr;
    QTimer m_pollTimer;
    QCheckBox* m_allDecimals = nullptr;
    PositionView* m_view = nullptr;
    QPushButton* m_recordButton = nullptr;
    QPushButton* m_openButton = nullptr;
    PositionRecorder m_recorder;
    Source m_source;
    Clock::time_point m_origin; ///< 0 of the trace's times
    bool m_interrupted = false; ///< somebody else has ended the stream
    bool m_isStepShown = false; ///< the status text says what the stream does, or asks the user to
                                ///< switch the supply
};

} // namespace pelorin
