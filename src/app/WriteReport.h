#pragma once

#include "app/NoticeStrip.h"
#include "sensor/Journal.h"
#include "sensor/WriteResult.h"

#include <QObject>
#include <QStringList>

#include <optional>
#include <vector>

namespace pelorin {

class CommandGate;
class LinkStatusBar;
class SafeWriter;

/// Tells the user how what was written to the sensor has ended, and offers what can be done about
/// it. User-interface thread.
class WriteReport final : public QObject
{
    Q_OBJECT

public:
    /// What it uses; all outlive it.
    struct Shared
    {
        SafeWriter& writer;
        CommandGate& gate;
        NoticeStrip& strip;
        LinkStatusBar& statusBar;
    };

    /// @param window owns the report, and is under its questions
    WriteReport(QWidget& window, const Shared& shared);

    /// Another sensor may be connected from here on: verified, or not written, is over.
    void leaveSensor();
    /// A page is read anew: that nothing was written to what it had read before is over.
    void endNotWritten();

    /// Tells what earlier runs of the program could not tell, once.
    void tellUntold();

    /// The sensor has been connected and read: offers what can be done about writes to it that were
    /// not finished, each once in a run.
    void offerUnfinished();

Q_SIGNALS:
    /// The user wants an entry of the journal put back.
    void putBackWanted(const QString& entry);
    /// The user wants to see an entry of the journal.
    void showWanted(const QString& entry);
    /// What the shown page shows is not what the sensor has.
    void refreshWanted();

private:
    struct Waiting
    {
        NoticeStrip::Notice notice;
        QList<JournalEntry> untold; ///< what it tells of
    };

    void tell(const WriteResult& result);
    void writeAgain(const WriteResult& result);
    void forget(const JournalEntry& entry);
    void showLater(NoticeStrip::Notice notice, const QList<JournalEntry>& untold = {});
    void showWaiting();

    QWidget& m_window;
    SafeWriter& m_writer;
    CommandGate& m_gate;
    NoticeStrip& m_strip;
    LinkStatusBar& m_statusBar;
    std::vector<Waiting> m_waiting;           ///< for the strip to be empty
    std::optional<WriteResult::Kind> m_shown; ///< the outcome in the strip
    bool m_untoldTold = false;
    QStringList m_offered; ///< entries
};

} // namespace pelorin
