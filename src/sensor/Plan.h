#pragma once

#include "sensor/SensorValues.h"

#include <QByteArray>

#include <chrono>
#include <vector>

namespace pelorin {

/// One thing that is done with the sensor.
struct Step
{
    enum class Kind {
        Connect,   ///< supply cycle, programming mode, version, identification
        Read,      ///< of parameter id
        Verify,    ///< the same, compared with value where there is one; goes on without an answer
        Write,     ///< of value to parameter id
        Close,     ///< the command id, which takes the values written into effect
        Raw,       ///< exchanges the bytes of value as they are
        SupplyOff, ///< once the sensor has stored what was written to it
        SupplyOn,
        StreamLine,    ///< the line follows the position stream
        ParameterLine, ///< the line is the usual one again
        KeepAliveOff,  ///< the user has switched the supply
        Pause          ///< only the pause
    };

    Kind kind = Kind::Pause;
    char id = 0;
    QByteArray value{};
    std::chrono::milliseconds pauseAfter{0};
    bool confirmed = false; ///< Read: an answer that is no value of the parameter is read once more
    int dataBits = 0;       ///< StreamLine: width of the streamed word
    int micrometres = 0;    ///< StreamLine: the resolution

    /// Whether the sensor may be changed by it.
    [[nodiscard]] bool writes() const
    {
        return kind == Kind::Write || kind == Kind::Close || kind == Kind::Raw;
    }

    [[nodiscard]] bool reads() const { return kind == Kind::Read || kind == Kind::Verify; }

    bool operator==(const Step&) const = default;
};

/// What is to be done with the sensor, made whole before the first of it is done.
using Plan = std::vector<Step>;

/// Between the requests of a sequence.
inline constexpr std::chrono::milliseconds kPauseBetweenRequests{100};
/// After the last frame that writes to it a sensor needs its supply for so long.
inline constexpr std::chrono::milliseconds kStoreTime{2000};

/// Reads parameters one after the other.
/// @param confirmed has answers that are no values read once more
[[nodiscard]] Plan readPlan(QByteArrayView ids, bool confirmed = false);

/// Reads parameters that were written, one after the other, and compares them. What differs, or
/// has no answer, is in the outcome; only the second silence in a row ends it.
[[nodiscard]] Plan verifyPlan(QByteArrayView order, const SensorValues& values);

/// The same for parameters that need not be known.
[[nodiscard]] Plan tolerantReadPlan(QByteArrayView ids);

/// One plan behind the other.
[[nodiscard]] Plan joined(Plan first, const Plan& second);

/// Writes parameters one after the other, and has the sensor take them into effect.
/// @param order the parameters; each has a value
/// @param closing the command that ends it
/// @param storePause waited for after that
[[nodiscard]] Plan writePlan(QByteArrayView order, const SensorValues& values, char closing,
                             std::chrono::milliseconds storePause = {});

/// Switches the sensor off and on, and takes it into its programming mode.
[[nodiscard]] Plan connectPlan();

/// Reads the version of a sensor whose supply the user switches.
/// @param switched whether the supply comes while PROG frames stream, which end then
[[nodiscard]] Plan connectByHandPlan(bool switched);

/// Writes a parameter without a value.
[[nodiscard]] Plan commandPlan(char id, std::chrono::milliseconds pauseAfter);

/// Sends bytes as they are and collects what comes back.
[[nodiscard]] Plan rawPlan(const QByteArray& bytes);

} // namespace pelorin
