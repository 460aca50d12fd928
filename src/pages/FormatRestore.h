#pragma once

#include "platform/core/WindowMessage.h"

#include <QByteArray>

#include <vector>

namespace pelorin {

class SensorLink;

/// A sensor's own data format ('D') while the sensor carries the streaming one.
struct SavedFormat
{
    int port = 0;         ///< where the sensor was connected
    QByteArray version;   ///< its version answer
    QByteArray own;       ///< what it had, and must have again
    QByteArray streaming; ///< what was written instead

    bool operator==(const SavedFormat&) const = default;
};

/// Keeps the data formats that could not be written back, because the link was lost, and writes
/// each back once its sensor is connected again: only to a sensor that answers with the same
/// version and still carries the streaming format. User-interface thread.
class FormatRestore
{
public:
    void keep(const SavedFormat& format);

    /// Begins to write back what belongs to the sensor that has just been connected.
    /// @return the first request, whose result goes to next; 0 if there is nothing to do
    [[nodiscard]] RequestId begin(SensorLink& link);

    /// Goes on with the result of the last request. Blocks for the time that the sensor needs.
    /// @return the next request, 0 at the end
    [[nodiscard]] RequestId next(SensorLink& link, int result);

private:
    enum class Step { Idle, ReadFormat, WriteFormat, Close };

    std::vector<SavedFormat> m_kept;
    SavedFormat m_current;
    Step m_step = Step::Idle;
    int m_lossesAtStart = 0;
};

} // namespace pelorin
