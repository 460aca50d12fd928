#include "sensor/LogLineWords.h"

#include "link/CommLogTexts.h"
#include "link/PositionFrame.h"
#include "link/SensorFrame.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"

#include <QLatin1String>
#include <QRegularExpression>

#include <array>
#include <optional>

namespace pelorin {

namespace {

/// A line that is no frame, by its beginning. What ends it is a number.
struct Event
{
    enum class Argument { None, Number, SystemError };

    const char* begin;
    int text;
    Argument argument;
};

constexpr std::array<Event, 10> kEvents = {{
    {logtexts::kSupplyFailed, strings::kSupplyLineFailed, Event::Argument::SystemError},
    {logtexts::kPurgeFailed, strings::kPurgeFailed, Event::Argument::SystemError},
    {logtexts::kWriteFailed, strings::kSendingFailed, Event::Argument::SystemError},
    {logtexts::kReadFailed, strings::kReceivingFailed, Event::Argument::SystemError},
    {logtexts::kFrameCut, strings::kFrameCut, Event::Argument::None},
    {logtexts::kAnswerCount, strings::kAnswerCount, Event::Argument::Number},
    {logtexts::kAnswerEnd, strings::kAnswerEnd, Event::Argument::None},
    {logtexts::kValueTooLong, strings::kValueTooLong, Event::Argument::Number},
    {logtexts::kOfType, strings::kIsOfType, Event::Argument::Number},
    {logtexts::kOfNoType, strings::kIsOfNoType, Event::Argument::None},
}};

constexpr int kLinesBetween = 3;  ///< errors, between a request and its answer
constexpr int kLinesOfPage = 200; ///< within which the resolution was read

/// A frame of the log.
struct Frame
{
    bool sent = false;
    QByteArray bytes;

    [[nodiscard]] bool asks() const
    {
        return sent && !bytes.isEmpty() && bytes == readFrameOf(bytes[0]);
    }
    [[nodiscard]] bool writes() const
    {
        return sent && isWhole() && bytes.mid(1).startsWith(kFrameSet);
    }
    [[nodiscard]] bool isWhole() const { return bytes.endsWith(kFrameTerminator); }
};

std::optional<Frame> frameOf(const QString& line)
{
    const bool sent = line.startsWith(QLatin1String(logtexts::kSent));
    if (!sent && !line.startsWith(QLatin1String(logtexts::kReceived)))
        return std::nullopt;
    return Frame{sent, bytesOfFrameText(line)};
}

/// The parameter that the line is the answer to; 0 if none was asked for right before.
char askedBefore(const CommLog::Snapshot& lines, int index)
{
    for (int before = index - 1; before >= qMax(0, index - 1 - kLinesBetween); --before) {
        if (const auto frame = frameOf(lines.line(before)))
            return frame->asks() ? frame->bytes[0] : '\0';
    }
    return '\0';
}

/// The resolution as it was last answered before, for what is counted in it.
SensorValues valuesBefore(const CommLog::Snapshot& lines, int index)
{
    for (int before = index - 1; before > qMax(0, index - kLinesOfPage); --before) {
        const auto frame = frameOf(lines.line(before));
        if (frame && !frame->sent && frame->isWhole() && askedBefore(lines, before) == 'A')
            return {{'A', frame->bytes.chopped(1)}};
    }
    return {};
}

QString valueText(char id, const QByteArray& text, const CommLog::Snapshot& lines, int index)
{
    const SensorValues values = id == 'N' ? valuesBefore(lines, index) : SensorValues();
    return valueExplained(id, text, values);
}

QString sentText(const Frame& frame, const CommLog::Snapshot& lines, int index)
{
    const char id = frame.bytes.isEmpty() ? '\0' : frame.bytes[0];
    if (frame.asks())
        return languageString(strings::kReadOf).arg(parameterInWords(id));
    if (!frame.writes())
        return {};
    const QByteArray value = frame.bytes.mid(2).chopped(1);
    if (value.isEmpty())
        return languageString(strings::kCommandOf).arg(QLatin1Char(id));
    return languageString(strings::kWriteOf)
        .arg(parameterInWords(id), valueText(id, value, lines, index));
}

QString receivedText(const Frame& frame, const CommLog::Snapshot& lines, int index)
{
    if (frame.bytes.isEmpty())
        return languageString(strings::kNothingReceived);
    if (!frame.isWhole())
        return languageString(strings::kNoWholeAnswer).arg(charactersOf(frame.bytes));
    const QByteArray text = frame.bytes.chopped(1);
    if (const char id = askedBefore(lines, index)) {
        return languageString(strings::kAnswerOf)
            .arg(parameterInWords(id), valueText(id, text, lines, index));
    }
    if (decodePosition(frame.bytes, {}))
        return languageString(strings::kPositionOf).arg(QString::fromLatin1(text));
    return languageString(strings::kNoWholeAnswer).arg(charactersOf(text));
}

QString eventText(const QString& line)
{
    for (const Event& event : kEvents) {
        if (!line.startsWith(QLatin1String(event.begin)))
            continue;
        static const QRegularExpression kLastNumber(QStringLiteral("(\\d+)\\D*$"));
        const QString number = kLastNumber.match(line).captured(1);
        switch (event.argument) {
        case Event::Argument::Number:
            return languageString(event.text).arg(number);
        case Event::Argument::SystemError:
            return languageString(event.text).arg(qt_error_string(number.toInt()));
        case Event::Argument::None:
            return languageString(event.text);
        }
    }
    return {};
}

} // namespace

QString logLineInWords(const CommLog::Snapshot& lines, int index)
{
    const QString line = lines.line(index);
    const auto frame = frameOf(line);
    if (!frame)
        return eventText(line);
    return frame->sent ? sentText(*frame, lines, index) : receivedText(*frame, lines, index);
}

} // namespace pelorin
