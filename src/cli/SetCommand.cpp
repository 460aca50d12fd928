#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "cli/OutputEntries.h"
#include "cli/Terminal.h"
#include "cli/Writing.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/OffsetChoice.h"
#include "sensor/OutputRules.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"

#include <utility>

namespace pelorin::cli {

namespace {

constexpr const char* kKeepLength = "keep-length";
constexpr const char* kMultiplied = "multiplied";

QString passwordName()
{
    return QStringLiteral("password");
}

QString offsetCountName()
{
    return QStringLiteral("offset-count");
}

/// What is changed, and what of.
struct Change
{
    int ssiType = 0;
    SensorValues values{}; ///< as they were read
    OutputSettings read{};
    OutputSettings wanted{};
};

bool isOffsetCount(const QString& word)
{
    return word == QLatin1String(kKeepLength) || word == QLatin1String(kMultiplied);
}

Result checkOptions(const Invocation& invocation, const OutputEntries& entries)
{
    const QCommandLineParser& parser = invocation.parser();
    if (parser.isSet(offsetCountName()) && !isOffsetCount(parser.value(offsetCountName()))) {
        return usage(
            languageString(strings::kBadOption)
                .arg(QStringLiteral("--") + offsetCountName(), parser.value(offsetCountName())));
    }
    if (!entries.hasSkipCount())
        return {};
    if (!parser.isSet(passwordName()))
        return refused(languageString(strings::kPasswordPrompt), 'D');
    if (!isSkipCountPassword(parser.value(passwordName())))
        return refused(languageString(strings::kPasswordWrong), 'D');
    return {};
}

Result readSettings(Session& session, Change& change)
{
    change.ssiType = session.link().ssiType();
    const std::string_view ids = sensorType(change.ssiType).outputRead;
    if (Result read = session.read(readPlan(ids, true), change.values); !read.isDone())
        return read;
    for (const char id : ids) {
        const QByteArray& text = change.values[id];
        if (!isWellFormed(id, text)) {
            return refused(languageString(strings::kMisread)
                               .arg(QString(QLatin1Char(id)), QString::fromLatin1(text)),
                           id);
        }
        change.read.decode(id, text);
    }
    return session.checkFormat(change.values['D']);
}

/// Whether a setting is another one. An offset is the same if it has the same counts.
bool isChanged(const Change& change, const OutputEntries& entries)
{
    for (const char id : std::string_view("DAK")) {
        if (change.read.composeWriteValue(id) != change.wanted.composeWriteValue(id))
            return true;
    }
    if (!entries.offset())
        return false;
    const auto counts = encodeOffset(*entries.offset(), change.read.resolutionMm(), 1);
    return !counts || !isSameValue('N', *counts, change.values.at('N'));
}

/// Whether the sensor has everything already, also what follows from the settings.
Result compareSettings(Session& session, Change& change, const OutputEntries& entries, bool& same)
{
    same = !isChanged(change, entries);
    if (!same)
        return {};
    Result read = session.read(readPlan("S", true), change.values);
    const auto scale = change.wanted.composeWriteValue('S');
    same = scale && isSameValue('S', *scale, change.values['S']);
    return read;
}

Result checkEntries(const Change& change, const OutputEntries& entries)
{
    const OutputRefusal refusal = refusalOf(change.ssiType, change.wanted);
    if (change.read.micrometres <= 0)
        return refused(languageString(strings::kNoResolution), 'A');
    if (const QByteArray other = notOffered(change.ssiType, change.wanted); !other.isEmpty())
        return refused(languageString(strings::kValueMissing), other.front());
    if (refusal != OutputRefusal::None)
        return refused(languageString(textNumberOf(refusal)));
    const bool turned = change.read.format.has(DataFormat::kReverse) !=
                        change.wanted.format.has(DataFormat::kReverse);
    if (turned && !entries.offset())
        return refused(languageString(strings::kOffsetNeeded), 'N');
    return {};
}

/// An offset that was only read would become another one with each writing.
/// @param offset gets what is written in its place, if anything
Result chooseOffset(Invocation& invocation, const Change& change, std::optional<QByteArray>& offset)
{
    const auto choice =
        offsetChoice(change.read.offsetMm, change.read.resolutionMm(), change.wanted.resolutionMm(),
                     change.wanted.format.multiplier());
    if (!choice)
        return {};
    QString word = invocation.parser().value(offsetCountName());
    if (word.isEmpty() && !invocation.options().yes && invocation.terminal().isThere()) {
        const QString words =
            QStringLiteral(" [%1, %2]").arg(QLatin1String(kKeepLength), QLatin1String(kMultiplied));
        word = invocation.terminal().ask(choice->question() + words).value_or(QString());
    }
    if (invocation.isInterrupted())
        return interrupted();
    if (!isOffsetCount(word)) {
        return refused(choice->question() + QLatin1Char('\n') +
                           languageString(strings::kChooseOffsetCount),
                       'N');
    }
    offset = word == QLatin1String(kMultiplied) ? choice->multiplied : choice->kept;
    return offset ? Result() : refused(languageString(strings::kDoesNotFit), 'N');
}

Result writeChange(Invocation& invocation, const Change& change, const OutputEntries& entries)
{
    std::optional<QByteArray> offset;
    if (!entries.offset()) {
        if (Result chosen = chooseOffset(invocation, change, offset); !chosen.isDone())
            return chosen;
    }
    const auto values = composeOutput(change.ssiType, change.wanted, offset);
    if (!values)
        return refused(languageString(strings::kDoesNotFit));
    QStringList questions;
    for (const int question : questionsBefore(change.ssiType, change.wanted, change.read))
        questions << languageString(question);
    const SensorType& type = sensorType(change.ssiType);
    WriteRequest request;
    request.by = WriteRequest::By::CommandLine;
    request.order = QByteArrayView(type.outputWrite).toByteArray();
    request.values = *values;
    request.closing = type.closing;
    request.base = change.values;
    return write(invocation, std::move(request), questions).result;
}

} // namespace

QList<QCommandLineOption> setOptions()
{
    return QList<QCommandLineOption>{{passwordName(), languageString(strings::kPasswordOption),
                                      QStringLiteral("PASSWORD")},
                                     {offsetCountName(),
                                      languageString(strings::kOffsetCountOption),
                                      QStringLiteral("keep-length|multiplied")}} +
           writingOptions();
}

Result runSet(Invocation& invocation)
{
    QString fault;
    const auto entries = OutputEntries::of(invocation.arguments(), fault);
    if (!fault.isNull())
        return usage(fault);
    if (Result options = checkOptions(invocation, entries); !options.isDone())
        return options;
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    Change change;
    if (Result read = readSettings(session, change); !read.isDone())
        return read;
    if (const QString name = entries.extendedName();
        !name.isEmpty() && !sensorType(change.ssiType).has('K'))
        return refused(languageString(strings::kNotOfType).arg(change.ssiType).arg(name), 'K');
    change.wanted = entries.appliedTo(change.read);
    bool same = false;
    if (Result compared = compareSettings(session, change, entries, same); !compared.isDone())
        return compared;
    invocation.output().set(QStringLiteral("values"), namedValues(change.values));
    if (same) {
        invocation.output().print(languageString(strings::kNothingDiffers));
        return {};
    }
    if (Result checked = checkEntries(change, entries); !checked.isDone())
        return checked;
    return writeChange(invocation, change, entries);
}

} // namespace pelorin::cli
