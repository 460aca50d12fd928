#include "platform/core/IniText.h"

#include <algorithm>

namespace pelorin {

namespace {

QByteArray withoutQuotes(const QByteArray& value)
{
    const bool quoted = value.size() >= 2 && value.startsWith('"') && value.endsWith('"');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

IniText::IniText(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast(); // behind the end of the last line there is none
    QByteArray section;
    for (const QByteArray& line : lines) {
        m_lines.append(parsed(line, section));
        section = m_lines.last().entry.section;
    }
    if (!lines.isEmpty() && lines.first().endsWith('\r'))
        m_lineEnd = "\r";

    const auto has = [this](Line::Kind kind) {
        return std::any_of(m_lines.cbegin(), m_lines.cend(),
                           [kind](const Line& line) { return line.kind == kind; });
    };
    const bool cut = std::any_of(m_lines.cbegin(), m_lines.cend(), [](const Line& line) {
        return line.kind == Line::Kind::Unknown && line.text.trimmed().startsWith('[');
    });
    m_damaged = cut || text.contains('\0') || (has(Line::Kind::Unknown) && !has(Line::Kind::Value));
}

IniText::Line IniText::parsed(const QByteArray& text, const QByteArray& section)
{
    QByteArray content = text;
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    content = content.trimmed();
    using Kind = Line::Kind;
    if (content.isEmpty())
        return {Kind::Blank, text, {section, {}, {}}};
    if (content.startsWith(';') || content.startsWith('#'))
        return {Kind::Comment, text, {section, {}, {}}};
    if (content.startsWith('[')) {
        const auto end = content.indexOf(']');
        if (end > 0)
            return {Kind::Section, text, {content.mid(1, end - 1).trimmed(), {}, {}}};
    } else if (const auto sign = content.indexOf('='); sign > 0) {
        return {Kind::Value,
                text,
                {section, content.left(sign).trimmed(),
                 withoutQuotes(content.mid(sign + 1).trimmed())}};
    }
    return {Kind::Unknown, text, {section, {}, {}}};
}

bool IniText::isEmpty() const
{
    return std::all_of(m_lines.cbegin(), m_lines.cend(), [](const Line& line) {
        return line.kind == Line::Kind::Blank || line.kind == Line::Kind::Section;
    });
}

QList<IniText::Entry> IniText::entries() const
{
    QList<Entry> entries;
    for (const Line& line : m_lines) {
        if (line.kind == Line::Kind::Value)
            entries.append(line.entry);
    }
    return entries;
}

QByteArray IniText::value(const QByteArray& section, const QByteArray& key) const
{
    const auto index = indexOf(section, key);
    return index < 0 ? QByteArray() : m_lines.at(index).entry.value;
}

void IniText::set(const QByteArray& section, const QByteArray& key, const QByteArray& value)
{
    const QByteArray text = key + '=' + value;
    if (const auto index = indexOf(section, key); index >= 0) {
        if (m_lines.at(index).entry.value == value)
            return;
        m_lines.removeAt(index);
        insert(index, text, section);
        return;
    }
    if (placeFor(section, {}) < 0) {
        if (!m_lines.isEmpty() && m_lines.last().kind != Line::Kind::Blank)
            insert(m_lines.size(), {}, section);
        insert(m_lines.size(), '[' + section + ']', section);
    }
    insert(placeFor(section, key), text, section);
}

void IniText::remove(const QByteArray& section, const QByteArray& key)
{
    m_lines.removeIf([&](const Line& line) {
        return line.kind == Line::Kind::Value && line.entry.section == section &&
               line.entry.key == key;
    });
}

QByteArray IniText::text() const
{
    QByteArray text;
    for (const Line& line : m_lines)
        text += line.text + '\n';
    return text;
}

qsizetype IniText::indexOf(const QByteArray& section, const QByteArray& key) const
{
    for (auto index = m_lines.size() - 1; index >= 0; --index) {
        const Line& line = m_lines.at(index);
        if (line.kind == Line::Kind::Value && line.entry.section == section &&
            line.entry.key == key)
            return index;
    }
    return -1;
}

/// Before the first greater key of a section, else behind its last; -1 if there is no section.
qsizetype IniText::placeFor(const QByteArray& section, const QByteArray& key) const
{
    qsizetype place = -1;
    for (qsizetype index = 0; index < m_lines.size(); ++index) {
        const Line& line = m_lines.at(index);
        if (line.entry.section != section)
            continue;
        if (line.kind == Line::Kind::Value && key < line.entry.key)
            return index;
        if (line.kind == Line::Kind::Value || line.kind == Line::Kind::Section)
            place = index + 1;
    }
    return place;
}

void IniText::insert(qsizetype index, const QByteArray& text, const QByteArray& section)
{
    m_lines.insert(index, parsed(text + m_lineEnd, section));
}

} // namespace pelorin
