#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace pelorin {

/// A file of the user that is saved and read as a whole. An older file is replaced only by a whole
/// new one, and no half file is ever left. A device is written to and never replaced, links are
/// followed; what is neither file nor device is refused. Nothing here waits for a pipe.
class WholeFile
{
public:
    /// How an operation has ended.
    struct Outcome
    {
        enum class Failure {
            None,
            Opening,
            Writing,   ///< a file that was there before is unchanged
            Appending, ///< of an AppendedFile: it has what was appended before
            Reading
        };

        Failure failure = Failure::None;
        QString path;
        int systemError = 0; ///< the system's code of what failed

        [[nodiscard]] bool isDone() const { return failure == Failure::None; }
        /// What failed, in the system's words.
        [[nodiscard]] QString reason() const;
        /// The same for the user, with the path; empty after a success.
        [[nodiscard]] QString message() const;
    };

    struct Reading
    {
        Outcome outcome;
        QByteArray content; ///< empty after a failure
    };

    /// Gives a content piece by piece; an empty piece is its end.
    using Pieces = std::function<QByteArray()>;

    explicit WholeFile(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Makes the folder that the file is in.
    [[nodiscard]] Outcome makeFolder() const;

    /// Finds out whether the file can be saved, for work that must not be done in vain. A file that
    /// was not there is from now on, empty; a save that fails takes it away again.
    [[nodiscard]] Outcome prepareSaving();
    /// Takes that empty file away again.
    void giveUpSaving();

    [[nodiscard]] Outcome save(const QByteArray& content);
    [[nodiscard]] Outcome save(const Pieces& next);

    /// @param largest in bytes; a larger file is refused
    [[nodiscard]] Reading read(qint64 largest) const;

    /// Removes the file; one that is not there is a success.
    [[nodiscard]] Outcome remove() const;
    /// Gives the file another path in its folder, in the place of what is there.
    [[nodiscard]] Outcome moveTo(const QString& newPath) const;

private:
    [[nodiscard]] Outcome write(const Pieces& next) const;

    QString m_path;
    QString m_prepared; ///< the empty file that prepareSaving has made, links followed
};

} // namespace pelorin
