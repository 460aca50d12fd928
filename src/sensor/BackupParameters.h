#pragma once

#include <QByteArray>

#include <array>
#include <string_view>

namespace pelorin {

/// The data texts of a sensor's parameters by identifier; an empty text is no value.
class BackupValues
{
public:
    [[nodiscard]] const QByteArray& operator[](char id) const { return m_texts[index(id)]; }
    [[nodiscard]] QByteArray& operator[](char id) { return m_texts[index(id)]; }

    bool operator==(const BackupValues&) const = default;

private:
    static std::size_t index(char id) { return static_cast<unsigned char>(id); }

    std::array<QByteArray, 256> m_texts;
};

/// Whether a text has characters that a line of a backup file, or a frame, cannot carry.
[[nodiscard]] bool hasControlCharacters(const QByteArray& text);

/// What keeps values from being written to a sensor, by identifiers.
struct BackupFaults
{
    QByteArray missing;
    QByteArray unfit; ///< too long for a frame, or with control characters

    /// @param parameters those that the sensor needs; other values do not count
    [[nodiscard]] static BackupFaults of(const BackupValues& values, std::string_view parameters);

    bool operator==(const BackupFaults&) const = default;
};

} // namespace pelorin
