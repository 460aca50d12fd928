#pragma once

#include "platform/core/FileLock.h"
#include "platform/core/UserFolders.h"
#include "platform/core/WholeFile.h"
#include "sensor/JournalEntry.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace pelorin {

/// Earlier states of sensors, a backup file with a file of circumstances beside it for each, so
/// that several runs of the program never rewrite each other's. Whatever happens to the program or
/// the computer, an entry is there as a whole or not at all. Only the user removes entries.
/// Every question reads the folder anew.
class Journal
{
public:
    explicit Journal(QString folder = journalFolder()) : m_folder(std::move(folder)) {}

    /// An entry whose writing is under way. What is not finished when it goes stays unfinished.
    class Writing
    {
    public:
        Writing(const Journal& journal, JournalEntry entry);

        [[nodiscard]] const JournalEntry& entry() const { return m_entry; }
        /// Whether others see that it is under way.
        [[nodiscard]] bool isLocked() const { return m_lock.isTaken(); }
        /// Notes how it has ended.
        [[nodiscard]] WholeFile::Outcome finish(const JournalEntry::End& end);

    private:
        const Journal& m_journal;
        JournalEntry m_entry;
        FileLock m_lock;
    };

    /// Stores an entry before the first write.
    struct Begun
    {
        WholeFile::Outcome outcome;
        std::unique_ptr<Writing> writing; ///< null after a failure
    };
    [[nodiscard]] Begun begin(JournalEntry entry) const;

    /// What the folder has.
    struct Contents
    {
        QList<JournalEntry> entries; ///< all that can be read as a whole, the newest first
        int unreadable = 0;          ///< entries that are damaged; their files stay
    };
    [[nodiscard]] Contents contents() const;
    [[nodiscard]] QList<JournalEntry> entries() const { return contents().entries; }
    [[nodiscard]] const QString& folder() const { return m_folder; }
    /// An entry by its name; nothing if it is not there any more, or damaged.
    [[nodiscard]] std::optional<JournalEntry> find(const QString& id) const;

    // Of those that nobody works on any more, among the newest 1000: the journal may grow for
    // years.

    /// Those whose writing has not ended.
    [[nodiscard]] QList<JournalEntry> unfinished() const;
    /// Those whose writing has ended, which nobody was told.
    [[nodiscard]] QList<JournalEntry> untold() const;

    /// Notes another end of an entry; one that was removed meanwhile stays so.
    [[nodiscard]] WholeFile::Outcome setEnd(JournalEntry entry, const JournalEntry::End& end) const;
    /// Notes of an unfinished entry that nobody will find out any more how its writing has ended.
    [[nodiscard]] WholeFile::Outcome giveUp(const JournalEntry& entry) const;
    /// Removes an entry, unless somebody is still writing.
    [[nodiscard]] WholeFile::Outcome remove(const JournalEntry& entry) const;

private:
    [[nodiscard]] QString path(const QString& id, const char* suffix) const;
    [[nodiscard]] QStringList names() const;
    [[nodiscard]] QList<JournalEntry> unsettled() const;
    [[nodiscard]] WholeFile::Outcome saveCircumstances(const JournalEntry& entry) const;

    QString m_folder;
};

/// The names that the journal's files have for these; they never change.
[[nodiscard]] QString nameOf(WriteRequest::By by);
[[nodiscard]] QString nameOf(WriteResult::Kind kind);
[[nodiscard]] QString nameOf(WriteResult::Reason reason);

} // namespace pelorin
