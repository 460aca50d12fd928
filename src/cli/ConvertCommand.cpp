#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFile.h"
#include "sensor/LookupTableFile.h"

namespace pelorin::cli {

namespace {

void showBackup(Output& output, const SensorValues& values)
{
    for (const QString& line : valuesInWords(values))
        output.print(line);
    output.set(QStringLiteral("values"), namedValues(values));
}

void showTable(Output& output, const CompensationTable& table)
{
    QJsonArray entries;
    for (const CompensationEntry& entry : table) {
        const auto [point, value] = textsOf(entry);
        output.print(point + QLatin1Char('\t') + value);
        entries.append(QJsonObject{{QStringLiteral("point"), pointToNumber(entry.point)},
                                   {QStringLiteral("value"), entry.value}});
    }
    output.set(QStringLiteral("table"), entries);
}

} // namespace

Result runConvert(Invocation& invocation)
{
    const QString path = invocation.arguments().front();
    BackupFile backup(path);
    if (Result read = resultOf(backup.read()); !read.isDone())
        return read;
    if (const auto values = backup.values()) {
        showBackup(invocation.output(), *values);
        return {};
    }
    if (const auto table = readLookupTableFile(path).table) {
        showTable(invocation.output(), *table);
        return {};
    }
    return {.exit = ExitCode::FileUnfit,
            .code = "unknown-file",
            .text = languageString(strings::kNeitherFile).arg(path)};
}

} // namespace pelorin::cli
