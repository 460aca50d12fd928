#include "sensor/LookupTableFile.h"

#include "platform/core/HexText.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <string_view>
#include <system_error>

namespace pelorin {

namespace {

using Outcome = LookupTableResult::Outcome;

constexpr std::string_view kMarker = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
constexpr qint64 kLargestFile = 8 * 1024 * 1024;

/// Takes the first line, without its end, off a text.
std::string_view takeLine(std::string_view& text)
{
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
        return line;
    }
    text.remove_prefix(end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

quint32 hexField(std::string_view field)
{
    return hexToInt(QLatin1String(field.data(), static_cast<qsizetype>(field.size())));
}

CompensationEntry decodedLine(std::string_view line)
{
    const auto comma = line.find(',');
    if (comma == std::string_view::npos)
        return {};
    return {static_cast<qint16>(hexField(line.substr(0, comma))),
            static_cast<qint32>(hexField(line.substr(comma + 1)))};
}

QByteArray encodedTable(const CompensationTable& table)
{
    QByteArray text(kMarker.data(), static_cast<qsizetype>(kMarker.size()));
    text += "\r\n";
    for (const auto& [point, value] : table)
        text += QString::asprintf("%04X,%08X\r\n", static_cast<quint32>(point),
                                  static_cast<quint32>(value))
                    .toLatin1();
    return text;
}

/// Right after a failed call; the toolkit refuses some files without one.
int systemError()
{
    return errno != 0 ? errno : EIO;
}

bool isDeviceOrFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

} // namespace

QString LookupTableResult::reason() const
{
    return QString::fromStdString(std::system_category().message(systemError));
}

LookupTableResult writeLookupTableFile(const QString& path, const CompensationTable& table)
{
    if (isDeviceOrFolder(path)) // would be replaced by a file
        return {Outcome::NotOpened, path, EINVAL};
    const QByteArray text = encodedTable(table);
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return {Outcome::NotOpened, path, systemError()};
    if (file.write(text) != text.size() || !file.commit())
        return {Outcome::NotWritten, path, systemError()};
    return {Outcome::Done, path, 0};
}

LookupTableResult readLookupTableFile(const QString& path, CompensationTable& table)
{
    if (isDeviceOrFolder(path)) // may never end
        return {Outcome::NotATable, path, 0};
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {Outcome::NotOpened, path, systemError()};
    const QByteArray content = file.read(kLargestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return {Outcome::NotRead, path, systemError()};

    std::string_view rest(content.constData(), static_cast<std::size_t>(content.size()));
    if (content.size() > kLargestFile || takeLine(rest) != kMarker)
        return {Outcome::NotATable, path, 0};
    while (!rest.empty())
        table.push_back(decodedLine(takeLine(rest)));
    return {Outcome::Done, path, 0};
}

} // namespace pelorin
