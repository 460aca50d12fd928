#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFile.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

namespace pelorin::cli {

namespace {

/// Texts that are no values were answered twice: they are saved, and the user is told.
void tellDoubts(Output& output, const SensorValues& values)
{
    QString doubts;
    for (const auto& [id, text] : values) {
        if (!isWellFormed(id, text))
            doubts += QLatin1Char('\n') + textInWords(id, text);
    }
    if (!doubts.isEmpty())
        output.tell(languageString(strings::kSavedDoubtful) + doubts);
}

Result readAndSave(Invocation& invocation, BackupFile& file)
{
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    SensorValues values;
    const std::string_view ids = sensorType(session.link().ssiType()).backup;
    if (Result read = session.read(readPlan(ids, true), values); !read.isDone())
        return read;
    if (Result format = session.checkFormat(values['D']); !format.isDone())
        return format;
    invocation.output().set(QStringLiteral("values"), namedValues(values));
    if (invocation.options().dryRun)
        return {};
    if (Result saved = resultOf(file.save(values)); !saved.isDone())
        return saved;
    tellDoubts(invocation.output(), values);
    return {};
}

} // namespace

/// Whether the file can be written is found out before anything else is done.
Result runBackup(Invocation& invocation)
{
    const QString path = invocation.arguments().front();
    if (Result asked = confirmOverwriting(invocation, path); !asked.isDone())
        return asked;
    BackupFile file(path);
    if (!invocation.options().dryRun) {
        if (Result prepared = resultOf(file.prepareSaving()); !prepared.isDone())
            return prepared;
    }
    Result result = readAndSave(invocation, file);
    if (!result.isDone())
        file.giveUpSaving();
    return result;
}

} // namespace pelorin::cli
