#pragma once

#include <QString>

namespace pelorin {

/// What the program remembers for its user: whole numbers in the section "Setup" of an INI file.
class Profile
{
public:
    explicit Profile(const QString& fileName = usersFile());

    /// "Korvex Systems/Pelorin.ini" in the user's configuration folder.
    [[nodiscard]] static QString usersFile();

    [[nodiscard]] QString fileName() const { return m_fileName; }

    /// Whether the file was found damaged; it then counts as missing. The application reports it
    /// at start-up.
    [[nodiscard]] bool isDamaged() const { return m_damaged; }

    /// The value, or the default if it is absent or no whole number.
    [[nodiscard]] int readInt(const QString& name, int defaultValue) const;

    /// Stores a value. A damaged file is kept first, with ".damaged" behind its name.
    /// @return false if the file could not be written or kept
    [[nodiscard]] bool writeInt(const QString& name, int value);

private:
    [[nodiscard]] bool setDamagedFileAside();

    QString m_fileName;
    bool m_damaged = false;
};

} // namespace pelorin
