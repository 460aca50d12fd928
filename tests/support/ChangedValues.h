#pragma once

#include "sensor/SensorValues.h"

#include <QList>

namespace pelorin::test {

/// The same values but for some, such as "A00000010 N000011": a letter alone takes its parameter
/// away, and an underline is a blank.
inline SensorValues changed(SensorValues values, const QByteArray& others)
{
    for (QByteArray other : others.split(' ')) {
        if (other.size() > 1) {
            values[other[0]] = other.mid(1).replace('_', ' ');
        } else if (!other.isEmpty()) {
            values.erase(other[0]);
        }
    }
    return values;
}

} // namespace pelorin::test
