#pragma once

#include "cli/Result.h"
#include "cli/StandardStream.h"

#include <QJsonObject>
#include <QString>

namespace pelorin::cli {

class Interruption;

/// What a command says: results on standard output, in words or as one JSON object; words and a
/// progress line, where that is a terminal, on standard error.
class Output
{
public:
    /// @param interruption outlives it
    Output(bool json, const Interruption& interruption);

    [[nodiscard]] bool isJson() const { return m_json; }

    /// A line of results; nothing with JSON.
    void print(const QString& line);
    /// A member of the JSON object.
    void set(const QString& name, const QJsonValue& value) { m_object.insert(name, value); }
    /// A JSON object of its own before the last one, at once.
    void printObject(const QJsonObject& object);

    /// Words for the user, beside the results.
    void tell(const QString& text);
    /// What is being done, and how much of it.
    void showProgress(const QString& text, int done, int of);

    /// Says how the command has ended, and waits until all that was said has been taken. After a
    /// signal it waits for some seconds only.
    /// @param command its name; empty without one
    /// @return the same, or, if all was well, that the results could not be written
    [[nodiscard]] Result finish(const QString& command, const Result& result);

    /// Whether something could not be written to standard output.
    [[nodiscard]] bool hasFailed() const { return m_results.error() != 0; }
    /// Whether whoever has read standard output has closed it.
    [[nodiscard]] bool isClosed() const;

private:
    void clearProgress();
    void deliver();

    const bool m_json;
    const bool m_showsProgress;
    const Interruption& m_interruption;
    StandardStream m_results;
    StandardStream m_words;
    bool m_progressShown = false;
    QJsonObject m_object;
};

} // namespace pelorin::cli
