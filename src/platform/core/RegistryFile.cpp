#include "platform/core/RegistryFile.h"

#include "platform/core/RegistryLexer.h"
#include "platform/core/WholeFile.h"

#include <QStringView>

#include <algorithm>
#include <cerrno>

namespace pelorin {

RegistryFile RegistryFile::read(const QString& path)
{
    const auto [outcome, content] = WholeFile(path).read(kLargest);
    if (outcome.systemError == ENOENT || outcome.systemError == ENOTDIR)
        return {};
    if (!outcome.isDone()) {
        RegistryFile registry;
        registry.m_damage = Damage{path, 0, outcome.reason()};
        return registry;
    }
    return parse(content, path);
}

RegistryFile RegistryFile::parse(const QByteArray& content, const QString& path)
{
    RegistryFile registry;
    const QString text = decodedRegistry(content);
    const auto lines = QStringView(text).split(QLatin1Char('\n'));
    RegistryLexer lexer;
    QString key;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const RegistryLine line = lexer.next(lines.at(i));
        const bool last = i + 1 == lines.size();
        if (line.kind == RegistryLine::Kind::Damaged || (last && !lexer.isComplete())) {
            registry.m_keys.clear();
            registry.m_damage = Damage{path, static_cast<int>(i + 1), {}};
            break;
        }
        if (line.kind == RegistryLine::Kind::Key) {
            key = line.name;
            (void)registry.m_keys[key]; // a key without values exists, too
        } else if (line.kind == RegistryLine::Kind::Value) {
            registry.m_keys[key].store({line.name, *line.value});
        }
    }
    return registry;
}

void RegistryFile::Key::store(const Entry& entry)
{
    lastIndex.insert(entry.name.toCaseFolded(), entries.size());
    entries.append(entry);
}

bool RegistryFile::hasKey(const QString& keyPath) const
{
    const QString key = foldedKeyPath(keyPath);
    const QString below = key + QLatin1Char('\\');
    return m_keys.contains(key) ||
           std::any_of(m_keys.keyBegin(), m_keys.keyEnd(),
                       [&below](const QString& other) { return other.startsWith(below); });
}

std::optional<RegistryFile::Value> RegistryFile::value(const QString& keyPath,
                                                       const QString& name) const
{
    const Key key = m_keys.value(foldedKeyPath(keyPath));
    const qsizetype index = key.lastIndex.value(name.toCaseFolded(), -1);
    return index < 0 ? std::nullopt : std::optional(key.entries.at(index).value);
}

QList<RegistryFile::Entry> RegistryFile::entries(const QString& keyPath) const
{
    const Key key = m_keys.value(foldedKeyPath(keyPath));
    QList<Entry> last;
    for (qsizetype i = 0; i < key.entries.size(); ++i) {
        if (key.lastIndex.value(key.entries.at(i).name.toCaseFolded()) == i)
            last.append(key.entries.at(i));
    }
    return last;
}

} // namespace pelorin
