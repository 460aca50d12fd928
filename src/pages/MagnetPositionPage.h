#pragma once

#include "pages/FormatRestore.h"
#include "pages/SensorPage.h"

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
    /// @param restore keeps a format that could not be written back; outlives the page
    /// @param manualPower whether the user switches the sensor's supply
    MagnetPositionPage(FormatRestore& restore, bool manualPower);

    void getCurrentValues() override;
    /// Returns when the sensor has its own format again, or cannot be reached.
    void setNewValues() override;
    bool releaseLink() override;
    void linkLost() override;

Q_SIGNALS:
    /// The sensor still carries the streaming format; its own is written back once it is
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
        RestoreFormat,
        CloseRestore
    };

    void advance();
    void fail();
    void writeStreamingFormat();
    void startStream();
    void onTick();
    void showPosition();
    void showText(const QString& text);
    void stopStart();

    bool stop();
    void restoreFormat();
    void writeOwnFormat();
    void endRestore(bool restored);
    void abandon();
    void waitUntil(const std::function<bool()>& done);

    FormatRestore& m_restore;
    const bool m_manualPower;
    ColorableTextBox* m_positionBox = nullptr;
    QTimer m_pollTimer;

    Phase m_phase = Phase::ReadFormat;
    bool m_started = false;       ///< from the start until the stop has ended
    bool m_stopping = false;      ///< the stop sequence runs
    bool m_formatWritten = false; ///< the sensor may carry the streaming format
    bool m_restoreDone = false;
    int m_restoreAttempts = 0;
    SavedFormat m_format;
    int m_resolution = 0; ///< micrometres
};

} // namespace pelorin
