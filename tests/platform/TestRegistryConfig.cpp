#include "platform/core/RegistryConfig.h"
#include "platform/core/SettingsLocation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

namespace {

const QString kProduct = QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin");

bool putContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QFileInfo(path).dir().mkpath(QStringLiteral(".")) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

QByteArray settingsWith(const QByteArray& values)
{
    return "Windows Registry Editor Version 5.00\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\n" +
           values + "\n";
}

} // namespace

class TestRegistryConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void valueAnswersAsTextAndAsNumber_data();
    void valueAnswersAsTextAndAsNumber();
    void missingKeyOrDamagedFileAnswersWithDefaults();
    void settingsAreReadAfreshForEachKey();
    void nearestSettingsFileIsUsed();
    void installationPathNamesAFolder_data();
    void installationPathNamesAFolder();
    void installedSettingsAreWholeAndLeadToTheInstallation_data();
    void installedSettingsAreWholeAndLeadToTheInstallation();
    void defaultSettingsLeaveTheSensorsToTheSite();
    void everyCommentedDefaultCanBeTurnedOn();
    void demonstrationHasSensorsOfEveryType();

private:
    [[nodiscard]] bool useSettings(const QByteArray& content) const
    {
        const QString path = m_folder->filePath(QStringLiteral("site/test.reg"));
        return putContent(path, content) && qputenv("PELORIN_REGISTRY", path.toUtf8());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestRegistryConfig::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8()));
    QVERIFY(qunsetenv("PELORIN_REGISTRY"));
}

void TestRegistryConfig::valueAnswersAsTextAndAsNumber_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("number");

    QTest::newRow("absent") << QByteArray("\"Other\"=\"1\"") << "default" << -7;
    QTest::newRow("text") << QByteArray("\"Value\"=\"COM96\"") << "COM96" << -7;
    QTest::newRow("empty text") << QByteArray("\"Value\"=\"\"") << "" << -7;
    QTest::newRow("decimal text") << QByteArray("\"Value\"=\" 16 \"") << " 16 " << 16;
    QTest::newRow("negative text") << QByteArray("\"Value\"=\"-1\"") << "-1" << -1;
    QTest::newRow("hexadecimal text") << QByteArray("\"Value\"=\"1F\"") << "1F" << -7;
    QTest::newRow("fraction") << QByteArray("\"Value\"=\"50.8\"") << "50.8" << -7;
    QTest::newRow("number") << QByteArray("\"Value\"=dword:0000001f") << "31" << 31;
    QTest::newRow("large number") << QByteArray("\"Value\"=dword:ffffffff") << "4294967295" << -1;
    QTest::newRow("bytes") << QByteArray("\"Value\"=hex:1f") << "default" << -7;
}

void TestRegistryConfig::valueAnswersAsTextAndAsNumber()
{
    QFETCH(QByteArray, values);
    QFETCH(QString, text);
    QFETCH(qint32, number);

    QVERIFY(useSettings(settingsWith(values)));
    RegistryConfig config;
    QCOMPARE(config.setStorage(kProduct, 0), 1);
    QCOMPARE(config.getValue(QStringLiteral("Value"), QStringLiteral("default")), text);
    QCOMPARE(config.getValue(QStringLiteral("Value"), -7), number);
}

void TestRegistryConfig::missingKeyOrDamagedFileAnswersWithDefaults()
{
    RegistryConfig config;
    QVERIFY(useSettings(settingsWith("\"Value\"=\"1\"")));
    QVERIFY(config.setStorage(kProduct + QStringLiteral("\\Help Files")) != 1);
    QCOMPARE(config.getValue(QStringLiteral("Value"), 5), 5);

    QVERIFY(useSettings(settingsWith("\"Value\"=\"1\"\n\"Path\"=damaged")));
    QVERIFY(config.setStorage(kProduct) != 1);
    QCOMPARE(config.getValue(QStringLiteral("Value"), 5), 5);
    QCOMPARE(RegistryFile::read(registryFilePath()).damage()->line, 4);
}

void TestRegistryConfig::settingsAreReadAfreshForEachKey()
{
    RegistryConfig config;
    QVERIFY(useSettings(settingsWith("\"Value\"=\"1\"")));
    QCOMPARE(config.setStorage(kProduct), 1);
    QVERIFY(useSettings(settingsWith("\"Value\"=\"2\"")));
    QCOMPARE(config.getValue(QStringLiteral("Value"), 0), 1);
    QCOMPARE(config.setStorage(kProduct), 1);
    QCOMPARE(config.getValue(QStringLiteral("Value"), 0), 2);
}

void TestRegistryConfig::nearestSettingsFileIsUsed()
{
    if (!QFileInfo::exists(QStringLiteral("/etc/pelorin/pelorin.reg")))
        QCOMPARE(registryFilePath(), programFolder() + QStringLiteral("/pelorin.reg"));

    const QString users = m_folder->filePath(QStringLiteral("pelorin/pelorin.reg"));
    QVERIFY(putContent(users, "anything"));
    QCOMPARE(registryFilePath(), users);

    // A file that is named but missing is not silently replaced by another one.
    QVERIFY(qputenv("PELORIN_REGISTRY", "/nowhere/site.reg"));
    QCOMPARE(registryFilePath(), QStringLiteral("/nowhere/site.reg"));
}

