#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "support/Rows.h"

#include <QStringEncoder>

#include <functional>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray kHeader = "Windows Registry Editor Version 5.00\n\n";
const QString kKey = u"\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Site"_s;
const QString kPackage = kKey + u"\\Package%1"_s;

using Edit = std::function<void(RegistryFileEditor&)>;

Edit set(const QString& name, const RegistryValue& value, const QString& key = kKey)
{
    return [=](RegistryFileEditor& editor) { editor.set(key, name, value); };
}

struct Row
{
    const char* name;
    QByteArray before; ///< of the lines, quotes as single ones
    Edit edit;
    QByteArray after;
};

QByteArray withQuotes(QByteArray lines)
{
    return lines.replace("$", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Site").replace('\'', '"');
}

} // namespace

/// Changes in a settings file that somebody else has written.
class TestRegistryFileEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsChangedBecomesAnother()
    {
        const RegistryValue seven = quint32{7};
        const Edit removeFirst = [](RegistryFileEditor& editor) {
            editor.removeKey(kPackage.arg(0));
            editor.renameKey(kPackage.arg(1), u"Package0"_s);
        };
        const std::vector<Row> rows{
            {"number", "[$]\n 'a' = dword:1F ; c\n", set(u"A"_s, seven),
             "[$]\n 'a' = dword:00000007 ; c\n"},
            {"number as text", "[$]\n'A'=' 31 ' ; c\n", set(u"A"_s, seven), "[$]\n'A'='7' ; c\n"},
            {"same number", "[$]\n'A'=' 07 '\n'B'=dword:7\n", set(u"A"_s, seven),
             "[$]\n'A'=' 07 '\n'B'=dword:7\n"},
            {"text that is a number", "[$]\n'A'=dword:1\n", set(u"A"_s, u"31"_s),
             "[$]\n'A'=dword:0000001f\n"},
            {"text that is none", "[$]\n'A'=dword:1\n", set(u"A"_s, u"3.5"_s), "[$]\n'A'='3.5'\n"},
            {"escapes", "[$]\n'A\\\\B'='C:\\\\'\n", set(u"a\\b"_s, u"D:\\\"x"_s),
             "[$]\n'A\\\\B'='D:\\\\\\'x'\n"},
            {"bytes and what they go on with", "[$]\n'A'=hex(7):01,\\\n  02,\\\n  03\n'B'='1'\n",
             set(u"A"_s, seven), "[$]\n'A'=dword:00000007\n'B'='1'\n"},
            {"the one that counts", "[$]\n'A'='1'\n'A'='2'\n[Other]\n'A'='3'\n", set(u"A"_s, seven),
             "[$]\n'A'='1'\n'A'='7'\n[Other]\n'A'='3'\n"},
            {"the one that counts, key twice", "[$]\n'A'='1'\n[Other]\n[$]\n'a'='2'\n'A'=hex:01\n",
             set(u"A"_s, seven), "[$]\n'A'='1'\n[Other]\n[$]\n'a'='7'\n'A'=hex:01\n"},
            {"new value", "[$]\n'A'='1'\n; of B\n\n; of O\n[Other]\n", set(u"N"_s, seven),
             "[$]\n'A'='1'\n'N'=dword:00000007\n; of B\n\n; of O\n[Other]\n"},
            {"new value in an empty key", "[$]\n\n[Other]", set(u"N"_s, u"x"_s),
             "[$]\n'N'='x'\n\n[Other]"},
            {"new value at an end without line end", "[$]\n'A'=hex:01,\\\n02", set(u"N"_s, seven),
             "[$]\n'A'=hex:01,\\\n02\n'N'=dword:00000007"},
            {"new key", "[Other]\n'A'='1'\n", set(u"N"_s, seven),
             "[Other]\n'A'='1'\n\n[$]\n'N'=dword:00000007\n"},
            {"new key at an end without line end", "[Other]", set({}, u"x"_s),
             "[Other]\n\n[$]\n@='x'\n"},
            {"value removed", "[$]\n'A'=hex:01,\\\n02\n; c\n'A'='1'\n'a'=dword:1",
             [](auto& editor) { editor.remove(kKey, u"A"_s); }, "[$]\n; c\n"},
            {"key removed, next one in its place",
             "[$\\Package0]\n'A'='0'\n; c\n\n[$\\PACKAGE0\\Below]\n@='b'\n[Other]\n@='o'\n\n"
             "[$\\package1]\n'A'='1'\n\n[$\\Package1\\Below]\n[$\\Package10]",
             removeFirst,
             "; c\n[Other]\n@='o'\n\n[$\\Package0]\n'A'='1'\n\n[$\\Package0\\Below]\n"
             "[$\\Package10]"},
            {"last key removed", "[Other]\n\n[$\\Package0]\n'A'='0'", removeFirst, "[Other]\n\n"}};
        forEachRow(rows, [](const Row& row) {
            for (const bool wide : {false, true}) {
                const auto encoded = [wide](const QByteArray& lines) {
                    QString text = QString::fromUtf8("; Größe\n" + kHeader + withQuotes(lines));
                    QStringEncoder wideEncoder(QStringConverter::Utf16LE,
                                               QStringConverter::Flag::WriteBom);
                    return wide ? QByteArray(wideEncoder(text.replace(u"\n"_s, u"\r\n"_s)))
                                : text.toUtf8();
                };
                RegistryFileEditor editor(encoded(row.before));
                QCOMPARE(editor.damagedLine(), 0);
                QCOMPARE(editor.content(), encoded(row.before));
                row.edit(editor);
                QCOMPARE(editor.content(), encoded(row.after));
                QVERIFY(!RegistryFile::parse(editor.content(), {}).damage());
            }
        });
    }

    void newFileIsOneThatOthersRead()
    {
        RegistryFileEditor editor({});
        editor.set(kKey, u"A"_s, quint32{255});
        QCOMPARE(editor.content(), withQuotes("Windows Registry Editor Version 5.00\r\n\r\n"
                                              "[$]\r\n'A'=dword:000000ff\r\n"));
    }

    void whatCannotBeGivenBackIsNotEdited()
    {
        for (const auto& [content, line] :
             {std::pair(kHeader + "[$]\n\"A\"=1\n", 4), std::pair(QByteArray("REGEDIT5"), 1),
              std::pair(kHeader + "[$]\n\"A\"=hex:01,\\", 4),
              std::pair(QByteArray("\xFF\xFER\0E\0G\0E\0D\0I\0T\0004\0\n\0;", 21), 2)})
            QCOMPARE(RegistryFileEditor(content).damagedLine(), line);
    }
};

QTEST_GUILESS_MAIN(TestRegistryFileEditor)
#include "TestRegistryFileEditor.moc"
