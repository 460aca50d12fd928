#include "app/SupportFile.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramVersion.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryLexer.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"
#include "platform/core/UserFolders.h"
#include "platform/core/WholeFile.h"
#include "sensor/JournalWords.h"
#include "sensor/ParameterWords.h"

#include <QDateTime>
#include <QStringList>
#include <QSysInfo>

namespace pelorin {

namespace {

constexpr int kMostLines = 5000; ///< of the log; more than anybody reads
constexpr qint64 kLargestSettings = qint64{1024} * 1024;

QString section(int heading, const QStringList& lines)
{
    return QStringLiteral("== %1 ==\n%2\n\n")
        .arg(languageString(heading), lines.join(QLatin1Char('\n')));
}

QStringList versions(int language)
{
    return {languageString(strings::kProgram) + QLatin1Char(' ') + programRelease(),
            QStringLiteral("Qt %1").arg(QLatin1String(qVersion())),
            QSysInfo::prettyProductName() + QStringLiteral(", ") + QSysInfo::kernelType() +
                QLatin1Char(' ') + QSysInfo::kernelVersion() + QStringLiteral(", ") +
                QSysInfo::currentCpuArchitecture(),
            languageString(strings::kLanguageMenu).remove(u'&') +
                QStringLiteral(": %1").arg(language)};
}

QStringList linesOf(const QString& path)
{
    const auto reading = WholeFile(path).read(kLargestSettings);
    if (!reading.outcome.isDone())
        return {reading.outcome.message()};
    return decodedRegistry(reading.content).remove(u'\r').split(u'\n');
}

/// What the settings file says of this program and of the names of ports, without comments; a
/// site's file may hold more. The lines are told apart by their beginnings alone: a damaged file is
/// what help is asked for.
QStringList settings()
{
    const QStringList own = {productKey().mid(1), QStringLiteral("\\DEVICEMAP\\")};
    QStringList lines{registryFilePath()};
    bool isOwn = true;
    for (const QString& line : linesOf(registryFilePath())) {
        if (line.startsWith(u'[')) {
            const auto isOf = [&line](const QString& key) {
                return line.contains(key, Qt::CaseInsensitive);
            };
            isOwn = std::any_of(own.begin(), own.end(), isOf);
        }
        if (isOwn && !line.isEmpty() && !line.startsWith(u';'))
            lines << line;
    }
    return lines << QString() << profilePath() << linesOf(profilePath());
}

QStringList stateLines(const JournalEntry& entry)
{
    QStringList lines{timeInWords(entry), deviceInWords(entry), QString::fromLatin1(entry.version),
                      writerInWords(entry.by), outcomeInWords(entry)};
    for (const auto& [id, text] : entry.values)
        lines << textInWords(id, text);
    lines << languageString(strings::kWrittenHeader);
    for (const auto& [id, text] : entry.written)
        lines << textInWords(id, text);
    return lines;
}

QStringList logLines(const CommLog::Snapshot& log)
{
    QStringList lines;
    const int first = qMax(0, log.size() - kMostLines);
    if (first > 0) {
        lines << languageString(strings::kLastLines)
                     .arg(QString::number(kMostLines), QString::number(log.size()));
    }
    for (int index = first; index < log.size(); ++index) {
        lines << QDateTime::fromMSecsSinceEpoch(log.time(index)).toString(Qt::ISODateWithMs) +
                     QLatin1Char(' ') + log.line(index);
    }
    return lines;
}

} // namespace

QString SupportFile::text() const
{
    return section(strings::kVersionsHeading, versions(language)) +
           section(strings::kSettingsTitle, settings()) +
           section(strings::kLastStateHeading, lastState ? stateLines(*lastState) : QStringList()) +
           section(strings::kCommLog, logLines(log));
}

} // namespace pelorin
