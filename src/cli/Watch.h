#pragma once

#include "cli/Result.h"
#include "sensor/PositionFigures.h"
#include "sensor/PositionRecorder.h"
#include "sensor/PositionStream.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>

namespace pelorin::cli {

class Output;
class Session;

/// The position stream from its start to its end, shown and recorded.
class Watch
{
public:
    /// @param session with a connected sensor; outlives this, as the output
    /// @param seconds that it lasts; 0: until a signal comes or nobody reads any more
    /// @param csv the recording; empty for none
    Watch(Session& session, Output& output, double seconds, QString csv);

    /// Shows the positions until something ends it.
    [[nodiscard]] Result run();

private:
    void connectStream();
    void begin();
    void startTime();
    void take(const QList<PositionSample>& samples);
    [[nodiscard]] double secondsAt(std::chrono::steady_clock::time_point time) const;
    void show(const QString& seconds, const QString& millimetres);
    void end();
    void endUnread();
    void stopFor(const Result& result);
    void note(const Result& result);
    void noteKept(const KeptFormat& format);
    void showSummary();

    Session& m_session;
    Output& m_output;
    const QString m_csv;
    const double m_seconds;
    QObject m_owner; ///< asks for the end
    PositionStream m_stream;
    PositionRecorder m_recorder;
    PositionTally m_tally;
    std::chrono::steady_clock::time_point m_origin;
    QTimer m_time;
    QTimer m_look;
    double m_end = 0.0; ///< of the stream, in seconds
    int m_malformed = 0;
    bool m_timeIsOver = false;
    bool m_ended = false;
    Result m_result;
};

} // namespace pelorin::cli
