#pragma once

#include "platform/core/SettingsLocation.h"

#include <QString>

namespace pelorin {

class RegistryConfig;

/// What settings and profile say to every program of the product. Any thread.

/// What the names of the language modules begin with.
[[nodiscard]] QString productName();

/// The installation path, ending in a backslash; empty if the settings have none.
[[nodiscard]] QString installPath();

/// A switch of the product's settings; as it is without a value if they cannot be read.
[[nodiscard]] bool isSwitchedOn(const QString& name, bool otherwise = false);
/// The same, in the key that a store has open. What is on without a value is off only with 0, and
/// the other way round only with 1: a value that nobody means changes nothing.
[[nodiscard]] bool switchIn(RegistryConfig& config, const QString& name, bool otherwise);

/// Whether the user switches the sensor's supply.
[[nodiscard]] bool isPowerManual();
/// Whether what is written is kept, verified and can be put back.
[[nodiscard]] bool areWritesSafe();

/// The profile's entry of the language's code, and what it is without one.
[[nodiscard]] QString languageEntry();
inline constexpr int kDefaultLanguage = 1;

/// A text of the language, or what must be said even without one.
[[nodiscard]] QString textOr(int number, const QString& plain);

/// Why a settings file that exists is not used, for the user; null if it is.
[[nodiscard]] QString settingsFault(const QString& path = registryFilePath());
/// The same for a file that the user has named for this run, which has to exist.
[[nodiscard]] QString namedSettingsFault(const QString& path);

} // namespace pelorin
