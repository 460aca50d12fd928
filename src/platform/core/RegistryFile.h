#pragma once

#include "platform/core/RegistryLexer.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace pelorin {

/// A settings file in the form that the Windows registry editor exports: UTF-8, or UTF-16LE with
/// byte order mark; a header line; [keys]; "Name"="text" with backslash escapes and
/// "Name"=dword:0000001f; comments after a semicolon. Other kinds of values are passed over. Key
/// and value names are found without regard to case; a leading backslash of a key is ignored.
class RegistryFile
{
public:
    using Value = RegistryValue;

    static constexpr qint64 kLargest = qint64{32} * 1024 * 1024; ///< far beyond any export in use

    struct Entry
    {
        QString name; ///< as written; empty for the key's default value
        Value value;
    };

    struct Damage
    {
        QString path;
        int line = 0;   ///< counted from 1; 0 if the file could not be read at all
        QString reason; ///< why it could not, in the system's words
    };

    /// Reads a file. One that is missing or damaged anywhere holds no keys.
    [[nodiscard]] static RegistryFile read(const QString& path);
    /// The same for what a file has been found to hold. @param path only told with a damage
    [[nodiscard]] static RegistryFile parse(const QByteArray& content, const QString& path);

    /// What kept a file that exists from being used; the application reports it at start-up.
    [[nodiscard]] const std::optional<Damage>& damage() const { return m_damage; }

    /// Whether the file has the key, or a key below it.
    [[nodiscard]] bool hasKey(const QString& keyPath) const;

    [[nodiscard]] std::optional<Value> value(const QString& keyPath, const QString& name) const;

    /// The values of a key in the order of the file, each name once; the last one counts.
    [[nodiscard]] QList<Entry> entries(const QString& keyPath) const;

private:
    struct Key
    {
        QList<Entry> entries;                ///< all that the file has, in its order
        QHash<QString, qsizetype> lastIndex; ///< in entries, by folded name

        void store(const Entry& entry);
    };

    QHash<QString, Key> m_keys; ///< by folded key path
    std::optional<Damage> m_damage;
};

} // namespace pelorin
