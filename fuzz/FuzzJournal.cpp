#include "Fuzz.h"

#include "sensor/BackupFile.h"
#include "sensor/Journal.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

using namespace pelorin;

/// The circumstances up to a NUL, with "@" for the digest of the values; then the values.
void take(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    const auto end = bytes.indexOf('\0');
    const QByteArray values = end < 0 ? QByteArray() : bytes.mid(end + 1);
    QByteArray circumstances = bytes.left(end);
    const QByteArray text =
        BackupFile::textOf(BackupFile::valuesOf(values).value_or(SensorValues()));
    circumstances.replace('@', QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
    const auto put = [](const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        fuzz::require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    };
    put(QStringLiteral("x.json"), circumstances);
    put(QStringLiteral("x.dat"), values);

    const Journal journal(folder.path());
    const auto contents = journal.contents();
    fuzz::require(contents.entries.size() + contents.unreadable == 1);
    for (const JournalEntry& entry : contents.entries) {
        const JournalEntry::End told{WriteResult::Kind::Differs, WriteResult::Reason::None, true};
        fuzz::require(journal.setEnd(entry, told).isDone());
        JournalEntry expected = entry;
        expected.end = told;
        fuzz::require(journal.entries() == QList<JournalEntry>{expected});
    }
}
