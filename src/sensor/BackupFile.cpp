#include "sensor/BackupFile.h"

#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QList>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{1024} * 1024; ///< far beyond 256 values

QByteArray marker()
{
    return QByteArrayLiteral("~~~PELORIN_BACKUP_FILE~~~");
}

} // namespace

BackupFile::BackupFile(const QString& path) : m_file(path) {}

WholeFile::Outcome BackupFile::save(const SensorValues& values)
{
    return m_file.save(textOf(values));
}

WholeFile::Outcome BackupFile::read()
{
    const auto [outcome, content] = m_file.read(kLargestFile);
    m_text = content;
    return outcome;
}

QString BackupFile::refusal() const
{
    return path() + QStringLiteral(": ") + languageString(strings::kNoBackupFile);
}

QByteArray BackupFile::textOf(const SensorValues& values)
{
    QByteArray text = marker() + "\r\n";
    for (int id = 0x00; id <= 0xFF; ++id) {
        const auto value = values.find(static_cast<char>(id));
        if (value == values.end() || value->second.isEmpty())
            continue;
        text += QString::asprintf("%02X:", static_cast<unsigned>(id)).toLatin1();
        text += value->second + "\r\n";
    }
    return text;
}

std::optional<SensorValues> BackupFile::valuesOf(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast(); // behind the end of the last line there is none
    for (QByteArray& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    if (lines.isEmpty() || lines.takeFirst() != marker())
        return std::nullopt;

    SensorValues values;
    for (const QByteArray& line : lines) {
        const auto id = static_cast<char>(hexToInt(QLatin1String(line.left(2))) & 0xFF);
        values[id] = line.mid(3);
    }
    return values;
}

} // namespace pelorin
