#pragma once

#include <QByteArray>

#include <map>

namespace pelorin {

/// Texts of parameters, by their identifiers.
using SensorValues = std::map<char, QByteArray>;

} // namespace pelorin
