#include "sensor/KeptFormats.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/IniText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <optional>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{64} * 1024;
constexpr qint64 kLargestFormerFile = qint64{1024} * 1024;
constexpr int kFormatDigits = 6;

QString suffix()
{
    return QStringLiteral(".ini");
}

bool isFormat(const QByteArray& text)
{
    return text.size() == kFormatDigits && std::all_of(text.begin(), text.end(), [](char digit) {
               return (digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F');
           });
}

bool isUsable(const KeptFormat& format)
{
    return !format.device.isEmpty() && isFormat(format.own) && isFormat(format.streaming);
}

QByteArray textOf(const KeptFormat& format)
{
    const QByteArray section = "Format";
    IniText ini;
    ini.set(section, "Device", QUrl::toPercentEncoding(format.device, "/:"));
    ini.set(section, "Own", format.own);
    ini.set(section, "ReadBack", QByteArray::number(static_cast<int>(format.readBack)));
    ini.set(section, "Streaming", format.streaming);
    ini.set(section, "Version", format.version.toHex());
    return ini.text();
}

std::optional<KeptFormat> formatOf(const QByteArray& text)
{
    const IniText ini(text);
    const auto value = [&ini](const char* key) { return ini.value("Format", key); };
    const KeptFormat format{QUrl::fromPercentEncoding(value("Device")),
                            QByteArray::fromHex(value("Version")), value("Own"), value("Streaming"),
                            value("ReadBack") == "1"};
    return isUsable(format) ? std::optional(format) : std::nullopt;
}

/// Of any device and version; an adapter's path alone can be longer than a file name may be.
QString fileName(const KeptFormat& format)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(format.device.toUtf8() + '\n' + format.version.toHex() + '\n' + format.streaming);
    return QString::fromLatin1(hash.result().toHex().left(40)) + suffix();
}

bool isSameDevice(const QString& one, const QString& other)
{
    if (one == other)
        return true;
    const QString present = QFileInfo(one).canonicalFilePath();
    return !present.isEmpty() && present == QFileInfo(other).canonicalFilePath();
}

/// An entry of the former file: [COM33], "<version in hexadecimal>\<streaming>=<own>".
KeptFormat formerFormat(const IniText::Entry& entry, const ComPortNames& ports)
{
    const auto separator = entry.key.indexOf('\\');
    KeptFormat format;
    if (entry.section.startsWith("COM"))
        format.device = ports.devicePath(QString::fromLatin1(entry.section));
    format.version = QByteArray::fromHex(entry.key.left(separator < 0 ? 0 : separator));
    format.own = entry.value;
    format.streaming = entry.key.mid(separator + 1);
    return format;
}

} // namespace

QString keptFormatInWords(const KeptFormat& format)
{
    return languageString(strings::kKeptFormat)
        .arg(format.device, QString::fromLatin1(format.version), QString::fromLatin1(format.own));
}

KeptFormats::KeptFormats(const QString& folder, const QString& formerFile) : m_folder(folder)
{
    takeOver(formerFile);
}

WholeFile::Outcome KeptFormats::keep(const KeptFormat& format) const
{
    WholeFile file = fileOf(format);
    if (!isUsable(format)) // could not be read again
        return {WholeFile::Outcome::Failure::Writing, file.path(), EINVAL};
    if (auto outcome = file.makeFolder(); !outcome.isDone())
        return outcome;
    return file.save(textOf(format));
}

WholeFile::Outcome KeptFormats::drop(const KeptFormat& format) const
{
    return fileOf(format).remove();
}

QList<KeptFormat> KeptFormats::all() const
{
    QList<KeptFormat> formats;
    const QDir folder(m_folder);
    for (const QString& name : folder.entryList({u'*' + suffix()}, QDir::Files, QDir::Name)) {
        const auto [outcome, text] = WholeFile(folder.filePath(name)).read(kLargestFile);
        const auto format = outcome.isDone() ? formatOf(text) : std::nullopt;
        if (format && fileName(*format) == name) // a copy could not be dropped
            formats.append(*format);
    }
    return formats;
}

QList<KeptFormat> KeptFormats::of(const QString& device, const QByteArray& version) const
{
    QList<KeptFormat> formats = all();
    formats.removeIf([&](const KeptFormat& format) {
        return format.version != version || !isSameDevice(format.device, device);
    });
    return formats;
}

WholeFile KeptFormats::fileOf(const KeptFormat& format) const
{
    return WholeFile(QDir(m_folder).filePath(fileName(format)));
}

void KeptFormats::takeOver(const QString& formerFile) const
{
    WholeFile former(formerFile);
    const auto [outcome, text] = former.read(kLargestFormerFile);
    IniText rest(text);
    const auto entries = rest.entries();
    if (!outcome.isDone() || rest.isDamaged() || entries.isEmpty())
        return;
    const ComPortNames ports;
    const auto kept = all(); // newer than what is in the former file
    for (const IniText::Entry& entry : entries) {
        const KeptFormat format = formerFormat(entry, ports);
        if (!isUsable(format))
            continue;
        const bool isKept = std::any_of(kept.cbegin(), kept.cend(), [&](const auto& other) {
            return fileName(other) == fileName(format);
        });
        if (isKept || keep(format).isDone())
            rest.remove(entry.section, entry.key);
    }
    // What stays in the former file is taken over again: no harm is done.
    if (rest.isEmpty()) {
        (void)former.remove();
    } else if (rest.text() != text) {
        (void)former.save(rest.text());
    }
}

} // namespace pelorin
