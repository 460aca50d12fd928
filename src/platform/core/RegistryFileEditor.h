#pragma once

#include "platform/core/RegistryLexer.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace pelorin {

/// Changes single values of a settings file and leaves all else as it is, byte for byte: comments,
/// order, line ends, byte order mark, and the kind of each value. Keys and names are found without
/// regard to case, as RegistryFile finds them.
class RegistryFileEditor
{
public:
    /// @param content of a file; empty for a new one
    explicit RegistryFileEditor(const QByteArray& content);

    /// The line that keeps the file from being edited, counted from 1; 0 for a whole file, without
    /// which nothing may be changed.
    [[nodiscard]] int damagedLine() const { return m_damagedLine; }

    [[nodiscard]] QByteArray content() const;

    /// Gives a value a content. Of several lines with its name the one that counts is changed, and
    /// stays a number or a text where it can; bytes are replaced. A new value comes behind the last
    /// one of its key, a new key at the end. A value that means the same already is left alone.
    void set(const QString& keyPath, const QString& name, const RegistryValue& value);

    /// Removes a value, all lines of it.
    void remove(const QString& keyPath, const QString& name);

    /// Removes a key with its values and all keys below it; comments stay.
    void removeKey(const QString& keyPath);

    /// Gives a key another last name, also in the paths of the keys below it.
    void renameKey(const QString& keyPath, const QString& lastName);

    /// The last names of the keys right below one, folded; those with several lines several times.
    [[nodiscard]] QStringList keysBelow(const QString& keyPath) const;

private:
    struct Line
    {
        QString text; ///< without its line feed
        RegistryLine meaning;
        QString key; ///< folded path of the one that it belongs to
    };

    void read(const QString& text);
    void reread();
    [[nodiscard]] QString text() const;
    [[nodiscard]] std::size_t lineOf(const QString& key, const QString& name) const;
    [[nodiscard]] std::size_t endOfKey(const QString& key) const;
    void addKey(const QString& keyPath);
    void insert(std::size_t at, const QString& text);
    void eraseMoreBytes(std::size_t at);
    void erase(const std::function<bool(const Line&)>& goes);

    bool m_wide = false;
    bool m_marked = false;  ///< with a byte order mark
    QString m_beforeFeed{}; ///< what stands before a line feed: a carriage return or nothing
    std::vector<Line> m_lines;
    int m_damagedLine = 0;
};

} // namespace pelorin
