#include "sensor/BackupFile.h"

#include "platform/core/HexText.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QSaveFile>

#include <cerrno>
#include <utility>

namespace pelorin {

namespace {

constexpr qint64 kLongestFile =
    qint64{1024} * 1024; ///< far beyond 256 values; what is longer is foreign

QByteArray marker()
{
    return QByteArrayLiteral("~~~PELORIN_BACKUP_FILE~~~");
}

/// Opens a file and tells the system's error code, 0 for success.
int openFile(QFileDevice& file, QIODevice::OpenMode mode)
{
    errno = 0;
    if (file.open(mode))
        return 0;
    return errno != 0 ? errno : EIO;
}

} // namespace

BackupFile::BackupFile(QString path) : m_path(std::move(path)) {}

BackupFile::~BackupFile() = default;

int BackupFile::openForSaving()
{
    const bool exists = QFileInfo::exists(m_path);
    auto file = std::make_unique<QFile>(m_path);
    if (const int error = openFile(*file, QIODevice::ReadWrite | QIODevice::Unbuffered); error != 0)
        return error;
    const QFileInfo info(m_path);
    if (!exists)
        m_newFile = info.canonicalFilePath();
    if (!info.isFile()) { // a device is written to, never replaced
        m_device = std::move(file);
        return 0;
    }
    auto replacement = std::make_unique<QSaveFile>(m_path);
    const int error = openFile(*replacement, QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (error == 0) {
        m_device = std::move(replacement);
    } else if (!exists) {
        QFile::remove(m_newFile);
    }
    return error;
}

QString BackupFile::save(const BackupValues& values)
{
    QString failure = write(textOf(values));
    m_device.reset();
    if (!failure.isNull() && !m_newFile.isEmpty())
        QFile::remove(m_newFile);
    return failure;
}

QString BackupFile::write(QByteArray text)
{
    while (!text.isEmpty()) {
        // A full disk takes a part first and tells only then why it takes no more.
        const qint64 written = m_device->write(text);
        if (written <= 0)
            return m_device->errorString();
        text.remove(0, written);
    }
    auto* replacement = qobject_cast<QSaveFile*>(m_device.get());
    return !replacement || replacement->commit() ? QString() : replacement->errorString();
}

int BackupFile::openForReading()
{
    const QFileInfo info(m_path);
    if (info.exists() && !info.isFile()) // a pipe would keep us waiting
        return info.isDir() ? EISDIR : EINVAL;
    m_device = std::make_unique<QFile>(m_path);
    return openFile(*m_device, QIODevice::ReadOnly);
}

BackupFile::Reading BackupFile::read()
{
    const QByteArray text = m_device->read(kLongestFile + 1);
    if (m_device->error() != QFileDevice::NoError)
        return {m_device->errorString(), {}};
    if (text.size() > kLongestFile)
        return {};
    return {{}, valuesOf(text)};
}

QByteArray BackupFile::textOf(const BackupValues& values)
{
    QByteArray text = marker() + "\r\n";
    for (int id = 0x00; id <= 0xFF; ++id) {
        const QByteArray& value = values[static_cast<char>(id)];
        if (!value.isEmpty()) {
            text +=
                QString::asprintf("%02X:", static_cast<unsigned>(id)).toLatin1() + value + "\r\n";
        }
    }
    return text;
}

std::optional<BackupValues> BackupFile::valuesOf(const QByteArray& text)
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

    BackupValues values;
    for (const QByteArray& line : lines) {
        const auto id = static_cast<char>(hexToInt(QLatin1String(line.left(2))) & 0xFF);
        values[id] = line.mid(3);
    }
    return values;
}

} // namespace pelorin
