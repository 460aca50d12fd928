#pragma once

#include "platform/core/WholeFile.h"

#include <QString>
#include <QStringList>

#include <utility>

namespace pelorin {

/// The files of one kind that the user has chosen last, in this run and in earlier ones; kept in
/// the profile.
class RecentFiles
{
public:
    static constexpr int kLimit = 10;

    /// @param kind names it in the profile, like the ending of its files
    explicit RecentFiles(QString kind) : m_kind(std::move(kind)) {}

    /// The folder of the last one, if it is there; else empty.
    [[nodiscard]] QString folder() const;
    /// The last ones that are there, at most kLimit, the newest first.
    [[nodiscard]] QStringList files() const;

    /// Puts a file in front.
    [[nodiscard]] WholeFile::Outcome add(const QString& path) const;

private:
    [[nodiscard]] QString section() const;

    QString m_kind;
};

} // namespace pelorin
