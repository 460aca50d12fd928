#include "cli/Watch.h"

#include "cli/EventLoop.h"
#include "cli/Output.h"
#include "cli/Session.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QJsonObject>

#include <cmath>
#include <utility>

namespace pelorin::cli {

namespace {

using namespace std::chrono_literals;

constexpr auto kLookPeriod = 200ms; ///< whether anybody still reads

} // namespace

Watch::Watch(Session& session, Output& output, double seconds, QString csv)
    : m_session(session), m_output(output), m_csv(std::move(csv)), m_seconds(seconds),
      m_stream(m_session.runner(), m_session.keptFormats(), m_session.formats(),
               m_session.isPowerManual())
{
    m_time.setSingleShot(true);
    m_time.setTimerType(Qt::PreciseTimer);
    connectStream();
    QObject::connect(&m_time, &QTimer::timeout, &m_stream, [this] {
        m_timeIsOver = true;
        end();
    });
    QObject::connect(&m_look, &QTimer::timeout, &m_stream, [this] { endUnread(); });
}

Result Watch::run()
{
    if (!m_stream.start())
        return interrupted(); // nothing else can be in its way
    m_look.start(kLookPeriod);
    runUntil([this] { return m_ended; });
    m_time.stop();
    m_look.stop();
    note(resultOf(m_recorder.end()));
    const bool isEmpty = m_tally.figures(m_end).count == 0;
    if (m_result.isDone() && isEmpty && m_session.isInterrupted()) {
        m_result = interrupted();
    } else if (m_result.isDone() && isEmpty && m_timeIsOver) {
        m_result = {.exit = ExitCode::NoAnswer,
                    .code = "no-positions",
                    .text = languageString(strings::kNoPositions)};
    }
    showSummary();
    return m_result;
}

void Watch::connectStream()
{
    const auto on = [this](auto signal, auto slot) {
        QObject::connect(&m_stream, signal, &m_stream, slot);
    };
    on(&PositionStream::streaming, [this] { begin(); });
    on(&PositionStream::frames, [this](const QList<PositionSample>& samples, int malformed) {
        m_malformed += malformed;
        take(samples);
    });
    on(&PositionStream::failed, [this](char id) {
        if (!m_session.isInterrupted())
            note(resultOf(Outcome{.kind = Outcome::Kind::Failed, .parameter = id}));
    });
    on(&PositionStream::stepBegun,
       [this](int text) { m_output.showProgress(languageString(text), 0, 1); });
    on(&PositionStream::supplyWanted,
       [this] { m_output.tell(languageString(strings::kSwitchSupply)); });
    on(&PositionStream::stopping, [this] {
        m_end = secondsAt(std::chrono::steady_clock::now());
        if (m_session.link().linkFailed() != 0)
            note(resultOf(Outcome{.kind = Outcome::Kind::Lost}));
    });
    on(&PositionStream::noticed, [this](const QString& text) {
        note({.exit = ExitCode::FileUnfit, .code = "file", .text = text});
    });
    on(&PositionStream::formatKept, [this](const KeptFormat& format) { noteKept(format); });
    on(&PositionStream::ended, [this] { m_ended = true; });
}

void Watch::begin()
{
    m_origin = std::chrono::steady_clock::now();
    if (!m_session.isPowerManual())
        startTime();
    if (m_csv.isEmpty())
        return;
    const auto begun = m_recorder.begin(m_csv, m_stream.recordingHead(), m_origin);
    if (!begun.isDone())
        stopFor(resultOf(begun));
}

/// Where the user switches the supply it begins with the first position.
void Watch::startTime()
{
    if (m_seconds > 0.0 && !m_time.isActive() && !m_timeIsOver)
        m_time.start(std::chrono::milliseconds(std::llround(m_seconds * 1000)));
}

void Watch::take(const QList<PositionSample>& samples)
{
    const int decimals = positionDecimals(m_stream.resolution());
    for (const auto& [time, millimetres] : samples) {
        if (time < m_origin)
            continue; // came while the stream began; the recording leaves it out, too
        const double seconds = secondsAt(time);
        m_tally.add({seconds, millimetres});
        show(QString::number(seconds, 'f', 4), QString::number(millimetres, 'f', decimals));
        startTime();
    }
    if (m_recorder.isRecording()) {
        if (const auto added = m_recorder.add(samples); !added.isDone())
            stopFor(resultOf(added));
    }
    endUnread();
}

double Watch::secondsAt(std::chrono::steady_clock::time_point time) const
{
    return std::chrono::duration<double>(time - m_origin).count();
}

void Watch::show(const QString& seconds, const QString& millimetres)
{
    m_output.print(seconds + QLatin1Char('\t') + millimetres);
    if (m_output.isJson()) {
        m_output.printObject({{QStringLiteral("seconds"), seconds.toDouble()},
                              {QStringLiteral("position"), millimetres.toDouble()}});
    }
}

/// Ends the stream, once: what is asked for while it starts or ends waits for the next time.
void Watch::end()
{
    if (m_stream.isStreaming())
        (void)m_session.runner().endStream(m_owner, [](bool /*restored*/) {});
}

/// Ends the stream if nobody gets the positions.
void Watch::endUnread()
{
    if (m_output.isClosed() || m_output.hasFailed())
        end();
}

void Watch::stopFor(const Result& result)
{
    note(result);
    end();
}

/// The first thing that goes wrong counts.
void Watch::note(const Result& result)
{
    if (m_result.isDone())
        m_result = result;
}

void Watch::noteKept(const KeptFormat& format)
{
    Result result{.exit = ExitCode::Failed,
                  .code = "format-not-restored",
                  .text = keptFormatInWords(format),
                  .parameter = 'D'};
    if (!m_result.isDone())
        result.text = m_result.text + QLatin1Char('\n') + result.text;
    m_result = result;
}

void Watch::showSummary()
{
    const PositionFigures figures = m_tally.figures(m_end);
    const int decimals = positionDecimals(m_stream.resolution());
    QJsonObject summary{{QStringLiteral("count"), figures.count},
                        {QStringLiteral("malformed"), m_malformed}};
    QStringList lines{languageString(strings::kMalformedFrames) +
                      QStringLiteral(": %1").arg(m_malformed)};
    const auto add = [&](const char* name, int text, std::optional<double> value, int digits) {
        if (!value || figures.count == 0)
            return;
        const QString number = QString::number(*value, 'f', digits);
        summary.insert(QLatin1String(name), number.toDouble());
        lines << languageString(text) + QStringLiteral(": ") + number;
    };
    add("minimum", strings::kMinimum, figures.minimum, decimals);
    add("maximum", strings::kMaximum, figures.maximum, decimals);
    add("mean", strings::kMean, figures.mean, decimals + 1);
    add("deviation", strings::kDeviation, figures.deviation, decimals + 1);
    add("perSecond", strings::kPositionsPerSecond, figures.perSecond, 1);
    add("longestGap", strings::kLongestGap, figures.longestGap, 4);
    m_output.set(QStringLiteral("summary"), summary);
    if (!m_output.isJson() && figures.count > 0)
        m_output.tell(lines.join(QLatin1Char('\n')));
}

} // namespace pelorin::cli
