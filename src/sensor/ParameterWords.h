#pragma once

#include "sensor/SensorValues.h"

#include <QByteArray>
#include <QString>

namespace pelorin {

struct DataFormat;

/// What the user is shown of parameters, in the current language.

/// A parameter: its name and its identifier.
[[nodiscard]] QString parameterInWords(char id);
[[nodiscard]] QString parametersInWords(const QByteArray& ids);

/// A parameter and its text as it stands, which may be no value.
[[nodiscard]] QString textInWords(char id, const QByteArray& text);

/// Those of values that are no values of their parameters, a line each; empty if all are.
/// @param ids which are looked at; each has a value
[[nodiscard]] QString doubtsInWords(const QByteArray& ids, const SensorValues& values);

/// The parts of the data format.
[[nodiscard]] QString formatText(const DataFormat& format);
[[nodiscard]] QString modeText(const DataFormat& format);
[[nodiscard]] QString multiplierText(const DataFormat& format);

/// The value of any other parameter, as it stands in a list that has a column for the unit.
[[nodiscard]] QString parameterText(char id, const QByteArray& reply);

/// The value of a parameter with its unit, all of it; a text that is no value is quoted.
/// @param values of the same sensor: an offset becomes a length by its resolution
[[nodiscard]] QString valueInWords(char id, const QByteArray& text, const SensorValues& values);

/// What a hexadecimal value stands for, in a sentence; empty for any other, and for a text that is
/// no value.
/// @param values of the same sensor: what is known of resolution and gradient is used
[[nodiscard]] QString meaningInWords(char id, const QByteArray& text, const SensorValues& values);

/// What a value says to somebody who sees its text beside it: its meaning, or else the value in
/// words.
[[nodiscard]] QString valueExplained(char id, const QByteArray& text, const SensorValues& values);

/// A hexadecimal number and what it is in decimal.
[[nodiscard]] QString hexadecimalInWords(const QByteArray& digits);

/// The characters that bytes stand for; a point in the middle for each that cannot be printed.
[[nodiscard]] QString charactersOf(const QByteArray& bytes);

} // namespace pelorin
