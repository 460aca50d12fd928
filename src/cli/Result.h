#pragma once

#include "platform/core/WholeFile.h"

#include <QString>

namespace pelorin {
struct Outcome;
} // namespace pelorin

namespace pelorin::cli {

/// What the program ends with, for scripts: these numbers never change.
enum class ExitCode : int {
    Done = 0,    ///< also: equal
    Differs = 1, ///< what was compared, or written and read back
    Usage = 2,   ///< the command line, or an answer that nobody can give
    PortNotOpened = 3,
    NoAnswer = 4, ///< from the sensor
    NotIdentified = 5,
    Failed = 6,     ///< or the link was lost, or a data format was not restored
    FileUnfit = 7,  ///< cannot be read or written, or is none of ours
    Refused = 8,    ///< nothing was written
    NotChecked = 9, ///< written, but nobody knows whether it is as it was written
    Interrupted = 130
};

/// How a command has ended. The error's code is English and fixed, its text in the user's language.
struct Result
{
    ExitCode exit = ExitCode::Done;
    const char* code = nullptr; ///< null without an error; lasts as long as the program
    QString text{};
    char parameter = 0; ///< that it is about; 0 for none

    [[nodiscard]] bool isDone() const { return exit == ExitCode::Done; }
};

/// How a plan that only reads has ended.
[[nodiscard]] Result resultOf(const Outcome& outcome);
/// How an operation on a file of the user has ended.
[[nodiscard]] Result resultOf(const WholeFile::Outcome& outcome);
/// A command line that cannot be understood.
[[nodiscard]] Result usage(const QString& text);
/// What something refuses, in the user's language.
[[nodiscard]] Result refused(const QString& text, char parameter = 0);
/// What a signal has ended.
[[nodiscard]] Result interrupted();

} // namespace pelorin::cli
