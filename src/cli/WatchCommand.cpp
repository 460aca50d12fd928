#include "cli/Commands.h"
#include "cli/EventLoop.h"
#include "cli/Invocation.h"
#include "cli/Output.h"
#include "cli/Writing.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/PositionRecording.h"
#include "sensor/PositionStream.h"

#include <QFileInfo>
#include <QTimer>

#include <cmath>
#include <utility>

namespace pelorin::cli {

namespace {

using namespace std::chrono_literals;

constexpr auto kLookPeriod = 200ms;  ///< whether anybody still reads
constexpr double kLongestTime = 1e6; ///< seconds

QString secondsName()
{
    return QStringLiteral("seconds");
}

QString csvName()
{
    return QStringLiteral("csv");
}

/// The time that was asked for; 0 without one.
/// @param fault gets what is wrong with it; null if nothing is
double secondsOf(const QCommandLineParser& parser, QString& fault)
{
    if (!parser.isSet(secondsName()))
        return 0.0;
    const QString text = parser.value(secondsName());
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    if (isNumber && seconds > 0.0 && seconds <= kLongestTime)
        return seconds;
    fault = languageString(strings::kBadOption).arg(QStringLiteral("--") + secondsName(), text);
    return 0.0;
}

/// The position stream from its start to its end.
class Watch
{
public:
    Watch(Invocation& invocation, double seconds)
        : m_session(invocation.session()), m_output(invocation.output()),
          m_csv(invocation.parser().value(csvName())), m_seconds(seconds),
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

    /// Shows the positions until something ends it.
    [[nodiscard]] Result run()
    {
        if (!m_stream.start())
            return Session::interrupted(); // nothing else can be in its way
        m_look.start(kLookPeriod);
        runUntil([this] { return m_ended; });
        m_time.stop();
        m_look.stop();
        note(resultOf(m_recorder.end()));
        if (m_result.isDone() && !m_began)
            m_result = Session::interrupted();
        if (m_result.isDone() && m_timeIsOver && m_tally.figures(m_end).count == 0) {
            m_result = {.exit = ExitCode::NoAnswer,
                        .code = "no-positions",
                        .text = languageString(strings::kNoPositions)};
        }
        showSummary();
        return m_result;
    }

private:
    void connectStream()
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
                note(Session::resultOf({.kind = Outcome::Kind::Failed, .parameter = id}));
        });
        on(&PositionStream::stepBegun,
           [this](int text) { m_output.showProgress(languageString(text), 0, 1); });
        on(&PositionStream::supplyWanted,
           [this] { m_output.tell(languageString(strings::kSwitchSupply)); });
        on(&PositionStream::stopping, [this] {
            m_end = secondsAt(std::chrono::steady_clock::now());
            if (m_session.link().linkFailed() != 0)
                note(Session::resultOf({.kind = Outcome::Kind::Lost}));
        });
        on(&PositionStream::noticed, [this](const QString& text) {
            note({.exit = ExitCode::FileUnfit, .code = "file", .text = text});
        });
        on(&PositionStream::formatKept, [this](const KeptFormat& format) { noteKept(format); });
        on(&PositionStream::ended, [this] { m_ended = true; });
    }

    void begin()
    {
        m_began = true;
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
    void startTime()
    {
        if (m_seconds > 0.0 && !m_time.isActive() && !m_timeIsOver)
            m_time.start(std::chrono::milliseconds(std::llround(m_seconds * 1000)));
    }

    void take(const QList<PositionSample>& samples)
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

    [[nodiscard]] double secondsAt(std::chrono::steady_clock::time_point time) const
    {
        return std::chrono::duration<double>(time - m_origin).count();
    }

    void show(const QString& seconds, const QString& millimetres)
    {
        m_output.print(seconds + QLatin1Char('\t') + millimetres);
        if (m_output.isJson()) {
            m_output.printObject({{QStringLiteral("seconds"), seconds.toDouble()},
                                  {QStringLiteral("position"), millimetres.toDouble()}});
        }
    }

    /// Ends the stream, once: what is asked for while it starts or ends waits for the next time.
    void end()
    {
        if (m_stream.isStreaming())
            (void)m_session.runner().endStream(m_owner, [](bool /*restored*/) {});
    }

    /// Ends the stream if nobody gets the positions.
    void endUnread()
    {
        if (m_output.isClosed() || m_output.hasFailed())
            end();
    }

    void stopFor(const Result& result)
    {
        note(result);
        end();
    }

    /// The first thing that goes wrong counts.
    void note(const Result& result)
    {
        if (m_result.isDone())
            m_result = result;
    }

    void noteKept(const KeptFormat& format)
    {
        Result result{.exit = ExitCode::Failed,
                      .code = "format-not-restored",
                      .text = keptFormatInWords(format),
                      .parameter = 'D'};
        if (!m_result.isDone())
            result.text = m_result.text + QLatin1Char('\n') + result.text;
        m_result = result;
    }

    void showSummary()
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
    bool m_began = false;
    bool m_timeIsOver = false;
    bool m_ended = false;
    Result m_result;
};

/// What the sensor would be given, and given back.
Result showFormat(Invocation& invocation, const QByteArray& own)
{
    const int type = invocation.session().link().ssiType();
    const Plan begin =
        joined(PositionStream::formatPlan(streamingFormat(own), type), connectPlan());
    showPlan(invocation.output(), joined(begin, FormatRestore::planOf(own, type)));
    return {};
}

/// A sensor that still has the streaming format of another time is left alone.
Result readFormat(Session& session, QByteArray& own)
{
    SensorValues values;
    if (Result read = session.read(readPlan("D", true), values); !read.isDone())
        return read;
    if (Result format = session.checkFormat(values['D']); !format.isDone())
        return format;
    const auto digits = formatDigits(values['D']);
    if (!digits) {
        return refused(languageString(strings::kMisread)
                           .arg(QStringLiteral("D"), QString::fromLatin1(values['D'])),
                       'D');
    }
    own = *digits;
    return {};
}

Result connectAndWatch(Invocation& invocation, double seconds)
{
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    QByteArray own;
    if (Result format = readFormat(session, own); !format.isDone())
        return format;
    return invocation.options().dryRun ? showFormat(invocation, own)
                                       : Watch(invocation, seconds).run();
}

} // namespace

QList<QCommandLineOption> watchOptions()
{
    return {{secondsName(), languageString(strings::kWatchTimeOption), QStringLiteral("N")},
            {csvName(), languageString(strings::kCsvOption), QStringLiteral("FILE")}};
}

/// The sensor is not given the streaming format for a recording that cannot be made.
Result runWatch(Invocation& invocation)
{
    QString fault;
    const double seconds = secondsOf(invocation.parser(), fault);
    if (!fault.isNull())
        return usage(fault);
    WholeFile csv(invocation.parser().value(csvName()));
    if (Result asked = confirmOverwriting(invocation, csv.path()); !asked.isDone())
        return asked;
    if (!csv.path().isEmpty() && !invocation.options().dryRun) {
        if (Result prepared = resultOf(csv.prepareSaving()); !prepared.isDone())
            return prepared;
    }
    Result result = connectAndWatch(invocation, seconds);
    if (QFileInfo(csv.path()).size() == 0)
        csv.giveUpSaving();
    return result;
}

} // namespace pelorin::cli
