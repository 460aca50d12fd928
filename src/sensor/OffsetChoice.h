#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace pelorin {

/// What an offset that was read, and not entered anew, can become when it is written back. With a
/// multiplier the counts are multiplied before they are written; a sensor that does not divide them
/// when it is read then shows another length with each writing.
struct OffsetChoice
{
    QByteArray has;                       ///< as it was read
    QByteArray kept;                      ///< the same length in the new resolution, not multiplied
    std::optional<QByteArray> multiplied; ///< nothing, as before, if its field cannot hold it
    double readResolutionMm = 0.0;
    double newResolutionMm = 0.0;
    int multiplier = 1;

    /// What the user is asked, with counts and lengths.
    [[nodiscard]] QString question() const;
};

/// @param offsetMm as it was read
/// @param multiplier of the data format to be written
/// @return nothing if there is nothing to choose: no multiplier, no offset, or one that does not
/// fit
[[nodiscard]] std::optional<OffsetChoice> offsetChoice(double offsetMm, double readResolutionMm,
                                                       double newResolutionMm, int multiplier);

} // namespace pelorin