void TestRegistryConfig::installationPathNamesAFolder_data()
{
    QTest::addColumn<QString>("installPath");
    QTest::addColumn<QString>("folder");

    QTest::newRow("relative") << "..\\share\\pelorin\\"
                              << "/srv/share/pelorin";
    QTest::newRow("relative, slashes") << "../share/pelorin\\"
                                       << "/srv/share/pelorin";
    QTest::newRow("folder of the settings") << ".\\"
                                            << "/srv/site";
    QTest::newRow("absolute") << "/usr/share/pelorin\\"
                              << "/usr/share/pelorin";
    QTest::newRow("drive") << "C:\\Program Files\\Pelorin\\" << programFolder();
    QTest::newRow("drive, slashes") << "d:/Pelorin\\" << programFolder();
    QTest::newRow("server") << "\\\\server\\share\\Pelorin\\" << programFolder();
}

void TestRegistryConfig::installationPathNamesAFolder()
{
    QFETCH(QString, installPath);
    QFETCH(QString, folder);

    QVERIFY(qputenv("PELORIN_REGISTRY", "/srv/site/test.reg"));
    QCOMPARE(installationFolder(installPath), folder);
}

void TestRegistryConfig::installedSettingsAreWholeAndLeadToTheInstallation_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("default") << "pelorin.reg";
    QTest::newRow("demonstration") << "demo.reg";
}

void TestRegistryConfig::installedSettingsAreWholeAndLeadToTheInstallation()
{
    QFETCH(QString, name);

    // Also when the file is copied elsewhere to be edited.
    const QString installed = programFolder() + QLatin1Char('/') + name;
    const QString copy = m_folder->filePath(name);
    QVERIFY(QFile::copy(installed, copy));
    for (const QString& path : {installed, copy}) {
        QVERIFY(qputenv("PELORIN_REGISTRY", path.toUtf8()));
        QVERIFY(!RegistryFile::read(registryFilePath()).damage());
        RegistryConfig config;
        QCOMPARE(config.setStorage(kProduct), 1);
        const QString folder =
            installationFolder(config.getValue(QStringLiteral("Path"), QString()));
        QVERIFY(QFileInfo::exists(folder + QStringLiteral("/languages/pelorin_1.qm")));

        QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Help Files")), 1);
        for (const char* language : {"Lang1", "Lang2", "Lang4", "Lang8", "Lang16"})
            QVERIFY(!config.getValue(QLatin1String(language), QString()).isEmpty());
    }
}

void TestRegistryConfig::defaultSettingsLeaveTheSensorsToTheSite()
{
    const QString path = programFolder() + QStringLiteral("/pelorin.reg");
    QVERIFY(qputenv("PELORIN_REGISTRY", path.toUtf8()));
    RegistryConfig config;
    QVERIFY(config.setStorage(kProduct + QStringLiteral("\\Firmware Rev Bounds")) != 1);
    QCOMPARE(config.setStorage(kProduct), 1);
    for (const char* flag : {"ManualPowerMode", "EnableQDL3", "EnableTempComp"})
        QCOMPARE(config.getValue(QLatin1String(flag), 0), 0);
}

void TestRegistryConfig::everyCommentedDefaultCanBeTurnedOn()
{
    QFile file(programFolder() + QStringLiteral("/pelorin.reg"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray content = file.readAll();
    content.replace("\n;\"", "\n\"").replace("\n;[", "\n[");
    QVERIFY(useSettings(content));

    QVERIFY(!RegistryFile::read(registryFilePath()).damage());
    RegistryConfig config;
    QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Firmware Rev Bounds")), 1);
    QCOMPARE(config.getValue(QStringLiteral("Type2High"), 0), 0x3F);
    QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Package Parameters\\Package0")), 1);
    QCOMPARE(config.getValue(QStringLiteral("SEDistance"), QString()), QStringLiteral("50.8"));
}

void TestRegistryConfig::demonstrationHasSensorsOfEveryType()
{
    const QString path = programFolder() + QStringLiteral("/demo.reg");
    QVERIFY(qputenv("PELORIN_REGISTRY", path.toUtf8()));
    RegistryConfig config;
    QCOMPARE(config.setStorage(kProduct), 1);
    QCOMPARE(config.getValue(QStringLiteral("EnableQDL3"), 0), 1);
    QCOMPARE(config.getValue(QStringLiteral("EnableTempComp"), 0), 1);
    QCOMPARE(config.getValue(QStringLiteral("QDL3Comport"), QString()), QStringLiteral("COM96"));

    QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Firmware Rev Bounds")), 1);
    const qint32 bounds[][2] = {{16, 31}, {32, 47}, {48, 63}};
    for (int type = 0; type < 3; ++type) {
        QCOMPARE(config.getValue(QStringLiteral("Type%1Low").arg(type), -1), bounds[type][0]);
        QCOMPARE(config.getValue(QStringLiteral("Type%1High").arg(type), -1), bounds[type][1]);
    }
}

QTEST_GUILESS_MAIN(TestRegistryConfig)
#include "TestRegistryConfig.moc"
