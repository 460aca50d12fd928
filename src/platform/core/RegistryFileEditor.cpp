#include "platform/core/RegistryFileEditor.h"

#include <QStringEncoder>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

using Kind = RegistryLine::Kind;

QString textOf(const RegistryValue& value)
{
    const auto* const text = std::get_if<QString>(&value);
    return text ? *text : QString::number(std::get<quint32>(value));
}

/// The same content in the kind that the older one has, if it can be.
RegistryValue inKindOf(const RegistryValue& older, const RegistryValue& value)
{
    const QString text = textOf(value);
    if (std::holds_alternative<QString>(older))
        return text;
    bool isNumber = false;
    const quint32 number = text.toUInt(&isNumber);
    return isNumber && QString::number(number) == text ? RegistryValue(number) : value;
}

bool isSame(const RegistryValue& older, const RegistryValue& value)
{
    bool isNumber = false;
    const auto* const number = std::get_if<quint32>(&value);
    const QString text = textOf(older);
    return text == textOf(value) ||
           (number && text.trimmed().toInt(&isNumber) == static_cast<qint32>(*number) && isNumber);
}

QString quoted(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + text + u'"';
}

QString written(const RegistryValue& value)
{
    if (const auto* const text = std::get_if<QString>(&value))
        return quoted(*text);
    return QStringLiteral("dword:%1").arg(std::get<quint32>(value), 8, 16, QLatin1Char('0'));
}

bool isKeyOrBelow(const QString& key, const QString& folded)
{
    return key == folded || key.startsWith(folded + u'\\');
}

} // namespace

RegistryFileEditor::RegistryFileEditor(const QByteArray& content)
    : m_wide(content.startsWith("\xFF\xFE")),
      m_marked(m_wide || content.startsWith("\xEF\xBB\xBF")), m_beforeFeed(QStringLiteral("\r"))
{
    if (content.isEmpty()) {
        read(QStringLiteral("Windows Registry Editor Version 5.00\r\n"));
        return;
    }
    const QString text = decodedRegistry(content);
    const auto firstFeed = text.indexOf(u'\n');
    if (firstFeed >= 0 && (firstFeed == 0 || text.at(firstFeed - 1) != u'\r'))
        m_beforeFeed.clear();
    read(text);
    if (m_damagedLine == 0 && this->content() != content)
        m_damagedLine = static_cast<int>(m_lines.size()); // half a character at the end
}

void RegistryFileEditor::read(const QString& text)
{
    m_lines.clear();
    m_damagedLine = 0;
    RegistryLexer lexer;
    QString key;
    for (const QString& line : text.split(u'\n')) {
        const RegistryLine meaning = lexer.next(line);
        if (meaning.kind == Kind::Key)
            key = meaning.name;
        m_lines.push_back({line, meaning, key});
        if (meaning.kind == Kind::Damaged && m_damagedLine == 0)
            m_damagedLine = static_cast<int>(m_lines.size());
    }
    if (m_damagedLine == 0 && !lexer.isComplete())
        m_damagedLine = static_cast<int>(m_lines.size());
}

void RegistryFileEditor::reread()
{
    read(text());
}

QString RegistryFileEditor::text() const
{
    QStringList lines;
    for (const Line& line : m_lines)
        lines << line.text;
    return lines.join(u'\n');
}

QByteArray RegistryFileEditor::content() const
{
    QStringEncoder encoder(m_wide ? QStringConverter::Utf16LE : QStringConverter::Utf8,
                           m_marked ? QStringConverter::Flag::WriteBom
                                    : QStringConverter::Flag::Default);
    return encoder(text());
}

/// @return the line of the value that counts, else of bytes of that name; past the end for none
std::size_t RegistryFileEditor::lineOf(const QString& key, const QString& name) const
{
    for (const Kind kind : {Kind::Value, Kind::Bytes}) {
        for (std::size_t at = m_lines.size(); at-- > 0;) {
            const Line& line = m_lines[at];
            if (line.meaning.kind == kind && line.key == key &&
                line.meaning.name.compare(name, Qt::CaseInsensitive) == 0)
                return at;
        }
    }
    return m_lines.size();
}

/// @return the place behind the last value of a key; 0 without the key
std::size_t RegistryFileEditor::endOfKey(const QString& key) const
{
    for (std::size_t at = m_lines.size(); at-- > 0;) {
        if (m_lines[at].key == key && m_lines[at].meaning.kind != Kind::Empty)
            return at + 1;
    }
    return 0;
}

