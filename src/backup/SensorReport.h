#pragma once

#include "sensor/JournalEntry.h"
#include "sensor/SensorValues.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace pelorin {

/// One page on a sensor, for the files of who maintains it: which sensor it is, each of its values
/// as it was read and in words, what was last written to it and whether that was verified, and
/// room for a note. In the current language.
struct SensorReport
{
    QDateTime time{}; ///< when it was read
    QString port{};   ///< and where
    int ssiType = 0;
    SensorValues values{};                   ///< every parameter of the type
    std::optional<JournalEntry> lastWrite{}; ///< to this sensor, as far as is known

    /// A web page that stands for itself.
    [[nodiscard]] QString html() const;
    /// The same page as a document, on A4.
    [[nodiscard]] QByteArray pdf() const;
};

} // namespace pelorin
