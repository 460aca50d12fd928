#pragma once

#include "platform/core/WholeFile.h"
#include "sensor/PositionFigures.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace pelorin {

/// What a recording of positions tells of itself.
struct RecordingHead
{
    QString version; ///< of the sensor, as it answers it
    int sensorType = -1;
    QString port;
    double resolution = 0.0; ///< mm; 0 if not known
    QDateTime start;         ///< the moment from which the times count

    bool operator==(const RecordingHead&) const = default;
};

/// The lines before the positions. Names and values are parted by commas, numbers have a decimal
/// point, lines end in CR LF.
[[nodiscard]] QByteArray recordingHeadText(const RecordingHead& head);

/// Lines of a time in s with four decimals and a position in mm with these decimals.
[[nodiscard]] QByteArray recordingLines(PositionPoints points, int decimals);

struct RecordingContent
{
    RecordingHead head;
    QList<PositionPoint> points; ///< of all lines that are whole
    int badLines = 0;
    int firstBadLine = 0; ///< counted from 1; 0 if there is none
    bool isRecording = false;
};

/// What a text holds. A line that is none of a recording, or whose time is before the one before
/// it, is passed over and counted.
[[nodiscard]] RecordingContent recordingOf(const QByteArray& text);

struct RecordingReading
{
    WholeFile::Outcome outcome;
    RecordingContent content;
};

/// Refuses what is larger than 512 MiB: 18 hours of 400 positions a second.
[[nodiscard]] RecordingReading readRecording(const QString& path);

} // namespace pelorin
