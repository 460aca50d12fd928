#pragma once

#include "backup/BackupProgressDialog.h"
#include "backup/ReviewDialog.h"
#include "sensor/WriteResult.h"

#include <QObject>
#include <QString>

namespace pelorin {

class BackupFile;
class CommandGate;
class FormatRestore;
class PagePane;
class SafeWriter;
class SensorLink;
class SequenceRunner;
struct JournalEntry;

/// The commands that take all of a sensor's parameters at once: saved to a file, restored from one,
/// compared with it, and put back as they were before a change. Each runs its dialogs one after the
/// other, tells the user through the gate what has to be told, and says what is left to be done
/// with the sensor. The sensor is idle and the gate free when one is begun. User-interface thread.
class BackupCommands final : public QObject
{
    Q_OBJECT

public:
    using Mode = BackupProgressDialog::Mode;

    /// What they use; all outlive them.
    struct Shared
    {
        SafeWriter& writer;
        const FormatRestore& formats;
        CommandGate& gate;
        PagePane& pages;
    };

    /// @param window owns the commands and their dialogs
    BackupCommands(QWidget& window, const Shared& shared);

    /// Saves the sensor's parameters to a file that the user chooses, restores them from one, or
    /// shows both beside each other.
    /// @param mode any but PutBack
    void run(Mode mode);

    /// Shows the earlier states of sensors, and puts back the one that the user chooses.
    void showEarlierStates();
    /// The entry that is selected when they are shown next; else the newest is.
    void selectNext(const QString& entry) { m_entryToShow = entry; }

    /// Writes a state that a sensor had before back to the one that is connected, after the user
    /// has seen both. Does nothing while something else runs; an entry that is not there any more
    /// is told as what was not written.
    void putBack(const QString& entry);

Q_SIGNALS:
    /// The sensor has to be connected and read afresh.
    void connectWanted();
    /// The sensor has been written to, and is connected: it has to be read afresh.
    void readWanted();

private:
    /// What is left to be done with the sensor.
    enum class Next { Nothing, Connect, Read };

    /// How a command has ended.
    struct End
    {
        QString message{}; ///< what the user has to be told; empty for nothing
        Next next = Next::Nothing;
        bool replaced = false; ///< the sensor has been made, or already was, as it was to become
    };

    /// Values that a sensor had, and where they are from.
    struct Saved
    {
        SensorValues values{};
        QString source{};
    };

    [[nodiscard]] const SensorLink& link() const;
    [[nodiscard]] SequenceRunner& runner() const;

    [[nodiscard]] End runWithFile(Mode mode);
    [[nodiscard]] End saveBackup(BackupFile& file);
    [[nodiscard]] End restoreUnseen(const SensorValues& values);
    [[nodiscard]] End putBackEntry(const JournalEntry& entry);
    [[nodiscard]] End review(Mode mode, const Saved& saved);
    [[nodiscard]] End write(Mode mode, WriteRequest request);
    [[nodiscard]] Next nextAfter(const WriteResult& result) const;
    [[nodiscard]] bool confirmValues(const WriteRequest& request);
    void finish(const End& end);

    QWidget& m_window;
    SafeWriter& m_writer;
    const FormatRestore& m_formats;
    CommandGate& m_gate;
    PagePane& m_pages;
    QString m_entryToShow; ///< of the journal; empty for the newest
};

} // namespace pelorin
