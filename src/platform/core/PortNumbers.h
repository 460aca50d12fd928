#pragma once

#include "platform/core/WholeFile.h"

#include <QMap>
#include <QString>

namespace pelorin {

/// The devices to which the program has given a number of their own where the settings could not
/// be written; by number, from the profile.
[[nodiscard]] QMap<int, QString> keptPortNumbers();

/// Gives a device a number of its own, from now on: in the settings, or in the profile if the user
/// may not edit the settings, or has no file of their own and so goes on with the site's.
/// @param device the name under which it is found again
[[nodiscard]] WholeFile::Outcome keepPortNumber(int number, const QString& device);

} // namespace pelorin
