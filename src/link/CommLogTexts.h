#pragma once

/// How the lines of the communications log begin: by that they are known again. The words are the
/// same in every language.
namespace pelorin::logtexts {

// Frames.
inline constexpr char kSent[] = "TX: ";
inline constexpr char kReceived[] = "RX: ";

// Faults, which end with a number.
inline constexpr char kSupplyFailed[] = "Error in EscapeCommFunction";
inline constexpr char kPurgeFailed[] = "Error in PurgeComm";
inline constexpr char kWriteFailed[] = "Error in WriteFile";
inline constexpr char kReadFailed[] = "Error in ReadFile";
inline constexpr char kFrameCut[] = "Byte count mismatch in WriteFile";
inline constexpr char kAnswerCount[] = "Invalid input byte count of";
inline constexpr char kAnswerEnd[] = "Invalid message terminator";
inline constexpr char kValueTooLong[] = "Invalid output data length of";

// What the sensor is.
inline constexpr char kOfType[] = "SSI Type:";
inline constexpr char kOfNoType[] = "SSY Type: Unknown"; ///< the whole line

} // namespace pelorin::logtexts
