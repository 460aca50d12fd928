#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/Watch.h"
#include "cli/Writing.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/PositionStream.h"

#include <QFileInfo>

namespace pelorin::cli {

namespace {

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
                                       : Watch(invocation.session(), invocation.output(), seconds,
                                               invocation.parser().value(csvName()))
                                             .run();
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
