#pragma once

#include <QString>

namespace pelorin {

/// The right to a file while a program works on what it stands for. The system takes it back when
/// the program ends, in whatever way. It does not keep others from reading the file.
class FileLock
{
public:
    /// Takes the lock of a file that exists.
    explicit FileLock(const QString& path);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    /// Whether it was taken; not where somebody else has it, or there is no such file.
    [[nodiscard]] bool isTaken() const { return m_descriptor >= 0; }

    /// Whether somebody has the lock of a file, this program included.
    [[nodiscard]] static bool isHeld(const QString& path);

private:
    int m_descriptor = -1;
};

} // namespace pelorin
