#include "platform/core/RegistryFile.h"

#include "platform/core/WholeFile.h"

#include <QStringDecoder>
#include <QStringView>

#include <algorithm>
#include <cerrno>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{32} * 1024 * 1024; ///< far beyond any export in use

QString folded(QStringView keyPath)
{
    while (keyPath.startsWith(QLatin1Char('\\')))
        keyPath = keyPath.mid(1);
    return keyPath.toString().toCaseFolded();
}

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

QString decoded(const QByteArray& content)
{
    const bool wide = content.startsWith("\xFF\xFE");
    QStringDecoder decoder(wide ? QStringConverter::Utf16LE : QStringConverter::Utf8);
    return decoder(content);
}

} // namespace

/// Reads the lines of a settings file one after the other.
class RegistryFile::Parser
{
public:
    /// @return false if the line is damaged
    [[nodiscard]] bool readLine(QStringView line);

    /// Whether the file may end here.
    [[nodiscard]] bool isComplete() const { return m_headerRead && !m_inBytes; }

    [[nodiscard]] const QHash<QString, Key>& keys() const { return m_keys; }

private:
    [[nodiscard]] bool readHeader(QStringView line);
    [[nodiscard]] bool readKey(QStringView line);
    [[nodiscard]] bool readEntry(QStringView line);
    [[nodiscard]] bool readData(QStringView data, const QString& name);
    [[nodiscard]] bool readBytes(QStringView bytes);
    void store(const QString& name, const Value& value);

    QHash<QString, Key> m_keys;
    QString m_key; ///< folded path of the key that the values belong to; empty before the first
    bool m_headerRead = false;
    bool m_inBytes = false; ///< the line before announced more bytes of its value
};

bool RegistryFile::Parser::readLine(QStringView line)
{
    line = line.trimmed();
    if (m_inBytes)
        return readBytes(line);
    if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
        return true;
    if (!m_headerRead)
        return readHeader(line);
    return line.startsWith(QLatin1Char('[')) ? readKey(line) : readEntry(line);
}

bool RegistryFile::Parser::readHeader(QStringView line)
{
    m_headerRead = line == QLatin1String("Windows Registry Editor Version 5.00") ||
                   line == QLatin1String("REGEDIT4");
    return m_headerRead;
}

bool RegistryFile::Parser::readKey(QStringView line)
{
    if (!line.endsWith(QLatin1Char(']')))
        return false;
    m_key = folded(line.mid(1, line.size() - 2));
    m_keys[m_key]; // a key without values exists, too
    return !m_key.isEmpty();
}

bool RegistryFile::Parser::readEntry(QStringView line)
{
    const bool isDefault = takePrefix(line, QLatin1String("@"));
    const auto name = isDefault ? QString() : takeQuoted(line);
    line = line.trimmed();
    if (m_key.isEmpty() || !name || !takePrefix(line, QLatin1String("=")))
        return false;
    return readData(line.trimmed(), *name);
}

bool RegistryFile::Parser::readData(QStringView data, const QString& name)
{
    if (takePrefix(data, QLatin1String("hex"))) {
        const auto colon = data.indexOf(QLatin1Char(':'));
        const QStringView kind = data.left(colon); // nothing or a number in parentheses
        const bool kindKnown = kind.isEmpty() || (kind.startsWith(QLatin1Char('(')) &&
                                                  kind.endsWith(QLatin1Char(')')));
        return colon >= 0 && kindKnown && readBytes(data.mid(colon + 1));
    }
    if (takePrefix(data, QLatin1String("dword:"))) {
        const QStringView digits = data.left(data.indexOf(QLatin1Char(';'))).trimmed();
        bool isNumber = false;
        const quint32 number = digits.toUInt(&isNumber, 16);
        store(name, number);
        return isNumber && digits.size() <= 8;
    }
    const auto text = takeQuoted(data);
    data = data.trimmed();
    if (!text || !(data.isEmpty() || data.startsWith(QLatin1Char(';'))))
        return false;
    store(name, *text);
    return true;
}

/// Bytes of a value of another kind, which may go on in the next line after a backslash.
bool RegistryFile::Parser::readBytes(QStringView bytes)
{
    m_inBytes = bytes.endsWith(QLatin1Char('\\'));
    if (m_inBytes)
        bytes.chop(1);
    return std::all_of(bytes.cbegin(), bytes.cend(), [](QChar character) {
        return QStringView(u"0123456789abcdefABCDEF, ").contains(character);
    });
}

void RegistryFile::Parser::store(const QString& name, const Value& value)
{
    Key& key = m_keys[m_key];
    key.lastIndex.insert(name.toCaseFolded(), key.entries.size());
    key.entries.append({name, value});
}

RegistryFile RegistryFile::read(const QString& path)
{
    RegistryFile registry;
    const auto [outcome, bytes] = WholeFile(path).read(kLargestFile);
    if (outcome.systemError == ENOENT || outcome.systemError == ENOTDIR)
        return registry;
    if (!outcome.isDone()) {
        registry.m_damage = Damage{path, 0, outcome.reason()};
        return registry;
    }

    const QString content = decoded(bytes);
    Parser parser;
    const auto lines = QStringView(content).split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        // What cannot be decoded comes as replacement characters.
        const bool last = i + 1 == lines.size();
        if (lines.at(i).contains(QChar(QChar::ReplacementCharacter)) ||
            !parser.readLine(lines.at(i)) || (last && !parser.isComplete())) {
            registry.m_damage = Damage{path, static_cast<int>(i + 1), {}};
            return registry;
        }
    }
    registry.m_keys = parser.keys();
    return registry;
}

bool RegistryFile::hasKey(const QString& keyPath) const
{
    const QString key = folded(keyPath);
    const QString below = key + QLatin1Char('\\');
    return m_keys.contains(key) ||
           std::any_of(m_keys.keyBegin(), m_keys.keyEnd(),
                       [&below](const QString& other) { return other.startsWith(below); });
}

std::optional<RegistryFile::Value> RegistryFile::value(const QString& keyPath,
                                                       const QString& name) const
{
    const Key key = m_keys.value(folded(keyPath));
    const qsizetype index = key.lastIndex.value(name.toCaseFolded(), -1);
    return index < 0 ? std::nullopt : std::optional(key.entries.at(index).value);
}

QList<RegistryFile::Entry> RegistryFile::entries(const QString& keyPath) const
{
    const Key key = m_keys.value(folded(keyPath));
    QList<Entry> last;
    for (qsizetype i = 0; i < key.entries.size(); ++i) {
        if (key.lastIndex.value(key.entries.at(i).name.toCaseFolded()) == i)
            last.append(key.entries.at(i));
    }
    return last;
}

} // namespace pelorin
