#include "platform/core/WholeFile.h"

#include "platform/core/FileAccess.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace pelorin {

namespace {

using Failure = WholeFile::Outcome::Failure;

constexpr auto kUnbufferedWriting = QIODevice::WriteOnly | QIODevice::Unbuffered;
constexpr int kNeverWaiting = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// @return 0 or the system's error code
int openDescriptor(QFile& file, const QByteArray& name, int flags, QIODevice::OpenMode mode)
{
    const int descriptor = ::open(name.constData(), flags | kNeverWaiting);
    if (descriptor < 0)
        return errno;
    return file.open(descriptor, mode, QFileDevice::AutoCloseHandle) ? 0 : EIO;
}

/// What is written to: a file that is to replace the older one, or the device itself.
struct Target
{
    std::unique_ptr<QFileDevice> device;
    int error = 0;
};

Target openTarget(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const FoundFile found = findFile(name);
    if (found.error != 0)
        return {nullptr, found.error};
    if (found.kind == FoundFile::Kind::Device) {
        auto device = std::make_unique<QFile>();
        const int error = openDescriptor(*device, name, O_WRONLY, kUnbufferedWriting);
        return {std::move(device), error};
    }
    if (found.kind == FoundFile::Kind::File && ::access(name.constData(), W_OK) != 0)
        return {nullptr, errno}; // would be replaced all the same
    auto replacement = std::make_unique<QSaveFile>(path);
    errno = 0;
    const int error = replacement->open(kUnbufferedWriting) ? 0 : lastFileError();
    return {std::move(replacement), error};
}

/// Or a power failure brings the older file back. Not every file system can do it.
void putFolderOnDisk(const QString& path)
{
    const QByteArray name = QFile::encodeName(QFileInfo(path).canonicalPath());
    const int folder = ::open(name.constData(), O_RDONLY | O_DIRECTORY | kNeverWaiting);
    if (folder < 0)
        return;
    (void)::fsync(folder);
    (void)::close(folder);
}

bool finish(QFileDevice& device)
{
    if (!isOnDisk(device))
        return false;
    auto* replacement = qobject_cast<QSaveFile*>(&device);
    if (!replacement)
        return true;
    errno = 0;
    const bool replaced = replacement->commit();
    if (replaced)
        putFolderOnDisk(replacement->fileName());
    return replaced;
}

} // namespace

QString WholeFile::Outcome::reason() const
{
    return qt_error_string(systemError);
}

QString WholeFile::Outcome::message() const
{
    switch (failure) {
    case Failure::None:
        break;
    case Failure::Opening:
        return languageString(strings::kFileNotOpened)
            .arg(path, QString::number(systemError), reason());
    case Failure::Writing:
        return languageString(strings::kFileNotWritten).arg(path, reason());
    case Failure::Appending:
        return languageString(strings::kRecordingEnded).arg(path, reason());
    case Failure::Reading:
        return languageString(strings::kFileNotRead).arg(path, reason());
    }
    return {};
}

WholeFile::WholeFile(QString path) : m_path(std::move(path)) {}

WholeFile::Outcome WholeFile::makeFolder() const
{
    std::error_code error;
    std::filesystem::create_directories(
        std::filesystem::path(QFile::encodeName(m_path).toStdString()).parent_path(), error);
    if (error)
        return {Failure::Writing, m_path, error.value()};
    return {};
}

WholeFile::Outcome WholeFile::prepareSaving()
{
    const bool exists = QFileInfo::exists(m_path);
    if (const Target target = openTarget(m_path); target.error != 0)
        return {Failure::Opening, m_path, target.error};
    if (exists)
        return {};
    QFile file(m_path);
    errno = 0;
    if (!file.open(QIODevice::Append))
        return {Failure::Opening, m_path, lastFileError()};
    m_prepared = QFileInfo(m_path).canonicalFilePath();
    return {};
}

WholeFile::Outcome WholeFile::save(const QByteArray& content)
{
    return save([rest = content]() mutable { return std::exchange(rest, QByteArray()); });
}

WholeFile::Outcome WholeFile::save(const Pieces& next)
{
    Outcome outcome = write(next);
    if (outcome.isDone()) {
        m_prepared.clear();
    } else {
        giveUpSaving();
    }
    return outcome;
}

void WholeFile::giveUpSaving()
{
    const QString prepared = std::exchange(m_prepared, QString());
    if (!prepared.isEmpty())
        (void)QFile::remove(prepared); // somebody else may have done so
}

WholeFile::Outcome WholeFile::write(const Pieces& next) const
{
    const Target target = openTarget(m_path);
    if (target.error != 0)
        return {Failure::Opening, m_path, target.error};
    for (QByteArray piece = next(); !piece.isEmpty(); piece = next()) {
        if (!writeWhole(*target.device, piece))
            return {Failure::Writing, m_path, lastFileError()};
    }
    if (!finish(*target.device))
        return {Failure::Writing, m_path, lastFileError()};
    return {};
}

WholeFile::Reading WholeFile::read(qint64 largest) const
{
    const auto failed = [this](Failure failure, int error) {
        return Reading{{failure, m_path, error}, {}};
    };
    const QByteArray name = QFile::encodeName(m_path);
    const FoundFile found = findFile(name);
    if (found.error != 0)
        return failed(Failure::Opening, found.error);
    if (found.kind == FoundFile::Kind::Device) // may never end
        return failed(Failure::Opening, EINVAL);
    if (found.size > largest)
        return failed(Failure::Reading, EFBIG);
    QFile file;
    if (const int error =
            openDescriptor(file, name, O_RDONLY, QIODevice::ReadOnly | QIODevice::Unbuffered);
        error != 0)
        return failed(Failure::Opening, error);

    Reading reading;
    std::array<char, 16384> piece{};
    qint64 count = 0;
    errno = 0;
    while ((count = file.read(piece.data(), piece.size())) > 0) {
        reading.content.append(piece.data(), count);
        if (reading.content.size() > largest) // the system tells no size, or it has grown
            return failed(Failure::Reading, EFBIG);
        errno = 0;
    }
    return count == 0 ? reading : failed(Failure::Reading, lastFileError());
}

WholeFile::Outcome WholeFile::remove() const
{
    if (::unlink(QFile::encodeName(m_path).constData()) != 0 && errno != ENOENT)
        return {Failure::Writing, m_path, errno};
    return {};
}

WholeFile::Outcome WholeFile::moveTo(const QString& newPath) const
{
    if (std::rename(QFile::encodeName(m_path).constData(),
                    QFile::encodeName(newPath).constData()) != 0)
        return {Failure::Writing, m_path, errno};
    return {};
}

} // namespace pelorin
