#pragma once

#include "pages/SensorPage.h"
#include "sensor/PositionRecording.h"

#include <QTimer>

#include <chrono>
#include <optional>

class QCheckBox;
class QPushButton;

namespace pelorin {

class ColorableTextBox;
class PositionStream;
class PositionView;

/// Shows the live magnet position while the sensor streams it, its trace and figures, and records
/// it. The stream begins when the page is
/// shown; whoever leaves the page ends it before.
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
    void showPosition(double position);
    void showStep(int text);
    void clearStep();
    void takeFrames(const QList<PositionSample>& samples, int malformed);
    void makeView();
    void beginStreaming();
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
    std::optional<std::chrono::steady_clock::time_point> m_origin; ///< 0 of the trace's times
    bool m_interrupted = false; ///< somebody else has ended the stream
    bool m_isStepShown = false; ///< the status text says what the stream does, or asks the user to
                                ///< switch the supply
};

} // namespace pelorin
