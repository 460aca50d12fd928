#pragma once

#include <QByteArray>
#include <QList>

namespace pelorin {

/// The text of an INI file. Values are set and removed in place; all that is not understood, and
/// comments and the order, stay as they are. Names are matched with regard to case.
class IniText
{
public:
    struct Entry
    {
        QByteArray section;
        QByteArray key;
        QByteArray value; ///< without blanks and quotes around it
    };

    explicit IniText(const QByteArray& text = {});

    /// Whether the text is cut, or holds something and yet no value.
    [[nodiscard]] bool isDamaged() const { return m_damaged; }
    /// Whether there is nothing but section names and blank lines.
    [[nodiscard]] bool isEmpty() const;

    [[nodiscard]] QList<Entry> entries() const;
    /// The last value of a name; null if there is none.
    [[nodiscard]] QByteArray value(const QByteArray& section, const QByteArray& key) const;

    /// Changes the last value of a name. A new one gets its place by the alphabet, a new section
    /// its place at the end.
    void set(const QByteArray& section, const QByteArray& key, const QByteArray& value);
    void remove(const QByteArray& section, const QByteArray& key);

    [[nodiscard]] QByteArray text() const;

private:
    struct Line
    {
        enum class Kind { Blank, Comment, Section, Value, Unknown };

        Kind kind = Kind::Blank;
        QByteArray text; ///< with CR, without LF
        Entry entry;     ///< the section is that of the line; the rest of values only
    };

    [[nodiscard]] static Line parsed(const QByteArray& text, const QByteArray& section);
    [[nodiscard]] qsizetype indexOf(const QByteArray& section, const QByteArray& key) const;
    [[nodiscard]] qsizetype placeFor(const QByteArray& section, const QByteArray& key) const;
    void insert(qsizetype index, const QByteArray& text, const QByteArray& section);

    QList<Line> m_lines;
    QByteArray m_lineEnd; ///< what stands before LF: CR or nothing
    bool m_damaged = false;
};

} // namespace pelorin
