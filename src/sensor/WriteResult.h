#pragma once

#include "sensor/Outcome.h"
#include "sensor/SensorValues.h"

#include <QList>
#include <QString>

#include <chrono>

namespace pelorin {

/// What is to be written to the sensor, and what the user has seen of it before.
struct WriteRequest
{
    /// Who wants it written; kept in the journal by the name that nameOf gives.
    enum class By { OutputSetup, FactoryParameters, Restore, PutBack, CommandLine };

    By by = By::OutputSetup;
    QByteArray order; ///< the parameters, each with a value
    SensorValues values{};
    char closing = 0;                        ///< the command that takes them into effect
    std::chrono::milliseconds storePause{0}; ///< after that; safe writes wait longer
    SensorValues base{}; ///< as the user has seen the sensor: it must still be so
};

/// How something that was to be written has ended. Nothing is ever called verified that was not
/// read back from the restarted sensor.
struct WriteResult
{
    enum class Kind {
        NotWritten, ///< nothing has left
        Verified,   ///< after a restart the sensor has all of it
        Differs,    ///< it has something else
        NotChecked  ///< nobody knows; the reason says why
    };
    enum class Reason {
        None,
        NotRestarted, ///< all is as it was written, but perhaps not stored
        NoAnswer,     ///< or none that can be used, if only to a part
        AnotherSensor,
        AnotherPort, ///< a sensor of that version answers there; nobody knows which
        Closed,      ///< the program ended
        SwitchedOff,
        LinkLost,
        Undivided ///< the offset has come back as its count before the multiplication
    };

    Kind kind = Kind::NotWritten;
    Reason reason = Reason::None;
    QString problem{};               ///< for the user: why nothing was written, or what else failed
    Outcome outcome{};               ///< of the plan that was to write, or of the reads before
    QList<Difference> differences{}; ///< of Differs; of Undivided the offset
    QByteArray unanswered{};         ///< parameters that could not be read back
    QString device{};                ///< of the sensor; empty where it was not read before
    QByteArray version{};            ///< its version answer
    int ssiType = 0;                 ///< its type
    SensorValues before{};           ///< what the sensor had
    SensorValues has{};              ///< what was read back
    bool nothingChanged = false;     ///< Differs: the sensor has all that it had before
    QString entry{};                 ///< of the journal; empty without one
    WriteRequest request{};
};

/// The word of the outcome that the status bar shows, by its number.
[[nodiscard]] int headlineOf(const WriteResult& result);

/// All that the user is told: the headline's sentence, and what differs in words.
[[nodiscard]] QString textOf(const WriteResult& result);

} // namespace pelorin
