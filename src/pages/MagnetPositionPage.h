#pragma once

#include "pages/SensorPage.h"
#include "sensor/FormatRestore.h"

#include <QTimer>

#include <functional>

namespace pelorin {

class ColorableTextBox;

/// Shows the live magnet position. The sensor streams positions only when its data format says
/// so: the page writes that format, has the sensor restart and switches the link to the stream;
/// when it is left, in whatever way, it writes back the format that the sensor had.
class MagnetPositionPage final : public SensorPage
{
    Q_OBJECT

public:
    /// @param restore keeps the sensor's format and writes it back; outlives the page
    /// @param manualPower whether the user switches the sensor's supply
    MagnetPositionPage(FormatRestore& restore, bool manualPower);

    void getCurrentValues() override;
    /// Returns when the sensor has its own format again, or cannot be reached.
    void setNewValues() override;
    bool releaseLink() override;
    void linkLost() override;

Q_SIGNALS:
    /// The sensor still carries the streaming format; its own is kept and written back once it is
    /// connected again. The text tells the user so.
    void formatKept(const QString& text);

protected:
    void onInitDialog() override;
    void setupTranslationMap() override;
    void translate() override;
    void onLinkReply(int result) override;

private:
    /// What the page waits for, or does.
    enum class Phase {
        ReadFormat,
        WriteFormat,
        CloseFormat,
        ReadResolution, ///< and then for the first tick
        Stream,
        Reconnect,
        Restore ///< the steps of FormatRestore
    };

    /// What the page has made of the sensor's data format.
    enum class Format {
        Own,     ///< nothing, or it is written back
        Written, ///< the streaming format is written, but not yet in effect
        Streaming
    };

    void advance();
    void fail();
    void failStart(char id);
    void writeStreamingFormat();
    void closeStreamingFormat();
    void startStream();
    void onTick();
    void showPosition();
    void showText(const QString& text);

    bool stop();
    void restoreFormat();
    void reconnectAgain();
    void takeRestoreStep();
    void endRestore();
    void abandon();
    void waitUntil(const std::function<bool()>& done);

    FormatRestore& m_restore;
    const bool m_manualPower;
    ColorableTextBox* m_positionBox = nullptr;
    QTimer m_pollTimer;

    Phase m_phase = Phase::ReadFormat;
    bool m_running = false;  ///< the start sequence or the stream
    bool m_stopping = false; ///< the stop sequence
    bool m_restoreDone = false;
    int m_restoreAttempts = 0;
    Format m_sensorHas = Format::Own;
    SavedFormat m_format;
};

} // namespace pelorin
