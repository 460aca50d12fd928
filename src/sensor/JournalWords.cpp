#include "sensor/JournalWords.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFaults.h"
#include "sensor/JournalEntry.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <QLocale>
#include <QStringList>

#include <string>

namespace pelorin {

QString timeInWords(const JournalEntry& entry)
{
    const QLocale locale;
    QString format = locale.dateTimeFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("ss")))
        format.replace(QLatin1String("mm"), QLatin1String("mm:ss"));
    return locale.toString(entry.time.toLocalTime(), format);
}

QString deviceInWords(const JournalEntry& entry)
{
    if (entry.port == 0)
        return entry.device;
    return languageString(strings::kPort).arg(entry.port) + QStringLiteral(", ") + entry.device;
}

QString entryInWords(const JournalEntry& entry)
{
    const QStringList words{timeInWords(entry), entry.device, QString::fromLatin1(entry.version)};
    return words.join(QStringLiteral(", "));
}

QString writerInWords(WriteRequest::By by)
{
    switch (by) {
    case WriteRequest::By::OutputSetup:
        return languageString(strings::kOutputSetup);
    case WriteRequest::By::FactoryParameters:
        return languageString(strings::kFactoryParameters);
    case WriteRequest::By::Restore:
        return languageString(strings::kRestoreBackupTitle);
    case WriteRequest::By::PutBack:
        return languageString(strings::kStatePutBack);
    case WriteRequest::By::CommandLine:
        break;
    }
    return languageString(strings::kCommandLine);
}

PutBackRefusal putBackRefusal(const JournalEntry& entry, int ssiType)
{
    if (ssiType != entry.ssiType)
        return {languageString(strings::kStateOfOtherType)};
    const std::string order = "F" + std::string(sensorType(ssiType).backup);
    const QByteArray unfit = BackupFaults::of(entry.values, order).unfit;
    if (unfit.isEmpty())
        return {};
    return {languageString(strings::kNothingWritten) + QLatin1Char('\n') +
                languageString(strings::kBackupNotUsable).arg(parametersInWords(unfit)),
            unfit.front()};
}

QString outcomeInWords(const JournalEntry& entry)
{
    if (!entry.end)
        return languageString(strings::kUnfinished);
    const WriteResult result{.kind = entry.end->kind, .reason = entry.end->reason};
    if (result.reason != WriteResult::Reason::LinkLost)
        return textOf(result);
    // A later run does not compare it any more.
    return languageString(headlineOf(result)) + QLatin1Char('\n') +
           languageString(strings::kLinkLost);
}

QString unfinishedInWords(const JournalEntry& entry)
{
    return languageString(strings::kUnfinishedWrite)
        .arg(entry.device, QString::fromLatin1(entry.version), timeInWords(entry));
}

} // namespace pelorin
