#pragma once

#include "platform/core/UserFolders.h"
#include "platform/core/WholeFile.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>

namespace pelorin {

class IniText;

/// What the program remembers for its user: whole numbers in the section "Setup" of an INI file,
/// and texts in other sections. All else that the file has is kept.
class Profile
{
public:
    /// Reads the file.
    explicit Profile(const QString& fileName = profilePath());

    [[nodiscard]] const QString& fileName() const { return m_file.path(); }

    /// What kept a file that exists from being read. It counts as missing and is left alone.
    [[nodiscard]] const WholeFile::Outcome& unreadable() const { return m_unreadable; }

    /// Whether the file was read and found damaged; it then counts as missing, too.
    [[nodiscard]] bool isDamaged() const { return m_damaged; }

    /// The value, or the default if it is absent or no whole number.
    [[nodiscard]] int readInt(const QString& name, int defaultValue) const;

    [[nodiscard]] bool has(const QString& name) const;

    /// The texts of a section, by their names; in the file they are percent-encoded.
    [[nodiscard]] QMap<QString, QString> readTexts(const QString& section) const;

    /// Stores values. A damaged file is kept first, with ".damaged" behind its name; one that
    /// cannot be read is not overwritten.
    [[nodiscard]] WholeFile::Outcome write(const QMap<QString, int>& values);
    /// Stores the texts of a section alike; an empty text removes the value.
    [[nodiscard]] WholeFile::Outcome writeTexts(const QString& section,
                                                const QMap<QString, QString>& texts);

private:
    void read();
    [[nodiscard]] WholeFile::Outcome change(const std::function<void(IniText&)>& edit);
    [[nodiscard]] WholeFile::Outcome setDamagedFileAside();

    WholeFile m_file;
    QByteArray m_text; ///< of a file that can be used
    WholeFile::Outcome m_unreadable;
    bool m_damaged = false;
};

} // namespace pelorin
