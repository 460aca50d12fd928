#include "sensor/Journal.h"

#include "sensor/BackupFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{1024} * 1024;
constexpr const char* kValuesSuffix = ".dat";
constexpr const char* kCircumstancesSuffix = ".json";
constexpr const char* kToldMark = R"("told": true)"; ///< in the circumstances
constexpr qsizetype kLookedAt = 1000;

// The words in the files; they outlast versions of the program.
template <class Value, std::size_t kCount>
struct Words
{
    std::array<std::pair<Value, const char*>, kCount> pairs;

    [[nodiscard]] QString wordOf(Value value) const
    {
        const auto found = std::find_if(pairs.begin(), pairs.end(),
                                        [value](auto& pair) { return pair.first == value; });
        return QLatin1String(found == pairs.end() ? "" : found->second);
    }
    [[nodiscard]] std::optional<Value> valueOf(const QString& word) const
    {
        const auto found = std::find_if(pairs.begin(), pairs.end(), [&word](auto& pair) {
            return word == QLatin1String(pair.second);
        });
        return found == pairs.end() ? std::nullopt : std::optional(found->first);
    }
};

using By = WriteRequest::By;
using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;

constexpr Words<By, 5> kWriters = {{{{By::OutputSetup, "output setup"},
                                     {By::FactoryParameters, "factory parameters"},
                                     {By::Restore, "restore"},
                                     {By::PutBack, "put back"},
                                     {By::CommandLine, "command line"}}}};
constexpr Words<Kind, 4> kKinds = {{{{Kind::NotWritten, "not written"},
                                     {Kind::Verified, "verified"},
                                     {Kind::Differs, "differs"},
                                     {Kind::NotChecked, "not checked"}}}};
constexpr Words<Reason, 9> kReasons = {{{{Reason::None, ""},
                                         {Reason::NotRestarted, "not restarted"},
                                         {Reason::NoAnswer, "no answer"},
                                         {Reason::AnotherSensor, "another sensor"},
                                         {Reason::AnotherPort, "another port"},
                                         {Reason::Closed, "closed"},
                                         {Reason::SwitchedOff, "safe writes off"},
                                         {Reason::LinkLost, "link lost"},
                                         {Reason::Undivided, "offset not divided"}}}};

QJsonObject objectOf(const SensorValues& values)
{
    QJsonObject object;
    for (const auto& [id, value] : values)
        object.insert(QString(QLatin1Char(id)), QString::fromLatin1(value));
    return object;
}

SensorValues valuesOf(const QJsonObject& object)
{
    SensorValues values;
    for (auto value = object.begin(); value != object.end(); ++value) {
        if (value.key().size() == 1)
            values[value.key()[0].toLatin1()] = value.value().toString().toLatin1();
    }
    return values;
}

/// Tells whether the values are still whole, whatever rewrote the ends of the lines.
QString digestOf(const SensorValues& values)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(BackupFile::textOf(values), QCryptographicHash::Sha256).toHex());
}

QByteArray textOf(const JournalEntry& entry)
{
    QJsonObject object{{QStringLiteral("time"), entry.time.toString(Qt::ISODateWithMs)},
                       {QStringLiteral("device"), entry.device},
                       {QStringLiteral("port"), entry.port},
                       {QStringLiteral("version"), QString::fromLatin1(entry.version)},
                       {QStringLiteral("type"), entry.ssiType},
                       {QStringLiteral("chosenByHand"), entry.typeChosen},
                       {QStringLiteral("by"), kWriters.wordOf(entry.by)},
                       {QStringLiteral("written"), objectOf(entry.written)},
                       {QStringLiteral("values"), digestOf(entry.values)}};
    if (entry.end) {
        object.insert(QStringLiteral("outcome"), kKinds.wordOf(entry.end->kind));
        object.insert(QStringLiteral("reason"), kReasons.wordOf(entry.end->reason));
        object.insert(QStringLiteral("told"), entry.end->told);
    }
    return QJsonDocument(object).toJson();
}

/// @return nothing unless both files are whole and understood
std::optional<JournalEntry> entryOf(const QByteArray& text, const QByteArray& values)
{
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    const auto value = [&object](const char* name) { return object.value(QLatin1String(name)); };
    JournalEntry entry;
    entry.time = QDateTime::fromString(value("time").toString(), Qt::ISODateWithMs);
    entry.device = value("device").toString();
    entry.port = value("port").toInt();
    entry.version = value("version").toString().toLatin1();
    entry.ssiType = value("type").toInt(-1);
    entry.typeChosen = value("chosenByHand").toBool();
    entry.written = valuesOf(value("written").toObject());
    const auto by = kWriters.valueOf(value("by").toString());
    const auto kept = BackupFile::valuesOf(values);
    if (!entry.time.isValid() || !by || entry.ssiType < 0 || !kept ||
        value("values").toString() != digestOf(*kept))
        return std::nullopt;
    entry.by = *by;
    entry.values = *kept;
    if (value("outcome").isUndefined())
        return entry;
    const auto kind = kKinds.valueOf(value("outcome").toString());
    const auto reason = kReasons.valueOf(value("reason").toString());
    if (!kind || !reason)
        return std::nullopt;
    entry.end = JournalEntry::End{*kind, *reason, value("told").toBool(true)};
    return entry;
}

} // namespace

Journal::Writing::Writing(const Journal& journal, JournalEntry entry)
    : m_journal(journal), m_entry(std::move(entry)),
      m_lock(m_journal.path(m_entry.id, kValuesSuffix))
{
}

