#include "platform/core/RegistryLexer.h"

#include <QStringDecoder>

#include <algorithm>

namespace pelorin {

namespace {

using Kind = RegistryLine::Kind;

bool takePrefix(QStringView& rest, QLatin1String prefix)
{
    const bool found = rest.startsWith(prefix, Qt::CaseInsensitive);
    if (found)
        rest = rest.mid(prefix.size());
    return found;
}

/// Takes a text in quotes, with its escapes resolved, off the front of rest.
std::optional<QString> takeQuoted(QStringView& rest)
{
    if (!rest.startsWith(QLatin1Char('"')))
        return std::nullopt;
    QString text;
    for (qsizetype i = 1; i < rest.size(); ++i) {
        QChar character = rest.at(i);
        if (character == QLatin1Char('"')) {
            rest = rest.mid(i + 1);
            return text;
        }
        if (character == QLatin1Char('\\')) {
            if (++i == rest.size())
                break;
            character = rest.at(i);
            if (character != QLatin1Char('\\') && character != QLatin1Char('"'))
                break;
        }
        text += character;
    }
    return std::nullopt;
}

bool isEnd(QStringView rest)
{
    rest = rest.trimmed();
    return rest.isEmpty() || rest.startsWith(QLatin1Char(';'));
}

} // namespace

QString foldedKeyPath(QStringView keyPath)
{
    while (keyPath.startsWith(QLatin1Char('\\')))
        keyPath = keyPath.mid(1);
    return keyPath.toString().toCaseFolded();
}

QString decodedRegistry(const QByteArray& content)
{
    const bool wide = content.startsWith("\xFF\xFE");
    QStringDecoder decoder(wide ? QStringConverter::Utf16LE : QStringConverter::Utf8);
    return decoder(content);
}

RegistryLine RegistryLexer::next(QStringView line)
{
    m_line = line;
    if (line.contains(QChar(QChar::ReplacementCharacter)))
        return {};
    return read(line.trimmed());
}

RegistryLine RegistryLexer::read(QStringView line)
{
    if (m_inBytes)
        return {.kind = readBytes(line) ? Kind::MoreBytes : Kind::Damaged};
    if (isEnd(line))
        return {.kind = Kind::Empty};
    if (!m_headerRead)
        return {.kind = readHeader(line) ? Kind::Header : Kind::Damaged};
    return line.startsWith(QLatin1Char('[')) ? readKey(line) : readEntry(line);
}

bool RegistryLexer::readHeader(QStringView line)
{
    m_headerRead = line == QLatin1String("Windows Registry Editor Version 5.00") ||
                   line == QLatin1String("REGEDIT4");
    return m_headerRead;
}

RegistryLine RegistryLexer::readKey(QStringView line)
{
    if (!line.endsWith(QLatin1Char(']')))
        return {};
    QStringView path = line.mid(1, line.size() - 2);
    while (path.startsWith(QLatin1Char('\\')))
        path = path.mid(1);
    m_keyRead = !path.isEmpty();
    return {.kind = m_keyRead ? Kind::Key : Kind::Damaged,
            .name = foldedKeyPath(path),
            .at = path.begin() - m_line.begin(),
            .size = path.size()};
}

RegistryLine RegistryLexer::readEntry(QStringView line)
{
    const bool isDefault = takePrefix(line, QLatin1String("@"));
    const auto name = isDefault ? QString() : takeQuoted(line);
    line = line.trimmed();
    if (!m_keyRead || !name || !takePrefix(line, QLatin1String("=")))
        return {};
    RegistryLine entry = readData(line.trimmed());
    entry.name = *name;
    return entry;
}

RegistryLine RegistryLexer::readData(QStringView data)
{
    RegistryLine entry{.at = data.begin() - m_line.begin(), .size = data.size()};
    if (takePrefix(data, QLatin1String("hex"))) {
        const auto colon = data.indexOf(QLatin1Char(':'));
        const QStringView kind = data.left(colon); // nothing or a number in parentheses
        const bool kindKnown = kind.isEmpty() || (kind.startsWith(QLatin1Char('(')) &&
                                                  kind.endsWith(QLatin1Char(')')));
        if (colon >= 0 && kindKnown && readBytes(data.mid(colon + 1)))
            entry.kind = Kind::Bytes;
        return entry;
    }
    if (takePrefix(data, QLatin1String("dword:"))) {
        const QStringView digits = data.left(data.indexOf(QLatin1Char(';'))).trimmed();
        bool isNumber = false;
        entry.value = digits.toUInt(&isNumber, 16);
        entry.size = digits.end() - m_line.begin() - entry.at;
        if (isNumber && digits.size() <= 8)
            entry.kind = Kind::Value;
        return entry;
    }
    const auto text = takeQuoted(data);
    if (text && isEnd(data)) {
        entry.kind = Kind::Value;
        entry.value = *text;
        entry.size = data.begin() - m_line.begin() - entry.at;
    }
    return entry;
}

/// Bytes of a value of another kind, which may go on in the next line after a backslash.
bool RegistryLexer::readBytes(QStringView bytes)
{
    m_inBytes = bytes.endsWith(QLatin1Char('\\'));
    if (m_inBytes)
        bytes.chop(1);
    return std::all_of(bytes.cbegin(), bytes.cend(), [](QChar character) {
        return QStringView(u"0123456789abcdefABCDEF, ").contains(character);
    });
}

} // namespace pelorin
