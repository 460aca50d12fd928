#pragma once

#include "sensor/BackupParameters.h"

#include <QString>

#include <memory>
#include <optional>

class QFileDevice;

namespace pelorin {

/// A file that keeps a sensor's parameters. Its first line is a marker; each further line is a
/// parameter: the identifier in two hexadecimal digits, a colon, the data text byte for byte.
/// Lines end in CR LF; LF alone is understood. The file is closed with this object.
class BackupFile
{
public:
    explicit BackupFile(QString path);
    BackupFile(const BackupFile&) = delete;
    BackupFile& operator=(const BackupFile&) = delete;
    ~BackupFile();

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Makes ready for save. A new file is there from now on, empty until it is saved; a file
    /// that exists keeps its content unless save succeeds.
    /// @return 0 or the system's error code
    [[nodiscard]] int openForSaving();

    /// Saves the values that are not empty, by ascending identifier. On failure a new file is
    /// gone and an older one is as it was.
    /// @return null, or the reason for the failure
    [[nodiscard]] QString save(const BackupValues& values);

    /// @return 0 or the system's error code
    [[nodiscard]] int openForReading();

    /// What reading has found.
    struct Reading
    {
        QString failure;                    ///< why the file could not be read; null if it could
        std::optional<BackupValues> values; ///< nothing if it is no backup file
    };
    [[nodiscard]] Reading read();

    /// The text of a file with these values, and the values of such a text; nothing if the text
    /// does not begin with the marker line.
    [[nodiscard]] static QByteArray textOf(const BackupValues& values);
    [[nodiscard]] static std::optional<BackupValues> valuesOf(const QByteArray& text);

private:
    [[nodiscard]] QString write(QByteArray text);

    QString m_path;
    QString m_newFile; ///< the file that was not there before; empty if it was
    std::unique_ptr<QFileDevice> m_device;
};

} // namespace pelorin
