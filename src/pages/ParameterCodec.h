#pragma once

#include <QByteArray>

namespace pelorin {

/// What several pages decode from the sensor's parameter texts alike. Plain functions of the
/// reply's data text, independent of any locale. A text that is too short reads as zeros.

/// Parameter 'D': how the sensor formats its SSI output.
struct DataFormat
{
    static constexpr quint8 kReverse = 0x01;        ///< measures against the usual direction
    static constexpr quint8 kGray = 0x02;           ///< Gray code instead of binary
    static constexpr quint8 kStream = 0x04;         ///< streams positions on the programming line
    static constexpr quint8 kModeOne = 0x08;        ///< the second measurement mode
    static constexpr quint8 kMultiplierMask = 0xC0; ///< cycles whose counts are summed

    quint8 flags = 0;
    quint8 errorSkipCount = 0;
    quint8 dataBits = 0;

    [[nodiscard]] static DataFormat decode(const QByteArray& text);
    [[nodiscard]] QByteArray encode() const; ///< six hexadecimal digits

    [[nodiscard]] bool has(quint8 flag) const { return (flags & flag) != 0; }
    /// 1, 2, 4 or 8: what offset counts are multiplied with before they are written.
    [[nodiscard]] int multiplier() const;
};

/// Parameter 'K' of type 2: what else the output carries.
struct Extension
{
    qint32 extension = 0; ///< 0 none, 1 parity, 2 temperature
    qint32 mode = 0;      ///< 0 position, 1 difference, 2 velocity
    qint32 magnets = 0;   ///< 1 or 2

    [[nodiscard]] static Extension decode(const QByteArray& text);
};

/// Parameter 'A', micrometres, in millimetres.
[[nodiscard]] double decodeResolutionMm(const QByteArray& text);

/// Parameter 'L' behind its first two characters: the stroke in millimetres.
[[nodiscard]] double decodeStrokeMm(const QByteArray& text);

/// Parameter 'U', hundredths.
[[nodiscard]] double decodeGradient(const QByteArray& text);

} // namespace pelorin
