#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace pelorin {

/// What several pages decode from the sensor's parameter texts and encode into them alike. Plain
/// functions, independent of any locale. A reply's text that is too short reads as zeros; a value
/// that its text cannot carry is not encoded.

/// Whether a text is printable ASCII, blanks included.
[[nodiscard]] bool isPrintable(QByteArrayView text);

/// Whether a reply is wholly a value of its parameter. A reply that was disturbed on the line may
/// still be decoded, to another value: nothing that follows from it may be written.
[[nodiscard]] bool isWellFormed(char id, const QByteArray& reply);

/// Whether two texts of a parameter mean the same; texts that are no values, only if they are
/// equal.
[[nodiscard]] bool isSameValue(char id, const QByteArray& one, const QByteArray& other);

/// Fixes a value text to a width: drops leading characters, or puts zeros in front.
[[nodiscard]] QByteArray padValueText(const QByteArray& text, int width);

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
    [[nodiscard]] QByteArray encode() const; ///< six hexadecimal digits
};

/// Parameter 'A', micrometres, in millimetres.
[[nodiscard]] double decodeResolutionMm(const QByteArray& text);
/// Eight decimal digits.
[[nodiscard]] QByteArray encodeResolution(int micrometres);

/// Parameter 'L' behind its first two characters: the stroke in millimetres.
[[nodiscard]] double decodeStrokeMm(const QByteArray& text);
/// @param packageCode the first two characters
/// @param millimetres the digits of the stroke, brought to at least four
[[nodiscard]] QByteArray encodeStroke(const QByteArray& packageCode, const QByteArray& millimetres);

/// Parameter 'U', hundredths.
[[nodiscard]] double decodeGradient(const QByteArray& text);
/// At least six decimal digits; nothing for a negative gradient or one of more than nine digits.
[[nodiscard]] std::optional<QByteArray> encodeGradient(double gradient);

/// Parameter 'S', six hexadecimal digits, which follows from gradient and resolution.
/// @param resolutionMm millimetres per count
/// @return nothing if it does not fit six digits, or if there is no resolution
[[nodiscard]] std::optional<QByteArray> encodeScale(double gradient, double resolutionMm);

/// What a stroke gives in parameter 'Z', rounded down. Up to kLongestStroke it fits the text.
[[nodiscard]] int cycleCode(double strokeMm);
/// The same for parameter 'M'.
[[nodiscard]] int cycleCodeM(double strokeMm);
inline constexpr int kLongestStroke = 43639; ///< millimetres

/// Parameter 'Z', which follows from the stroke: four hexadecimal digits and "32".
/// @param strokeMm 0 to kLongestStroke
[[nodiscard]] QByteArray encodeCycleCode(double strokeMm);

/// Parameter 'M', which follows from the stroke and ends in a byte of its own.
/// @param strokeMm 0 to kLongestStroke
[[nodiscard]] QByteArray encodeCycleCodeM(double strokeMm, quint8 suffix);

/// Parameters 'J' and 'O': six hexadecimal digits.
/// @param value at most FFFFFF
[[nodiscard]] QByteArray encodeFactoryValue(quint32 value);

/// Parameter 'N', counts of the resolution. A text that begins with FF is negative, one of six
/// digits also.
[[nodiscard]] qint32 decodeOffsetCounts(const QByteArray& text);
/// Six hexadecimal digits; nothing for counts that these would not give back, which are those
/// below -65536 and above 16711679.
[[nodiscard]] std::optional<QByteArray> encodeOffsetCounts(qint64 counts);
/// The counts of an offset in millimetres: a whole number, so that an offset that was read is
/// given back as the counts that were read, times the multiplier of the data format.
[[nodiscard]] std::optional<QByteArray> encodeOffset(double offsetMm, double resolutionMm,
                                                     int multiplier);

} // namespace pelorin
