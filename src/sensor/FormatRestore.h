#pragma once

#include "platform/core/WindowMessage.h"

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <optional>

namespace pelorin {

class SensorLink;

/// A sensor's own data format ('D') while the sensor carries the streaming one.
struct SavedFormat
{
    int port = 0;         ///< where the sensor was connected
    QByteArray version;   ///< its version answer
    QByteArray own;       ///< what it had, and must have again: six hexadecimal digits
    QByteArray streaming; ///< what was written instead

    bool operator==(const SavedFormat&) const = default;
};

/// The six digits of a data format that a sensor has answered; nothing if the answer is another
/// text.
[[nodiscard]] std::optional<QByteArray> formatDigits(const QByteArray& reply);

/// The data format with which a sensor streams its position, and is as before otherwise.
/// @param digits six hexadecimal digits
[[nodiscard]] QByteArray streamingFormat(const QByteArray& digits);

/// Keeps the own data formats of sensors that carry the streaming one, and writes them back. They
/// outlast the program, since a sensor can be unplugged and a computer can fail at any time. A
/// format goes only to a sensor on the same port that answers with the same version and still
/// carries the streaming format. User-interface thread.
class FormatRestore
{
public:
    /// @param fileName where the formats are kept
    explicit FormatRestore(const QString& fileName = usersFile());

    /// "Korvex Systems/PelorinFormats.ini" in the user's configuration folder.
    [[nodiscard]] static QString usersFile();

    /// Keeps a format until it is written back or dropped. Before the streaming format is written.
    void keep(const SavedFormat& format);
    void drop(const SavedFormat& format);
    [[nodiscard]] bool isKept(const SavedFormat& format) const;

    /// The own format of the sensor that is connected and has answered this format: another one
    /// if it still carries a streaming format of ours.
    [[nodiscard]] QByteArray ownFormat(const SensorLink& link, const QByteArray& digits) const;

    /// Begins to write back what belongs to the sensor that is connected.
    /// @return the first request, whose result goes to next; 0 if nothing is kept for it
    [[nodiscard]] RequestId begin(SensorLink& link);

    /// Goes on with the result of the last request. Blocks for the time that the sensor needs.
    /// @return the next request, 0 at the end
    [[nodiscard]] RequestId next(SensorLink& link, int result);

private:
    [[nodiscard]] std::optional<QByteArray> keptFor(const SensorLink& link,
                                                    const QByteArray& digits) const;

    enum class Step { Idle, ReadFormat, WriteFormat, Close };

    QSettings m_kept;
    SavedFormat m_current; ///< what is being written back
    Step m_step = Step::Idle;
    int m_lossesAtStart = 0;
};

} // namespace pelorin
