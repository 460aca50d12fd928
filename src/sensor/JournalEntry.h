#pragma once

#include "sensor/SensorValues.h"
#include "sensor/WriteResult.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace pelorin {

/// The state that a sensor had before something was written to it, and what became of that.
struct JournalEntry
{
    /// How the writing has ended, as far as the file tells.
    struct End
    {
        WriteResult::Kind kind = WriteResult::Kind::NotWritten;
        WriteResult::Reason reason = WriteResult::Reason::None;
        bool told = true; ///< whether the user was told

        bool operator==(const End&) const = default;
    };

    QString id{};         ///< the files' name; made by the journal
    QDateTime time{};     ///< UTC
    QString device{};     ///< where the sensor was connected: by-id path, else path
    int port = 0;         ///< its COM number then
    QByteArray version{}; ///< the sensor's version answer
    int ssiType = 0;
    bool typeChosen = false; ///< by hand, since the settings did not know the revision
    SensorValues values{};   ///< what the sensor had, the factory text 'F' included if it is known
    SensorValues written{};  ///< what was about to be written
    WriteRequest::By by = WriteRequest::By::OutputSetup;
    std::optional<End> end{}; ///< nothing while the writing is not known to have ended

    bool operator==(const JournalEntry&) const = default;
};

} // namespace pelorin
