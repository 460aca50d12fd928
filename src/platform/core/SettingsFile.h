#pragma once

#include "platform/core/WholeFile.h"

#include <QByteArray>
#include <QString>

namespace pelorin {

/// The settings file that a user may edit: the one that was named for this run, else the user's
/// own. Where that does not exist yet it begins as a copy of the file in force, in whose place it
/// comes when it is saved. Read when the object is made.
class SettingsFile
{
public:
    /// The files of one run.
    struct Places
    {
        QString inForce; ///< which need not exist, as the next
        QString edited;
        bool isNamed = false; ///< both are the one that was named for this run
    };

    /// Those of this run.
    [[nodiscard]] static Places placesOfThisRun();

    explicit SettingsFile(const Places& places);

    /// Where it is saved to.
    [[nodiscard]] const QString& path() const { return m_file.path(); }

    /// What it holds. An installation path that counts from the folder of the copied file is an
    /// absolute one in the copy.
    [[nodiscard]] const QByteArray& content() const { return m_content; }

    /// The file in force that will not be read any more once this one is saved; empty if this one
    /// is in force.
    [[nodiscard]] const QString& replaced() const { return m_replaced; }

    /// Why it cannot be edited, for the user; empty if it can.
    [[nodiscard]] const QString& problem() const { return m_problem; }

    /// Whether somebody else has written, made or removed the file since it was read.
    [[nodiscard]] bool hasChanged() const;

    /// Replaces the file, and counts as read then. Links are followed.
    [[nodiscard]] WholeFile::Outcome save(const QByteArray& content);

    /// Whether there is a file of the user's own in force, so that setAside has a meaning.
    [[nodiscard]] bool isUsersOwn() const { return m_isUsersOwn; }
    /// Where setAside moves it to: a name of which there is no file yet.
    [[nodiscard]] QString asidePath() const;
    /// Renames the user's own file, so that the site's is in force again.
    [[nodiscard]] WholeFile::Outcome setAside() const;

private:
    [[nodiscard]] QString problemOf(const WholeFile::Reading& reading, const QString& source) const;

    WholeFile m_file;
    QByteArray m_content;
    WholeFile::Reading m_read; ///< of the file itself, not of what it is copied from
    QString m_replaced;
    QString m_problem;
    bool m_isUsersOwn = false;
};

} // namespace pelorin
