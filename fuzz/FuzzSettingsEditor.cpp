#include "Fuzz.h"

#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"

using namespace pelorin;

/// What is edited is found again, and everything else is as before.
void take(const QByteArray& bytes)
{
    const QString key = QStringLiteral("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM");
    const auto parsed = [](const QByteArray& text) { return RegistryFile::parse(text, {}); };
    const RegistryFile before = parsed(bytes);
    RegistryFileEditor editor(bytes);
    if (bytes.isEmpty() || editor.damagedLine() != 0)
        return;
    fuzz::require(!before.damage() && editor.content() == bytes);
    for (const RegistryValue& value : {RegistryValue(QString(u'"' + key)), RegistryValue(7U)}) {
        editor.set(key, QStringLiteral("A"), value);
        const RegistryFile after = parsed(editor.content());
        fuzz::require(!after.damage() && after.value(key, QStringLiteral("a")).has_value());
        for (const auto& entry : before.entries(key)) {
            if (entry.name.compare(QLatin1String("a"), Qt::CaseInsensitive) != 0)
                fuzz::require(after.value(key, entry.name) == entry.value);
        }
    }
    editor.remove(key, QStringLiteral("A"));
    fuzz::require(!parsed(editor.content()).value(key, QStringLiteral("A")));
    editor.renameKey(key, QStringLiteral("Other"));
    editor.removeKey(QStringLiteral("HKEY_LOCAL_MACHINE\\HARDWARE"));
    fuzz::require(!parsed(editor.content()).damage() && !parsed(editor.content()).hasKey(key));
}
