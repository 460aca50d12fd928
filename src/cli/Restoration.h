#pragma once

#include "cli/Writing.h"
#include "sensor/SensorValues.h"

#include <QCommandLineOption>

#include <optional>

class QCommandLineParser;

namespace pelorin::cli {

class Invocation;

/// Values that are restored to the connected sensor, and what of them.
struct Restoration
{
    enum class Scope { All, OutputOnly };

    Scope scope = Scope::All;
    SensorValues values{};
    bool isEarlierState = false; ///< one of the journal, which has the factory text, too

    /// The options that say what is restored, and those of writing.
    [[nodiscard]] static QList<QCommandLineOption> options();
    /// @return nothing unless exactly one is named
    [[nodiscard]] static std::optional<Scope> scopeOf(const QCommandLineParser& parser);
};

/// Reads the connected sensor, and writes what differs of what is restored.
[[nodiscard]] Written restore(Invocation& invocation, const Restoration& restoration);

} // namespace pelorin::cli
