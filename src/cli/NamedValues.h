#pragma once

#include "sensor/SensorValues.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <array>
#include <string_view>

namespace pelorin::cli {

/// Parameters for scripts: names and values are English and fixed, numbers have no unit in them.

// Of the values 0, 1 and so on.
inline constexpr std::array kCodeWords = {"binary", "gray"};
inline constexpr std::array kDirectionWords = {"forward", "reverse"};
inline constexpr std::array kModeWords = {"asynchronous", "synchronous", "position-stream"};
inline constexpr std::array kOutputWords = {"position", "difference", "velocity"};
inline constexpr std::array kExtensionWords = {"none", "parity", "temperature"};

/// Every parameter that there is, in the order in which they are shown.
[[nodiscard]] std::string_view allParameters();

/// The name of a parameter as a whole; empty if there is none.
[[nodiscard]] QString nameOf(char id);

/// All values in the order of allParameters: the parts of a parameter one after the other, each
/// with the parameter's text. A text that is no value of its parameter has no value.
[[nodiscard]] QJsonArray namedValues(const SensorValues& values);

/// A parameter of which there are two texts; an empty one is left out.
[[nodiscard]] QJsonObject namedDifference(char id, const QByteArray& written,
                                          const QByteArray& found);

/// The same as namedValues for people, in the current language, a line for each parameter.
[[nodiscard]] QStringList valuesInWords(const SensorValues& values);

} // namespace pelorin::cli
