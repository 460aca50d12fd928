#pragma once

#include "link/PositionFrame.h"
#include "sensor/FormatRestore.h"
#include "sensor/PositionRecording.h"

#include <QList>
#include <QObject>

namespace pelorin {

/// The sensor's position stream. A sensor streams only when its data format says so: the start
/// writes that format, restarts the sensor and switches the line; the end, which comes in whatever
/// way, writes back the format that the sensor had. That one is stored before the sensor gets
/// another: from there on it outlasts whatever happens to link, sensor and computer.
/// User-interface thread.
class PositionStream final : public QObject
{
    Q_OBJECT

public:
    /// All outlive this.
    /// @param manualPower whether the user switches the sensor's supply
    PositionStream(SequenceRunner& runner, KeptFormats& formats, FormatRestore& restore,
                   bool manualPower);

    /// Gives a sensor of a type a data format, and reads its resolution.
    [[nodiscard]] static Plan formatPlan(const QByteArray& format, int ssiType);

    /// While there is no stream.
    void setManualPower(bool manualPower) { m_manualPower = manualPower; }

    /// Starts the stream. Does nothing while it runs.
    /// @return false if it cannot begin now
    [[nodiscard]] bool start();
    /// From the start on until the sensor has its own format again, or cannot be reached.
    [[nodiscard]] bool isActive() const { return m_state != State::Idle; }
    [[nodiscard]] bool isStreaming() const { return m_state == State::Streaming; }
    /// Millimetres per count, as read for this stream; 0 before it was.
    [[nodiscard]] double resolution() const { return m_resolution; }
    /// What a recording of this stream that begins now tells of it.
    [[nodiscard]] RecordingHead recordingHead() const;
    /// Asks for the next position, which position or missed tells.
    void requestPosition() { m_runner.requestPosition(); }

Q_SIGNALS:
    void streaming();
    /// The start has failed at a parameter; told again once the sensor has its own format back, if
    /// it had got the other one.
    void failed(char id);
    /// What the start or the end does from here on, as the number of a text.
    void stepBegun(int text);
    /// The user has to switch the sensor's supply off and on.
    void supplyWanted();
    /// Millimetres.
    void position(double value);
    void missed();
    /// Every position that has come since the last time, in its order; at most about thirty times
    /// a second while it streams.
    /// @param malformed how many frames were none
    void frames(const QList<PositionSample>& samples, int malformed);
    /// From here on there are no positions.
    void stopping();
    void ended();
    /// There is no stream, since the own format cannot be stored. The text tells the user so.
    void noticed(const QString& text);
    /// The sensor may still carry the streaming format; its own is kept.
    void formatKept(const KeptFormat& format);

private:
    enum class State { Idle, Starting, Streaming, Stopping };

    [[nodiscard]] bool begin();
    void takeFormat(const Outcome& outcome);
    void writeStreamingFormat();
    void takeResolution(const Outcome& outcome);
    void failStart(char id);
    void stop();
    void connectAgain(const Outcome& outcome);
    void finish(bool restored);
    void lose();
    void tellRestart(int text);
    void runNext(Plan plan, std::function<void(const Outcome&)> ended,
                 std::function<void()> closed = {});
    [[nodiscard]] bool run(Plan plan, std::function<void(const Outcome&)> ended,
                           std::function<void()> closed = {});

    SequenceRunner& m_runner;
    KeptFormats& m_formats;
    FormatRestore& m_restore;
    bool m_manualPower;

    State m_state = State::Idle;
    Reply m_reply; ///< the last one
    KeptFormat m_savedFormat;
    bool m_isKept = false; ///< m_savedFormat is stored until the sensor has it again
    int m_connectAttempts = 0;
    double m_resolution = 0.0;
};

} // namespace pelorin
