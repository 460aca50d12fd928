#include "sensor/PositionRecording.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{512} * 1024 * 1024;

constexpr double kLargestNumber = 1e9; // more could not be told apart any more

constexpr std::string_view kMarker = "Pelorin position recording";
constexpr std::string_view kVersion = "Sensor version";
constexpr std::string_view kType = "Sensor type";
constexpr std::string_view kPort = "Port";
constexpr std::string_view kResolution = "Resolution (mm)";
constexpr std::string_view kStart = "Start (UTC)";
constexpr std::string_view kTime = "Time (s)";
constexpr std::string_view kPosition = "Position (mm)";
constexpr std::string_view kFormatVersion = "1";

QByteArray line(std::string_view name, QByteArrayView value)
{
    return QByteArrayView(name).toByteArray() + ',' + value.toByteArray() + "\r\n";
}

/// A line's two fields: what is before its first comma, and what is after it.
struct Fields
{
    std::string_view first;
    std::string_view second;
};

Fields takeFields(std::string_view& text)
{
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    const auto comma = line.find(',');
    if (comma == std::string_view::npos)
        return {line, {}};
    return {line.substr(0, comma), line.substr(comma + 1)};
}

std::optional<double> numberOf(std::string_view text)
{
    double number = 0.0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] =
        std::from_chars(text.data(), end, number, std::chars_format::fixed);
    const bool whole = error == std::errc() && stopped == end && std::abs(number) <= kLargestNumber;
    return whole ? std::optional(number) : std::nullopt;
}

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// @return false if this is no line of a head with a value that it can have
bool takeHeadLine(const Fields& fields, RecordingHead& head)
{
    const auto& [name, value] = fields;
    if (name == kVersion) {
        head.version = textOf(value);
    } else if (name == kPort) {
        head.port = textOf(value);
    } else if (name == kType) {
        bool isNumber = false;
        head.sensorType = textOf(value).toInt(&isNumber);
        return isNumber;
    } else if (name == kResolution) {
        const auto resolution = numberOf(value);
        head.resolution = resolution.value_or(0.0);
        return resolution && *resolution >= 0.0;
    } else if (name == kStart) {
        head.start = QDateTime::fromString(textOf(value), Qt::ISODateWithMs);
        return head.start.isValid();
    } else {
        return name == kTime && value == kPosition;
    }
    return true;
}

} // namespace

QByteArray recordingHeadText(const RecordingHead& head)
{
    return line(kMarker, kFormatVersion) + line(kVersion, head.version.toUtf8()) +
           line(kType, QByteArray::number(head.sensorType)) +
           line(kPort, head.port.simplified().toUtf8()) +
           line(kResolution, QByteArray::number(head.resolution, 'f', 3)) +
           line(kStart, head.start.toUTC().toString(Qt::ISODateWithMs).toLatin1()) +
           line(kTime, kPosition);
}

QByteArray recordingLines(PositionPoints points, int decimals)
{
    QByteArray lines;
    for (const PositionPoint& point : points) {
        lines += QByteArray::number(point.seconds, 'f', 4) + ',' +
                 QByteArray::number(point.millimetres, 'f', decimals) + "\r\n";
    }
    return lines;
}

RecordingContent recordingOf(const QByteArray& text)
{
    RecordingContent content;
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()));
    const Fields marker = takeFields(rest);
    content.isRecording = marker.first == kMarker && marker.second == kFormatVersion;
    if (!content.isRecording) {
        content.badLines = content.firstBadLine = 1;
        return content;
    }
    content.points.reserve(text.count('\n')); // growing would take the room of several
    for (int number = 2; !rest.empty(); ++number) {
        const Fields fields = takeFields(rest);
        const auto seconds = numberOf(fields.first);
        const auto millimetres = numberOf(fields.second);
        const bool inOrder =
            seconds && (content.points.empty() || *seconds >= content.points.back().seconds);
        if (inOrder && millimetres) {
            content.points.push_back({*seconds, *millimetres});
        } else if (!content.points.empty() || !takeHeadLine(fields, content.head)) {
            if (content.badLines++ == 0)
                content.firstBadLine = number;
        }
    }
    return content;
}

RecordingReading readRecording(const QString& path)
{
    const auto [outcome, text] = WholeFile(path).read(kLargestFile);
    return {outcome, outcome.isDone() ? recordingOf(text) : RecordingContent()};
}

} // namespace pelorin
