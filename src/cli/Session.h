#pragma once

#include "cli/Result.h"
#include "link/SensorLink.h"
#include "sensor/FormatRestore.h"
#include "sensor/Journal.h"
#include "sensor/KeptFormats.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <QObject>

#include <functional>
#include <optional>

namespace pelorin {
class ComPortFactory;
} // namespace pelorin

namespace pelorin::cli {

class Interruption;
class Output;
class Terminal;
struct Options;

/// The conversation of one command with one sensor. What it does it waits for, so that a command
/// reads from top to bottom; what a signal interrupts ends as it does when the window is closed.
/// It tells the output which port and sensor it has.
class Session final : public QObject
{
public:
    /// What it shares with the program; all outlive it.
    struct Shared
    {
        const ComPortFactory& factory;
        const Options& options;
        Output& output;
        Terminal& terminal;
        const Interruption& interruption;
    };

    explicit Session(const Shared& shared);
    ~Session() override;

    /// Opens the port, connects the sensor as often as it is to be waited for, identifies it and
    /// writes back a data format that was kept for it, unless nothing is to be written.
    /// @return NotIdentified after the rest was done, as far as it can be: it can still be read
    [[nodiscard]] Result connectSensor();

    /// Runs a plan to its end.
    /// @param text what it does, for the progress line
    [[nodiscard]] Outcome run(Plan plan, const QString& text,
                              std::function<void(const Reply&)> reply = {});

    /// Reads parameters, up to the first that fails.
    [[nodiscard]] Result read(const Plan& plan, SensorValues& values);

    /// Refused while the sensor has a streaming data format that is kept to be replaced.
    /// @param format as the sensor has answered it
    [[nodiscard]] Result checkFormat(const QByteArray& format) const;

    /// What write does with the sensor from its first write on.
    [[nodiscard]] Plan planOf(const WriteRequest& request) const
    {
        return m_writer.planOf(request);
    }
    /// Whether this is the sensor of an entry of the journal.
    [[nodiscard]] bool isSensorOf(const JournalEntry& entry) const
    {
        return m_writer.isSensorOf(entry);
    }

    /// Writes, with all that belongs to it.
    /// @param question as SafeWriter has it; without one nothing is written without the journal
    [[nodiscard]] WriteResult write(WriteRequest request, SafeWriter::Question question = {});

    [[nodiscard]] SensorLink& link() { return m_link; }
    [[nodiscard]] SequenceRunner& runner() { return m_runner; }
    [[nodiscard]] FormatRestore& formats() { return m_restore; }
    [[nodiscard]] KeptFormats& keptFormats() { return m_formats; }
    [[nodiscard]] const Journal& journal() const { return m_journal; }
    [[nodiscard]] bool isPowerManual() const { return m_manualPower; }
    [[nodiscard]] bool isInterrupted() const;

    /// What is wrong with the data format of the sensor, which may still be the streaming one; done
    /// if nothing is known to be.
    [[nodiscard]] const Result& formatFault() const { return m_formatFault; }

    /// Switches the supply off, unless the user does so, when the sensor has stored what was
    /// written to it, and closes the port.
    void close();

protected:
    void customEvent(QEvent* event) override;

private:
    [[nodiscard]] Result openPort();
    [[nodiscard]] Result connectOnce();
    [[nodiscard]] bool askForSupply();
    [[nodiscard]] Result checkType() const;
    void restoreFormat();
    void showSensor();
    void tellUnfinished();

    const Options& m_options;
    Output& m_output;
    Terminal& m_terminal;
    const Interruption& m_interruption;
    const bool m_manualPower;

    SensorLink m_link;
    SequenceRunner m_runner;
    KeptFormats m_formats;
    FormatRestore m_restore;
    const Journal m_journal;
    SafeWriter m_writer;
    Result m_formatFault;
};

} // namespace pelorin::cli
