#include "platform/core/WholeFile.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pelorin {

namespace {

using Failure = WholeFile::Outcome::Failure;

constexpr auto kUnbufferedWriting = QIODevice::WriteOnly | QIODevice::Unbuffered;
constexpr int kNeverWaiting = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Right after a failed call; the toolkit refuses some files without one.
int systemError()
{
    return errno != 0 ? errno : EIO;
}

/// What a path leads to. Nothing is opened for it: that would wake what is behind a pipe, and
/// switch the supply of a sensor on a serial device.
struct Found
{
    enum class Kind { Nothing, File, Device, Other };

    Kind kind = Kind::Nothing;
    int error = 0; ///< why it can be neither saved nor read
    qint64 size = 0;
};

Found find(const QByteArray& name)
{
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        return {Found::Kind::Nothing, errno == ENOENT ? 0 : errno};
    if (S_ISREG(status.st_mode))
        return {Found::Kind::File, 0, status.st_size};
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        return {Found::Kind::Device};
    return {Found::Kind::Other, S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
}

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
    const Found found = find(name);
    if (found.error != 0)
        return {nullptr, found.error};
    if (found.kind == Found::Kind::Device) {
        auto device = std::make_unique<QFile>();
        const int error = openDescriptor(*device, name, O_WRONLY, kUnbufferedWriting);
        return {std::move(device), error};
    }
    if (found.kind == Found::Kind::File && ::access(name.constData(), W_OK) != 0)
        return {nullptr, errno}; // would be replaced all the same
    auto replacement = std::make_unique<QSaveFile>(path);
    errno = 0;
    const int error = replacement->open(kUnbufferedWriting) ? 0 : systemError();
    return {std::move(replacement), error};
}

/// A full disk takes a part first and tells only then why it takes no more.
bool writeWhole(QFileDevice& device, const QByteArray& piece)
{
    qint64 written = 0;
    while (written < piece.size()) {
        errno = 0;
        const qint64 count = device.write(piece.constData() + written, piece.size() - written);
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

/// Some disks tell only now that they are full, and the toolkit does not listen.
bool isOnDisk(const QFileDevice& device)
{
    return ::fsync(device.handle()) == 0 ||
           (errno != EIO && errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
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
        return {Failure::Opening, m_path, systemError()};
    m_prepared = QFileInfo(m_path).canonicalFilePath();
    return {};
}

WholeFile::Outcome WholeFile::save(const QByteArray& content)
{
    return save([rest = content]() mutable { return std::exchange(rest, QByteArray()); });
}

WholeFile::Outcome WholeFile::save(const Pieces& next)
{
    const Outcome outcome = write(next);
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
            return {Failure::Writing, m_path, systemError()};
    }
    if (!finish(*target.device))
        return {Failure::Writing, m_path, systemError()};
    return {};
}

WholeFile::Reading WholeFile::read(qint64 largest) const
{
    const auto failed = [this](Failure failure, int error) {
        return Reading{{failure, m_path, error}, {}};
    };
    const QByteArray name = QFile::encodeName(m_path);
    const Found found = find(name);
    if (found.error != 0)
        return failed(Failure::Opening, found.error);
    if (found.kind == Found::Kind::Device) // may never end
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
    return count == 0 ? reading : failed(Failure::Reading, systemError());
}

WholeFile::Outcome WholeFile::remove() const
{
    if (::unlink(QFile::encodeName(m_path).constData()) != 0 && errno != ENOENT)
        return {Failure::Writing, m_path, errno};
    return {};
}

} // namespace pelorin
