#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>

#include <chrono>
#include <optional>

class QCommandLineParser;

namespace pelorin::cli {

/// What can be asked of every command.
struct Options
{
    QString port{}; ///< as it was given; empty without one
    bool json = false;
    std::optional<int> type{};    ///< by hand, for a revision in no range
    bool manualPower = false;     ///< the user switches the sensor's supply
    std::chrono::seconds wait{0}; ///< for a sensor to answer
    QString logFile{};
    QString settingsFile{};
    std::optional<int> language{};
    bool yes = false;    ///< the answer to what would be asked
    bool dryRun = false; ///< nothing is written, to a sensor or to a file

    /// The options, described in the current language.
    [[nodiscard]] static QList<QCommandLineOption> all();

    /// Those of a parsed command line.
    /// @param fault gets what is wrong with them; null if nothing is
    [[nodiscard]] static Options of(const QCommandLineParser& parser, QString& fault);
};

} // namespace pelorin::cli
