#pragma once

#include "pages/SensorPage.h"

#include <QTimer>

namespace pelorin {

class ColorableTextBox;
class PositionStream;

/// Shows the live magnet position while the sensor streams it. The stream begins when the page is
/// shown; whoever leaves the page ends it before.
class MagnetPositionPage final : public SensorPage
{
    Q_OBJECT

public:
    /// @param stream outlives the page
    explicit MagnetPositionPage(PositionStream& stream);

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
    void showText(const QString& text);
    void stopPolling();

    PositionStream& m_stream;
    ColorableTextBox* m_positionBox = nullptr;
    QTimer m_pollTimer;
    bool m_interrupted = false; ///< somebody else has ended the stream
    bool m_isStepShown = false; ///< the status text says what the stream does, or asks the user to
                                ///< switch the supply
};

} // namespace pelorin