/// The last line has no end yet where it is not empty.
void RegistryFileEditor::addKey(const QString& keyPath)
{
    if (!m_lines.back().text.isEmpty())
        insert(m_lines.size(), QString());
    const std::size_t last = m_lines.size() - 1;
    if (!m_lines[last - 1].text.trimmed().isEmpty())
        insert(last, QString());
    insert(m_lines.size() - 1,
           u'[' + (keyPath.startsWith(u'\\') ? keyPath.mid(1) : keyPath) + u']');
    reread();
}

/// Behind the last line of a file the new one becomes the last, without an end.
void RegistryFileEditor::insert(std::size_t at, const QString& text)
{
    const bool atEnd = at == m_lines.size();
    if (atEnd)
        m_lines[at - 1].text += m_beforeFeed;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at),
                   Line{atEnd ? text : text + m_beforeFeed, {}, {}});
}

void RegistryFileEditor::eraseMoreBytes(std::size_t at)
{
    const auto begin = m_lines.begin() + static_cast<std::ptrdiff_t>(at);
    m_lines.erase(begin, std::find_if(begin, m_lines.end(), [](const Line& line) {
                      return line.meaning.kind != Kind::MoreBytes;
                  }));
}

void RegistryFileEditor::set(const QString& keyPath, const QString& name,
                             const RegistryValue& value)
{
    const QString key = foldedKeyPath(keyPath);
    if (const std::size_t at = lineOf(key, name); at < m_lines.size()) {
        Line& line = m_lines[at];
        const auto& older = line.meaning.value;
        if (older && isSame(*older, value))
            return;
        line.text.replace(line.meaning.at, line.meaning.size,
                          written(older ? inKindOf(*older, value) : value));
        eraseMoreBytes(at + 1);
    } else {
        if (endOfKey(key) == 0)
            addKey(keyPath);
        const QString shownName = name.isEmpty() ? QStringLiteral("@") : quoted(name);
        insert(endOfKey(key), shownName + u'=' + written(value));
    }
    reread();
}

void RegistryFileEditor::remove(const QString& keyPath, const QString& name)
{
    const QString key = foldedKeyPath(keyPath);
    bool isIts = false; // bytes go on from line to line
    erase([&](const Line& line) {
        if (line.meaning.kind != Kind::MoreBytes) {
            isIts = (line.meaning.kind == Kind::Value || line.meaning.kind == Kind::Bytes) &&
                    line.key == key && line.meaning.name.compare(name, Qt::CaseInsensitive) == 0;
        }
        return isIts;
    });
}

/// What was not the last line keeps its end.
void RegistryFileEditor::erase(const std::function<bool(const Line&)>& goes)
{
    std::vector<Line> kept;
    bool lastGoes = false;
    for (const Line& line : m_lines) {
        lastGoes = goes(line);
        if (!lastGoes)
            kept.push_back(line);
    }
    if (lastGoes)
        kept.push_back({});
    m_lines = std::move(kept);
    reread();
}

/// The blank lines behind the values go with them, not those before the key.
void RegistryFileEditor::removeKey(const QString& keyPath)
{
    const QString key = foldedKeyPath(keyPath);
    erase([&key](const Line& line) {
        return isKeyOrBelow(line.key, key) &&
               (line.meaning.kind != Kind::Empty || line.text.trimmed().isEmpty());
    });
}

void RegistryFileEditor::renameKey(const QString& keyPath, const QString& lastName)
{
    const QString key = foldedKeyPath(keyPath);
    const auto lastAt = key.lastIndexOf(u'\\') + 1;
    for (Line& line : m_lines) {
        if (line.meaning.kind == Kind::Key && isKeyOrBelow(line.key, key))
            line.text.replace(line.meaning.at + lastAt, key.size() - lastAt, lastName);
    }
    reread();
}

QStringList RegistryFileEditor::keysBelow(const QString& keyPath) const
{
    const QString above = foldedKeyPath(keyPath) + u'\\';
    QStringList names;
    for (const Line& line : m_lines) {
        if (line.meaning.kind == Kind::Key && line.key.startsWith(above))
            names << line.key.mid(above.size());
    }
    names.removeIf([](const QString& name) { return name.contains(u'\\'); });
    return names;
}

} // namespace pelorin
