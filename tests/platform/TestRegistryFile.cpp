#include "platform/core/RegistryFile.h"
#include "support/FileContent.h"

#include <QElapsedTimer>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

namespace {

const QByteArray kSite =
    "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Site]\r\n";
const QString kKey = QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Site");

} // namespace

class TestRegistryFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exportOfAnotherMachineIsReadInEveryEncoding_data();
    void exportOfAnotherMachineIsReadInEveryEncoding();
    void keyExistsIfItOrAKeyBelowItIsListed();
    void entriesKeepTheirOrderAndTheLastOfANameCounts();
    void manyValuesAndKeysTakeNoTime();
    void missingFileIsEmptyAndUnreadableOneReported();
    void damagedLineIsNamedAndNothingOfTheFileIsUsed_data();
    void damagedLineIsNamedAndNothingOfTheFileIsUsed();

private:
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("test.reg")); }
    [[nodiscard]] RegistryFile read(const QByteArray& content) const
    {
        return test::putContent(path(), content) ? RegistryFile::read(path()) : RegistryFile();
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
    QStringEncoder wide(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);

    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8, no line end at the end") << content.trimmed().toUtf8();
    QTest::newRow("UTF-8 with byte order mark") << "\xEF\xBB\xBF" + content.toUtf8();
    QTest::newRow("UTF-16, CRLF") << QByteArray(wide(crlf));
    QTest::newRow("older header") << "REGEDIT4" +
                                         content.mid(content.indexOf(QLatin1Char('\n'))).toUtf8();
}

void TestRegistryFile::exportOfAnotherMachineIsReadInEveryEncoding()
{
    QFETCH(QByteArray, bytes);
    const RegistryFile file = read(bytes);
    QVERIFY(!file.damage());

    using Value = RegistryFile::Value;
    const auto value = [&file](const char* name) {
        return file.value(kKey.toUpper(), QString::fromUtf8(name));
    };
    QCOMPARE(value(""), Value(QStringLiteral("default")));
    QCOMPARE(value("pATH"), Value(QStringLiteral("C:\\Program Files\\Pelorin\\")));
    QCOMPARE(value("Quoted \"name\""), Value(QString::fromUtf8("Größe \"L\"; not a comment")));
    QCOMPARE(value("Low"), Value(31U));
    QCOMPARE(value("All"), Value(0xFFFFFFFFU));
    QCOMPARE(value("Empty"), Value(QString()));
    for (const char* passedOver : {"Blob", "Expand", "Indented"})
        QVERIFY(!value(passedOver));
    QVERIFY(file.hasKey(kKey + QStringLiteral("\\Empty")));
    QCOMPARE(file.value(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Other"),
                        QStringLiteral("Indented")),
             Value(QStringLiteral("yes")));
}

void TestRegistryFile::keyExistsIfItOrAKeyBelowItIsListed()
{
    const auto file = read(kSite + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Line\\Package0]\n");
    QVERIFY(file.hasKey(kKey));
    QVERIFY(file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Line\\package0")));
    QVERIFY(file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Line")));
    QVERIFY(!file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Lin")));
    QVERIFY(!file.hasKey(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Line\\Package")));
    QVERIFY(!file.hasKey(QString()));
}

void TestRegistryFile::entriesKeepTheirOrderAndTheLastOfANameCounts()
{
    const auto file = read(kSite + "\"B\"=\"1\"\n\"A\"=\"2\"\n[Other]\n\"C\"=\"3\"\n"
                                   "[hkey_local_machine\\software\\site]\n\"b\"=dword:4\n");
    const auto entries = file.entries(kKey);
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[0].name, QStringLiteral("A"));
    QCOMPARE(entries[1].name, QStringLiteral("b"));
    QCOMPARE(entries[1].value, RegistryFile::Value(4U));
}

/// A search through all of them for each takes ten seconds.
void TestRegistryFile::manyValuesAndKeysTakeNoTime()
{
    QByteArray content = kSite;
    for (int i = 0; i < 20'000; ++i)
        content += "\"Value" + QByteArray::number(i % 15'000) + "\"=dword:0\n";
    for (int i = 0; i < 5'000; ++i)
        content += "[Package" + QByteArray::number(i) + "]\n";
    QElapsedTimer timer;
    timer.start();
    const auto file = read(content);
    QCOMPARE(file.entries(kKey).size(), 15'000);
    for (int i = 0; i < 5'000; ++i)
        QVERIFY(file.hasKey(QStringLiteral("\\Package%1").arg(i)));
    QVERIFY2(timer.elapsed() < 2'000, qPrintable(QString::number(timer.elapsed())));
}

void TestRegistryFile::missingFileIsEmptyAndUnreadableOneReported()
{
    const auto missing = RegistryFile::read(m_folder.filePath(QStringLiteral("none.reg")));
    QVERIFY(!missing.damage());
    QVERIFY(!missing.hasKey(kKey));

    const auto unreadable = RegistryFile::read(m_folder.path());
    QVERIFY(unreadable.damage().has_value());
    QCOMPARE(unreadable.damage()->path, m_folder.path());
    QCOMPARE(unreadable.damage()->line, 0);
}

void TestRegistryFile::damagedLineIsNamedAndNothingOfTheFileIsUsed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");

    QTest::newRow("empty file") << QByteArray() << 1;
    QTest::newRow("blank file") << QByteArray("\n\n") << 3;
    QTest::newRow("no header") << QByteArray("; text\n[Key]\n") << 2;
    QTest::newRow("another header") << QByteArray("Windows Registry Editor Version 6.00\n") << 1;
    QTest::newRow("value before a key") << QByteArray("REGEDIT4\n\"A\"=\"1\"\n") << 2;
    const auto row = [](const char* title, const QByteArray& text, int line = 5) {
        QTest::newRow(title) << kSite + "\"A\"=\"1\"\r\n" + text << line;
    };
    row("key without end", "[Key\n");
    row("key without name", "[]\n");
    row("name without quotes", "B=\"1\"\n");
    row("name without end", "\"B=1\n");
    row("no value", "\"B\"\n");
    row("text without quotes", "\"B\"=1\n");
    row("text without end", "\"B\"=\"1\n");
    row("text cut in an escape", "\"B\"=\"1\\");
    row("single backslash", "\"B\"=\"C:\\Site\"\n");
    row("more behind the text", "\"B\"=\"1\"2\n");
    row("number without digits", "\"B\"=dword:\n");
    row("number with odd digit", "\"B\"=dword:0000001g\n");
    row("number too long", "\"B\"=dword:000000001\n");
    row("unknown kind", "\"B\"=float:1.0\n");
    row("odd byte in a later line", "\"B\"=hex:01,\\\n  0x,\n", 6);
    row("cut between bytes", "\"B\"=hex:01,\\");
    row("not UTF-8", "\"B\"=\"\xF6\"\n");
    row("zeros of a lost block", QByteArray(512, '\0'));
}

void TestRegistryFile::damagedLineIsNamedAndNothingOfTheFileIsUsed()
{
    QFETCH(QByteArray, content);
    QFETCH(int, line);

    const RegistryFile file = read(content);
    QVERIFY(file.damage().has_value());
    QCOMPARE(file.damage()->path, path());
    QCOMPARE(file.damage()->line, line);
    QVERIFY(!file.hasKey(kKey));
    QVERIFY(file.entries(kKey).isEmpty());
}

QTEST_APPLESS_MAIN(TestRegistryFile)
#include "TestRegistryFile.moc"
