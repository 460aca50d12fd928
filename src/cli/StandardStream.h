#pragma once

#include <QByteArray>
#include <QSocketNotifier>

namespace pelorin::cli {

/// A standard stream that is written to without waiting for whoever reads it: what the reader has
/// not taken yet is kept, and follows from the event loop.
class StandardStream
{
public:
    explicit StandardStream(int descriptor);
    StandardStream(const StandardStream&) = delete;
    StandardStream& operator=(const StandardStream&) = delete;
    ~StandardStream();

    /// Nothing is written any more after a failure; too much that nobody takes is one.
    void write(const QByteArray& bytes);
    /// What was not taken by now is not waited for.
    void giveUp();

    /// Whether nothing is left to be taken.
    [[nodiscard]] bool isWritten() const { return m_rest.isEmpty(); }
    /// The system's error code of what could not be written; 0 if everything could.
    [[nodiscard]] int error() const { return m_error; }

private:
    void writeRest();
    void fail(int error);

    const int m_terminal; ///< -1 for none
    const int m_descriptor;
    QSocketNotifier m_room; ///< while something is left
    QByteArray m_rest;
    int m_error = 0;
};

} // namespace pelorin::cli