WholeFile::Outcome Journal::Writing::finish(const JournalEntry::End& end)
{
    m_entry.end = end;
    return m_journal.saveCircumstances(m_entry);
}

Journal::Begun Journal::begin(JournalEntry entry) const
{
    const QString time = entry.time.toString(QStringLiteral("yyyyMMdd'T'hhmmss'Z'"));
    const auto name = [&](int number) {
        return QStringLiteral("%1-%2-%3")
            .arg(time)
            .arg(QCoreApplication::applicationPid())
            .arg(number);
    };
    int number = 0;
    while (QFile::exists(path(name(number), kValuesSuffix)))
        ++number;
    entry.id = name(number);

    const QString valuesPath = path(entry.id, kValuesSuffix);
    if (const auto made = WholeFile(valuesPath).makeFolder(); !made.isDone())
        return {made, nullptr};
    WholeFile values(valuesPath);
    if (const auto saved = values.save(BackupFile::textOf(entry.values)); !saved.isDone())
        return {saved, nullptr};
    auto writing = std::make_unique<Writing>(*this, entry);
    if (!writing->isLocked()) { // others would take it for left unfinished
        (void)values.remove();
        return {{WholeFile::Outcome::Failure::Writing, valuesPath, ENOLCK}, nullptr};
    }
    if (const auto saved = saveCircumstances(entry); !saved.isDone()) {
        (void)values.remove(); // without its circumstances it is no entry
        return {saved, nullptr};
    }
    return {{}, std::move(writing)};
}

/// Of all entries, the newest first, as they begin with the time.
QStringList Journal::names() const
{
    const QString suffix = QLatin1String(kCircumstancesSuffix);
    QStringList names =
        QDir(m_folder).entryList({u'*' + suffix}, QDir::Files, QDir::Name | QDir::Reversed);
    for (QString& name : names)
        name.chop(suffix.size());
    return names;
}

Journal::Contents Journal::contents() const
{
    Contents contents;
    auto& entries = contents.entries;
    for (const QString& name : names()) {
        if (auto entry = find(name)) {
            entries.append(*std::move(entry));
        } else {
            ++contents.unreadable;
        }
    }
    std::sort(entries.begin(), entries.end(),
              [](const JournalEntry& one, const JournalEntry& other) {
                  return std::pair(one.time, one.id) > std::pair(other.time, other.id);
              });
    return contents;
}

/// Those that somebody has still to be told of, and nobody works on. Of most others only the
/// circumstances are read.
QList<JournalEntry> Journal::unsettled() const
{
    QList<JournalEntry> found;
    for (const QString& name : names().mid(0, kLookedAt)) {
        const auto circumstances = WholeFile(path(name, kCircumstancesSuffix)).read(kLargestFile);
        if (circumstances.content.contains(kToldMark) ||
            FileLock::isHeld(path(name, kValuesSuffix)))
            continue;
        const auto entry = find(name); // anew: somebody may have ended it before the lock was free
        const bool settled = entry && entry->end && entry->end->told;
        if (entry && !settled)
            found.append(*entry);
    }
    return found;
}

QList<JournalEntry> Journal::unfinished() const
{
    QList<JournalEntry> found = unsettled();
    found.removeIf([](const JournalEntry& entry) { return entry.end.has_value(); });
    return found;
}

QList<JournalEntry> Journal::untold() const
{
    QList<JournalEntry> found = unsettled();
    found.removeIf([](const JournalEntry& entry) { return !entry.end; });
    return found;
}

WholeFile::Outcome Journal::setEnd(JournalEntry entry, const JournalEntry::End& end) const
{
    if (!QFile::exists(path(entry.id, kCircumstancesSuffix)))
        return {};
    entry.end = end;
    return saveCircumstances(entry);
}

WholeFile::Outcome Journal::giveUp(const JournalEntry& entry) const
{
    return setEnd(entry, {Kind::NotChecked, Reason::Closed, true});
}

/// The circumstances go first: values alone are no entry.
WholeFile::Outcome Journal::remove(const JournalEntry& entry) const
{
    const QString valuesPath = path(entry.id, kValuesSuffix);
    if (FileLock::isHeld(valuesPath))
        return {WholeFile::Outcome::Failure::Writing, valuesPath, EBUSY};
    const auto removed = WholeFile(path(entry.id, kCircumstancesSuffix)).remove();
    return removed.isDone() ? WholeFile(valuesPath).remove() : removed;
}

QString Journal::path(const QString& id, const char* suffix) const
{
    return QDir(m_folder).filePath(id + QLatin1String(suffix));
}

std::optional<JournalEntry> Journal::find(const QString& id) const
{
    const auto circumstances = WholeFile(path(id, kCircumstancesSuffix)).read(kLargestFile);
    const auto values = WholeFile(path(id, kValuesSuffix)).read(kLargestFile);
    if (!circumstances.outcome.isDone() || !values.outcome.isDone())
        return std::nullopt;
    auto entry = entryOf(circumstances.content, values.content);
    if (entry)
        entry->id = id;
    return entry;
}

WholeFile::Outcome Journal::saveCircumstances(const JournalEntry& entry) const
{
    return WholeFile(path(entry.id, kCircumstancesSuffix)).save(textOf(entry));
}

QString nameOf(WriteRequest::By by)
{
    return kWriters.wordOf(by);
}

QString nameOf(WriteResult::Kind kind)
{
    return kKinds.wordOf(kind);
}

QString nameOf(WriteResult::Reason reason)
{
    return kReasons.wordOf(reason);
}

} // namespace pelorin
