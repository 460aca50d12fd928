#pragma once

#include "platform/core/WholeFile.h"
#include "sensor/SensorValues.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace pelorin {

/// A file that keeps a sensor's parameters. Its first line is a marker; each further line is a
/// parameter: the identifier in two hexadecimal digits, a colon, the data text byte for byte.
/// Lines end in CR LF; LF alone is understood, and any character in the place of the colon.
class BackupFile
{
public:
    explicit BackupFile(const QString& path);

    [[nodiscard]] const QString& path() const { return m_file.path(); }

    /// Before the sensor is read: see WholeFile.
    [[nodiscard]] WholeFile::Outcome prepareSaving() { return m_file.prepareSaving(); }
    void giveUpSaving() { m_file.giveUpSaving(); }

    /// Saves the values that are not empty, by ascending identifier.
    [[nodiscard]] WholeFile::Outcome save(const SensorValues& values);

    [[nodiscard]] WholeFile::Outcome read();
    /// What was read; nothing if it is no backup file.
    [[nodiscard]] std::optional<SensorValues> values() const { return valuesOf(m_text); }
    /// What the user is told of a file that is no backup file, with its path.
    [[nodiscard]] QString refusal() const;

    /// The text of a file with these values, and the values of such a text; nothing if the text
    /// does not begin with the marker line.
    [[nodiscard]] static QByteArray textOf(const SensorValues& values);
    [[nodiscard]] static std::optional<SensorValues> valuesOf(const QByteArray& text);

private:
    WholeFile m_file;
    QByteArray m_text;
};

} // namespace pelorin
