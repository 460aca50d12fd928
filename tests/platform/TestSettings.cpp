#include "platform/core/Profile.h"
#include "platform/core/RecentFiles.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/SettingsFile.h"
#include "platform/core/SettingsLocation.h"
#include "support/Languages.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QStringEncoder>

#include <cerrno>
#include <ctime>
#include <memory>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QString kPort = u"COMPort"_s;
const QString kProfile = u"Korvex Systems/Pelorin.ini"_s;
const QString kCopy = kProfile + u".damaged"_s;

const QByteArray kHeader = "Windows Registry Editor Version 5.00\r\n";
const QByteArray kSite = kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Site]\r\n";
const QString kSoftware = u"\\HKEY_LOCAL_MACHINE\\SOFTWARE\\"_s;
const QString kKey = kSoftware + u"Site"_s;

struct Row
{
    const char* name;
    QByteArray content;
    QByteArray expected;
};

} // namespace

/// The user's profile and the settings files.
class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<TestFolder>();
        QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path({}).toUtf8()));
        QVERIFY(qunsetenv("PELORIN_REGISTRY"));
    }

    void storedNumbersAreReadByTheNextRun()
    {
        Profile profile;
        QCOMPARE(profile.fileName(), m_folder->path(kProfile));
        QVERIFY(!profile.isDamaged() && profile.unreadable().isDone());
        QVERIFY(profile.readInt(kPort, 1) == 1 && profile.write({}).isDone() &&
                !QFileInfo::exists(profile.fileName()));
        QVERIFY(Profile().write({{u"Language"_s, 16}}).isDone()); // of another run meanwhile
        QVERIFY(profile.write({{kPort, 97}}).isDone() && Profile().readInt(kPort, 1) == 97);
        QCOMPARE(m_folder->content(kProfile), QByteArray("[Setup]\nCOMPort=97\nLanguage=16\n"));

        for (const char* value : {"", "COM7", "7.0", "7, 8", "99999999999", "@Variant(x)"}) {
            const QByteArray text = QByteArray("[Setup]\nCOMPort=") + value + "\nLanguage=2\n";
            QVERIFY(m_folder->put(kProfile, text));
            QVERIFY2(!Profile().isDamaged() && Profile().readInt(kPort, 1) == 1, value);
            QCOMPARE(Profile().readInt(u"Language"_s, 1), 2);
        }
    }

    void lastFilesAreKeptAsFarAsTheyAreThere()
    {
        const RecentFiles recent(u"dat"_s);
        QVERIFY(recent.files().isEmpty() && recent.folder().isEmpty());
        QStringList expected;
        for (int number = 1; number <= 12; ++number) {
            const QString name = u"Ü %1.dat"_s.arg(number);
            QVERIFY(number == 11 || m_folder->put(name, {}));
            QVERIFY(recent.add(m_folder->path(name)).isDone());
            if (number > 2 && number != 11)
                expected.prepend(m_folder->path(name));
        }
        QCOMPARE(RecentFiles(u"dat"_s).files(), expected);
        QVERIFY(recent.add(expected.back()).isDone());
        expected.prepend(expected.takeLast());
        QCOMPARE(recent.files(), expected);
        QCOMPARE(recent.folder(), m_folder->path({}));
        QVERIFY(RecentFiles(u"csv"_s).files().isEmpty());
    }

    void allElseInTheProfileIsKept()
    {
        const std::vector<Row> rows{
            {"comments, blanks, other sections",
             "; mine\r\n\r\n[Setup]\r\n Language = \"2\" \r\na text\r\n[Other]\r\nCOMPort=9",
             "; mine\r\n\r\n[Setup]\r\nCOMPort=3\r\n Language = \"2\" \r\na "
             "text\r\n[Other]\r\nCOMPort=9\n"},
            {"no such section", "[Other]\nA=1\n", "[Other]\nA=1\n\n[Setup]\nCOMPort=3\n"},
            {"twice", "[Setup]\nCOMPort=1\nCOMPort=2\n", "[Setup]\nCOMPort=1\nCOMPort=3\n"},
            {"mark", "\xEF\xBB\xBF[Setup]\nB=1\n", "\xEF\xBB\xBF[Setup]\nB=1\nCOMPort=3\n"}};
        forEachRow(rows, [this](const Row& row) {
            QVERIFY(m_folder->put(kProfile, row.content) && Profile().write({{kPort, 3}}).isDone());
            QCOMPARE(m_folder->content(kProfile), row.expected);
            QCOMPARE(Profile().readInt(kPort, 1), 3);
        });
    }

    void unfitProfileCountsAsMissingAndIsKept()
    {
        for (const QByteArray& content :
             {QByteArray("[Setup\nCOMPort=7\n"), "[Setup]\nCOMPort=7\n" + QByteArray(9, '\0'),
              QByteArray("COM7 is the sensor's port")}) {
            QVERIFY(m_folder->put(kProfile, content) && m_folder->put(kCopy, "earlier damage"));
            Profile profile;
            QVERIFY(profile.isDamaged() && profile.readInt(kPort, 1) == 1);
            QCOMPARE(m_folder->content(kProfile), content);
            QVERIFY(profile.write({{kPort, 3}}).isDone());
            QCOMPARE(m_folder->content(kCopy), content);
            QCOMPARE(m_folder->content(kProfile), QByteArray("[Setup]\nCOMPort=3\n"));
        }
        // What cannot be kept or read is not overwritten.
        QVERIFY(QFile::remove(m_folder->path(kCopy)) && QDir().mkpath(m_folder->path(kCopy)));
        for (const auto& [content, error] : {std::pair(QByteArray("[Setup\n"), EISDIR),
                                             std::pair(QByteArray(2'000'000, '\n'), EFBIG)}) {
            QVERIFY(m_folder->put(kProfile, content));
            QCOMPARE(Profile().isDamaged(), error == EISDIR);
            QCOMPARE(Profile().write({{kPort, 3}}).systemError, error);
            QVERIFY(m_folder->content(kProfile) == content);
        }
    }

    void exportOfAnotherMachineIsReadInEveryEncoding()
    {
        // Quotes are single ones here, which the meta-object compiler does not stumble over.
        const QByteArray content = QByteArray(R"(
; exported
[HKEY_LOCAL_MACHINE\SOFTWARE\Site]
@='default'
'Quoted \'name\''='\'Größe\'; no comment'
'Path'='C:\\Site\\'
'Twice'='1'
'Low'=dword:0000001f
'All'=dword:FFFFFFFF ; a comment
'Blob'=hex:01,02,\
  03,04
'Expand'=hex(2):25,00,\
  00,00
[HKEY_LOCAL_MACHINE\SOFTWARE\Other\Package0]
'Other'='1'
  [hkey_local_machine\software\site]
  'tWICE' = ''   ; and a comment
'Minus'='-1'
'Padded'=' 16 '
'Hex'='1F'
)")
                                       .replace('\'', '"');
        const QString values =
            u"=default -7, Quoted \"name\"=\"Größe\"; no comment -7, Path=C:\\Site\\ -7, "
            "Low=31 31, All=4294967295 -1, tWICE= -7, Minus=-1 -1, Padded= 16  16, Hex=1F -7"_s;
        const QByteArray whole = kHeader + content;
        QStringEncoder wide(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
        const std::vector<Row> rows{
            {"UTF-8, no line end at the end", whole.trimmed(), {}},
            {"UTF-8 with byte order mark", "\xEF\xBB\xBF" + whole, {}},
            {"UTF-16, CRLF", wide(QString::fromUtf8(whole).replace(u"\n"_s, u"\r\n"_s)), {}},
            {"older header", "REGEDIT4" + content, {}}};
        forEachRow(rows, [&](const Row& row) {
            QVERIFY(use(row.content));
            RegistryConfig config;
            QCOMPARE(config.setStorage(kKey.toUpper(), 0), 1);
            QStringList found; // as text and as number
            for (const auto& entry : RegistryFile::read(settingsPath()).entries(kKey)) {
                const QString name = entry.name.toUpper();
                found << u"%1=%2 %3"_s.arg(entry.name, config.getValue(name, QString()),
                                           QString::number(config.getValue(name, -7)));
            }
            QCOMPARE(found.join(u", "_s), values);
            for (const QString& key : {u"Other\\package0"_s, u"other"_s})
                QVERIFY2(config.setStorage(kSoftware + key) == 1, qPrintable(key));
            for (const QString& key : {u"Othe"_s, u"Other\\Package"_s, u"Other\\Package0\\Other"_s})
                QVERIFY2(config.setStorage(kSoftware + key) != 1, qPrintable(key));
            QVERIFY(config.getValue(u"Low"_s, 5) == 5 && config.getValue(u"Low"_s, u"-"_s) == u"-");
        });
    }

    /// A search through all of them for each takes ten seconds.
    void manyValuesTakeNoTime()
    {
        QByteArray content = kSite;
        for (int i = 0; i < 30'000; ++i)
            content += "\"" + QByteArray::number(i % 15'000) + "\"=dword:0\n";
        const std::clock_t start = std::clock(); // of this process alone
        QVERIFY(use(content));
        QCOMPARE(RegistryFile::read(settingsPath()).entries(kKey).size(), 15'000);
        QVERIFY(std::clock() - start < 2 * CLOCKS_PER_SEC);
    }

    void damagedLineIsNamedAndNothingOfTheFileIsUsed()
    {
        const auto faultyLine = [this](const QByteArray& content) {
            const bool isUsed = !use(content) || RegistryConfig().setStorage(kKey) == 1;
            const auto damage = RegistryFile::read(settingsPath()).damage();
            return isUsed || !damage || damage->path != settingsPath() ? -1 : damage->line;
        };
        for (const auto& [content, line] :
             {std::pair("", 1), std::pair("\n\n", 3), std::pair("; text\n[Key]\n", 2),
              std::pair("REGEDIT5\n", 1), std::pair("REGEDIT4\n\"A\"=\"1\"\n", 2)})
            QVERIFY2(faultyLine(content) == line, content);
        for (const char* text :
             {"[Key", "[]", "B=\"1\"", "\"B=1", "\"B\"", "\"B\"=1", "\"B\"=\"1", "\"B\"=\"1\\",
              "\"B\"=\"C:\\Site\"", "\"B\"=\"1\"2", "\"B\"=dword:", "\"B\"=dword:0000001g",
              "\"B\"=dword:000000001", "\"B\"=float:1.0", "\"B\"=hex:0x", "\"B\"=\"\xF6\""})
            QVERIFY2(faultyLine(kSite + text + "\n\"A\"=\"1\"\r\n") == 3, text);
        QCOMPARE(faultyLine(kSite + "\"B\"=hex:01,\\"), 3);
        QCOMPARE(faultyLine(kSite + "\"B\"=hex:01,\\\r\n  0x,\r\n"), 4);
        QCOMPARE(faultyLine(kSite + QByteArray(512, '\0')), 3); // of a lost block
        QCOMPARE(RegistryFile::read(m_folder->path({})).damage()->line, 0);
        QVERIFY(!RegistryFile::read(u"/nowhere/none.reg"_s).damage());
    }

    void settingsFileIsTheNearestAndReadOnceForAUse()
    {
        if (!QFileInfo::exists(u"/etc/pelorin/pelorin.reg"_s))
            QCOMPARE(registryFilePath(), programFolder() + u"/pelorin.reg"_s);
        QVERIFY(m_folder->put(u"pelorin/pelorin.reg"_s, kSite));
        QCOMPARE(registryFilePath(), m_folder->path(u"pelorin/pelorin.reg"_s));
        RegistryConfig config;
        // A file that is named but missing is not silently replaced by another one.
        QVERIFY(qputenv("PELORIN_REGISTRY", "/srv/site/test.reg"));
        QCOMPARE(registryFilePath(), u"/srv/site/test.reg"_s);
        QCOMPARE(config.setStorage(kKey), 1);

        for (const auto& [path, folder] :
             {std::pair(u"..\\share\\"_s, u"/srv/share"_s), std::pair(u".\\"_s, u"/srv/site"_s),
              std::pair(u"/usr/share\\"_s, u"/usr/share"_s),
              std::pair(u"C:\\Pelorin\\"_s, programFolder()),
              std::pair(u"\\\\server\\P\\"_s, programFolder())})
            QCOMPARE(installationFolder(path), folder);
    }

    void usersOwnFileBeginsAsACopyOfTheOneInForce()
    {
        const QByteArray path =
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\n\"Path\"=";
        const QString site = m_folder->path(u"site/pelorin.reg"_s);
        const QString own = m_folder->path(u"own/new/pelorin.reg"_s);
        QVERIFY(m_folder->put(u"site/pelorin.reg"_s, kSite + path + "\"..\\\\share\" ; here\n"));
        SettingsFile copied({site, own});
        QVERIFY(copied.replaced() == site && copied.path() == own && !copied.isUsersOwn());
        QCOMPARE(copied.content(),
                 kSite + path + "\"" + m_folder->path(u"share"_s).toUtf8() + "\" ; here\n");
        QVERIFY(!copied.hasChanged() && copied.save(copied.content()).isDone());
        QVERIFY(!copied.hasChanged() && m_folder->put(u"own/new/pelorin.reg"_s, kSite));
        QVERIFY(copied.hasChanged());

        // A link stays one; whoever goes back to the site's settings keeps theirs.
        const QString link = m_folder->path(u"link.reg"_s);
        QVERIFY(QFile::link(own, link));
        SettingsFile linked({link, link});
        QVERIFY(linked.replaced().isEmpty() && linked.content() == kSite && linked.isUsersOwn());
        QVERIFY(linked.save("REGEDIT4").isDone() && QFileInfo(link).isSymLink());
        QCOMPARE(m_folder->content(u"own/new/pelorin.reg"_s), QByteArray("REGEDIT4"));
        QVERIFY(linked.problem().isEmpty() && linked.setAside().isDone());
        QVERIFY(!QFileInfo(link).isSymLink() && QFileInfo::exists(link + u".old"_s));

        // What cannot be given back, or not be written, is shown only.
        const Languages languages(1);
        QFile gone(m_folder->path(u"gone/test.reg"_s)); // open, but its folder does not exist
        QVERIFY(m_folder->put(u"gone/test.reg"_s, kSite) && gone.open(QIODevice::ReadOnly) &&
                QDir(m_folder->path(u"gone"_s)).removeRecursively());
        const QString goneFile = u"/proc/self/fd/%1"_s.arg(gone.handle());
        const QByteArray damaged = kSite + "\"B\"=1\n";
        QVERIFY(m_folder->put(u"site/pelorin.reg"_s, damaged));
        for (const auto& [file, content, reason] :
             {std::tuple(site, damaged, u"damaged in line 3"_s),
              std::tuple(goneFile, kSite, u"No such file"_s)}) {
            const SettingsFile edited({file, file, true});
            QVERIFY2(edited.problem().contains(file) && edited.problem().contains(reason),
                     qPrintable(edited.problem()));
            QVERIFY(edited.content() == content && !edited.isUsersOwn());
        }
    }

    void installedSettingsHoldWhatTheirCommentsPromise()
    {
        const QByteArray leftToTheSite = contentOf(programFolder() + u"/pelorin.reg"_s);
        QByteArray turnedOn = leftToTheSite;
        turnedOn.replace("\n;\"", "\n\"").replace("\n;[", "\n[");
        const QByteArray demo = contentOf(programFolder() + u"/demo.reg"_s);
        const QByteArray always =
            "help\\pelorin_1.html help\\pelorin_2.html help\\pelorin_4.html help\\pelorin_8.html "
            "help\\pelorin_16.html C:\\Program Files\\Korvex Systems\\Pelorin ";
        const std::vector<Row> rows{
            {"as installed", leftToTheSite, always + "- - - - - - - - - - -"},
            {"every default turned on", turnedOn, always + "COM2 1 1 0 16 31 32 47 48 63 50.8"},
            {"demonstration", demo, always + "COM96 1 1 0 16 31 32 47 48 63 50.8"}};
        forEachRow(rows, [this](const Row& row) {
            QVERIFY(use(row.content));
            RegistryConfig config;
            QStringList values;
            const auto read = [&](const QString& key, const QString& names) {
                (void)config.setStorage(productKey(key));
                for (const QString& name : names.split(u' '))
                    values << config.getValue(name, u"-"_s);
            };
            read(u"Help Files"_s, u"Lang1 Lang2 Lang4 Lang8 Lang16"_s);
            read({}, u"Path QDL3Comport EnableQDL3 EnableTempComp ManualPowerMode"_s);
            read(u"Firmware Rev Bounds"_s,
                 u"Type0Low Type0High Type1Low Type1High Type2Low Type2High"_s);
            read(u"Package Parameters\\Package0"_s, u"SEDistance"_s);
            QCOMPARE(values.join(u' '), QString::fromLatin1(row.expected));
        });
    }

private:
    [[nodiscard]] QString settingsPath() const { return m_folder->path(u"site/test.reg"_s); }
    /// Makes a content the one of the settings file that is used.
    [[nodiscard]] bool use(const QByteArray& content) const
    {
        return putContent(settingsPath(), content) &&
               qputenv("PELORIN_REGISTRY", settingsPath().toUtf8());
    }

    std::unique_ptr<TestFolder> m_folder;
};

QTEST_GUILESS_MAIN(TestSettings)
#include "TestSettings.moc"
