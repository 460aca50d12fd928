#pragma once

#include <QByteArray>
#include <QFileDevice>

namespace pelorin {

/// What WholeFile and AppendedFile have in common, and nobody else uses.

/// What a path leads to. Nothing is opened for it: that would wait for what is behind a pipe, and
/// switch the supply of a sensor on a serial device.
struct FoundFile
{
    enum class Kind { Nothing, File, Device, Other };

    Kind kind = Kind::Nothing;
    int error = 0; ///< why it can be neither saved nor read
    qint64 size = 0;
};

/// @param name the path as the system has it
[[nodiscard]] FoundFile findFile(const QByteArray& name);

/// The system's code of the call that has just failed; the toolkit refuses some files without one.
[[nodiscard]] int lastFileError();

/// Writes all of it. A full disk takes a part first and tells only then why it takes no more.
/// @return false if it failed; lastFileError tells why
[[nodiscard]] bool writeWhole(QFileDevice& device, const QByteArray& piece);

/// Waits until what was written is on the disk: some tell only now that they are full, and the
/// toolkit does not listen. Not every file system can do it, which is no failure.
/// @return false if it failed; lastFileError tells why
[[nodiscard]] bool isOnDisk(const QFileDevice& device);

} // namespace pelorin
