#include "platform/core/RegistryFile.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

namespace {

const QByteArray kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const QString kKey = QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Site");

QString text(const std::optional<RegistryFile::Value>& value)
{
    const auto* const found = value ? std::get_if<QString>(&*value) : nullptr;
    return found ? *found : QString();
}

quint32 number(const std::optional<RegistryFile::Value>& value)
{
    const auto* const found = value ? std::get_if<quint32>(&*value) : nullptr;
    return found ? *found : 0xDEADU;
}

} // namespace

class TestRegistryFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exportOfAnotherMachineIsReadInEveryEncoding_data();
    void exportOfAnotherMachineIsReadInEveryEncoding();
    void keyExistsIfItOrAKeyBelowItIsListed();
    void entriesKeepTheirOrderAndTheLastOfANameCounts();
    void missingFileIsEmptyButNotDamaged();
    void unreadableFileIsReported();
    void damagedLineIsNamedAndNothingOfTheFileIsUsed_data();
    void damagedLineIsNamedAndNothingOfTheFileIsUsed();

private:
    [[nodiscard]] RegistryFile read(const QByteArray& content) const
    {
        QFile file(m_folder.filePath(QStringLiteral("test.reg")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return {};
        file.close();
        return RegistryFile::read(file.fileName());
    }

    QTemporaryDir m_folder;
};

void TestRegistryFile::exportOfAnotherMachineIsReadInEveryEncoding_data()
{
    const QString content = QString::fromUtf8(R"(Windows Registry Editor Version 5.00

; exported
[HKEY_LOCAL_MACHINE\SOFTWARE\Site]
@="default"
"Path"="C:\\Program Files\\Pelorin\\"
"Quoted \"name\""="Größe \"L\"; not a comment"
"Low"=dword:0000001f
"All"=dword:FFFFFFFF ; a comment
"Blob"=hex:01,02,\
  03,04
"Expand"=hex(2):25,00,\
  50,00,\
  00,00
"Empty"=""

[HKEY_LOCAL_MACHINE\SOFTWARE\Site\Empty]
  [HKEY_LOCAL_MACHINE\SOFTWARE\Other]
  "Indented" = "yes"   ; and a comment
)");
    QString crlf = content;
    crlf.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    QString regedit4 = content;
    regedit4.replace(QStringLiteral("Windows Registry Editor Version 5.00"),
                     QStringLiteral("REGEDIT4"));
    QStringEncoder wide(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);

    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8, LF") << content.toUtf8();
    QTest::newRow("UTF-8, LF, no line end at the end") << content.trimmed().toUtf8();
    QTest::newRow("UTF-8, CRLF") << crlf.toUtf8();
    QTest::newRow("UTF-8 with byte order mark") << "\xEF\xBB\xBF" + content.toUtf8();
    QTest::newRow("UTF-16, CRLF") << QByteArray(wide(crlf));
    QTest::newRow("older header") << regedit4.toUtf8();
}

void TestRegistryFile::exportOfAnotherMachineIsReadInEveryEncoding()
{
    QFETCH(QByteArray, bytes);

    const RegistryFile file = read(bytes);
    QVERIFY(!file.damage());
    QCOMPARE(text(file.value(kKey, QString())), QStringLiteral("default"));
    QCOMPARE(text(file.value(kKey.toUpper(), QStringLiteral("pATH"))),
             QStringLiteral("C:\\Program Files\\Pelorin\\"));
    QCOMPARE(text(file.value(kKey, QStringLiteral("Quoted \"name\""))),
             QString::fromUtf8("Größe \"L\"; not a comment"));
    QCOMPARE(number(file.value(kKey, QStringLiteral("Low"))), 31U);
    QCOMPARE(number(file.value(kKey, QStringLiteral("All"))), 0xFFFFFFFFU);
    QVERIFY(!file.value(kKey, QStringLiteral("Blob")));
    QVERIFY(!file.value(kKey, QStringLiteral("Expand")));
    QVERIFY(file.value(kKey, QStringLiteral("Empty")).has_value());
    QVERIFY(!file.value(kKey, QStringLiteral("Indented")));
    QVERIFY(file.hasKey(kKey + QStringLiteral("\\Empty")));
    QCOMPARE(text(file.value(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Other"),
                             QStringLiteral("Indented"))),
             QStringLiteral("yes"));
}

void TestRegistryFile::keyExistsIfItOrAKeyBelowItIsListed()
{
    const auto file = read(kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Site\\Package0]\n");
    QVERIFY(file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Site\\package0")));
    QVERIFY(file.hasKey(kKey));
    QVERIFY(!file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Sit")));
    QVERIFY(!file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Site\\Package")));
    QVERIFY(!file.hasKey(QString()));
}

void TestRegistryFile::entriesKeepTheirOrderAndTheLastOfANameCounts()
{
    const auto file = read(kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Site]\n\"B\"=\"1\"\n"
                                     "\"A\"=\"2\"\n[Other]\n\"C\"=\"3\"\n"
                                     "[hkey_local_machine\\software\\site]\n\"b\"=dword:4\n");
    const auto entries = file.entries(kKey);
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[0].name, QStringLiteral("A"));
    QCOMPARE(entries[1].name, QStringLiteral("b"));
    QCOMPARE(number(entries[1].value), 4U);
}

void TestRegistryFile::missingFileIsEmptyButNotDamaged()
{
    const auto file = RegistryFile::read(m_folder.filePath(QStringLiteral("none.reg")));
    QVERIFY(!file.damage());
    QVERIFY(!file.hasKey(kKey));
}

void TestRegistryFile::unreadableFileIsReported()
{
    const auto file = RegistryFile::read(m_folder.path());
    QVERIFY(file.damage().has_value());
    QCOMPARE(file.damage()->path, m_folder.path());
    QCOMPARE(file.damage()->line, 0);
}

void TestRegistryFile::damagedLineIsNamedAndNothingOfTheFileIsUsed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");

    const QByteArray start = kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Site]\r\n\"A\"=\"1\"\r\n";
    QTest::newRow("empty file") << QByteArray() << 1;
    QTest::newRow("blank file") << QByteArray("\n\n") << 3;
    QTest::newRow("no header") << QByteArray("; text\n[Key]\n") << 2;
    QTest::newRow("another header") << QByteArray("Windows Registry Editor Version 6.00\n") << 1;
    QTest::newRow("value before a key") << kHeader + "\"A\"=\"1\"\n" << 3;
    QTest::newRow("key without end") << start + "[Key\n" << 5;
    QTest::newRow("key without name") << start + "[]\n" << 5;
    QTest::newRow("name without quotes") << start + "B=\"1\"\n" << 5;
    QTest::newRow("name without end") << start + "\"B=1\n" << 5;
    QTest::newRow("no value") << start + "\"B\"\n" << 5;
    QTest::newRow("text without quotes") << start + "\"B\"=1\n" << 5;
    QTest::newRow("text without end") << start + "\"B\"=\"1\n" << 5;
    QTest::newRow("text cut in an escape") << start + "\"B\"=\"1\\" << 5;
    QTest::newRow("single backslash") << start + "\"B\"=\"C:\\Site\"\n" << 5;
    QTest::newRow("more behind the text") << start + "\"B\"=\"1\"2\n" << 5;
    QTest::newRow("number without digits") << start + "\"B\"=dword:\n" << 5;
    QTest::newRow("number with odd digit") << start + "\"B\"=dword:0000001g\n" << 5;
    QTest::newRow("number too long") << start + "\"B\"=dword:000000001\n" << 5;
    QTest::newRow("unknown kind") << start + "\"B\"=float:1.0\n" << 5;
    QTest::newRow("odd byte in a later line") << start + "\"B\"=hex:01,\\\n  0x,\n" << 6;
    QTest::newRow("cut between bytes") << start + "\"B\"=hex:01,\\" << 5;
    QTest::newRow("not UTF-8") << start + "\"B\"=\"Gr\xF6\xDF"
                                          "e\"\n"
                               << 5;
    QTest::newRow("zeros of a lost block") << start + QByteArray(512, '\0') << 5;
}

void TestRegistryFile::damagedLineIsNamedAndNothingOfTheFileIsUsed()
{
    QFETCH(QByteArray, content);
    QFETCH(int, line);

    const RegistryFile file = read(content);
    QVERIFY(file.damage().has_value());
    QCOMPARE(file.damage()->path, m_folder.filePath(QStringLiteral("test.reg")));
    QCOMPARE(file.damage()->line, line);
    QVERIFY(!file.hasKey(kKey));
    QVERIFY(file.entries(kKey).isEmpty());
}

QTEST_APPLESS_MAIN(TestRegistryFile)
#include "TestRegistryFile.moc"
