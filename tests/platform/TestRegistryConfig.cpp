#include "platform/core/RegistryConfig.h"
#include "platform/core/SettingsLocation.h"
#include "support/FileContent.h"

#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kProduct = QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin");
const QString kBounds = kProduct + QStringLiteral("\\Firmware Rev Bounds");

QString installed(const char* name)
{
    return programFolder() + QLatin1Char('/') + QLatin1String(name);
}

bool use(const QString& settingsFile)
{
    return qputenv("PELORIN_REGISTRY", settingsFile.toUtf8());
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
    void nearestSettingsFileIsUsed();
    void installationPathNamesAFolder_data();
    void installationPathNamesAFolder();
    void installedSettingsLeadToTheInstallation_data();
    void installedSettingsLeadToTheInstallation();
    void everyCommentedDefaultCanBeTurnedOn();
    void demonstrationHasSensorsOfEveryType();

private:
    [[nodiscard]] bool useValues(const QByteArray& values) const
    {
        const QString path = m_folder->filePath(QStringLiteral("site/test.reg"));
        return putContent(path, "REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\"
                                "Pelorin]\n" +
                                    values) &&
               use(path);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestRegistryConfig::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8()));
    QVERIFY(qunsetenv("PELORIN_REGISTRY"));
}

void TestRegistryConfig::valueAnswersAsTextAndAsNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("number");

    QTest::newRow("\"Other\"=\"1\"") << "default" << -7;
    QTest::newRow("\"Value\"=\"COM96\"") << "COM96" << -7;
    QTest::newRow("\"Value\"=\"\"") << "" << -7;
    QTest::newRow("\"Value\"=\" 16 \"") << " 16 " << 16;
    QTest::newRow("\"Value\"=\"-1\"") << "-1" << -1;
    QTest::newRow("\"Value\"=\"1F\"") << "1F" << -7;
    QTest::newRow("\"Value\"=\"50.8\"") << "50.8" << -7;
    QTest::newRow("\"Value\"=dword:0000001f") << "31" << 31;
    QTest::newRow("\"Value\"=dword:ffffffff") << "4294967295" << -1;
    QTest::newRow("\"Value\"=hex:1f") << "default" << -7;
}

void TestRegistryConfig::valueAnswersAsTextAndAsNumber()
{
    QFETCH(QString, text);
    QFETCH(qint32, number);
    QVERIFY(useValues(QTest::currentDataTag()));
    RegistryConfig config;
    QCOMPARE(config.setStorage(kProduct, 0), 1);
    QCOMPARE(config.getValue(QStringLiteral("Value"), QStringLiteral("default")), text);
    QCOMPARE(config.getValue(QStringLiteral("Value"), -7), number);
}

void TestRegistryConfig::missingKeyOrDamagedFileAnswersWithDefaults()
{
    const QString value = QStringLiteral("Value");
    QVERIFY(useValues("\"Value\"=\"1\""));
    RegistryConfig config;
    QVERIFY(config.setStorage(kBounds) != 1);
    QCOMPARE(config.getValue(value, 5), 5);
    QCOMPARE(config.setStorage(kProduct), 1);
    QCOMPARE(config.getValue(value, 5), 1);

    QVERIFY(useValues("\"Value\"=\"1\"\n\"Path\"=damaged"));
    QCOMPARE(config.setStorage(kProduct), 1); // one file for all keys of a use
    RegistryConfig next;
    QVERIFY(next.setStorage(kProduct) != 1);
    QCOMPARE(next.getValue(value, 5), 5);
}

void TestRegistryConfig::nearestSettingsFileIsUsed()
{
    if (!QFileInfo::exists(QStringLiteral("/etc/pelorin/pelorin.reg")))
        QCOMPARE(registryFilePath(), installed("pelorin.reg"));

    const QString users = m_folder->filePath(QStringLiteral("pelorin/pelorin.reg"));
    QVERIFY(putContent(users, "anything"));
    QCOMPARE(registryFilePath(), users);

    // A file that is named but missing is not silently replaced by another one.
    QVERIFY(use(QStringLiteral("/nowhere/site.reg")));
    QCOMPARE(registryFilePath(), QStringLiteral("/nowhere/site.reg"));
}

void TestRegistryConfig::installationPathNamesAFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("..\\share\\pelorin\\") << "/srv/share/pelorin";
    QTest::newRow("../share/pelorin\\") << "/srv/share/pelorin";
    QTest::newRow(".\\") << "/srv/site";
    QTest::newRow("/usr/share/pelorin\\") << "/usr/share/pelorin";
    for (const char* windows : {"C:\\Program Files\\Pelorin\\", "d:/Pelorin\\", "\\\\server\\P\\"})
        QTest::newRow(windows) << programFolder();
}

void TestRegistryConfig::installationPathNamesAFolder()
{
    QFETCH(QString, folder);
    QVERIFY(use(QStringLiteral("/srv/site/test.reg")));
    QCOMPARE(installationFolder(QString::fromLatin1(QTest::currentDataTag())), folder);
}

void TestRegistryConfig::installedSettingsLeadToTheInstallation_data()
{
    QTest::addColumn<int>("features");
    QTest::addColumn<bool>("hasBounds");
    QTest::newRow("pelorin.reg") << 0 << false; // the sensors are left to the site
    QTest::newRow("demo.reg") << 1 << true;
}

void TestRegistryConfig::installedSettingsLeadToTheInstallation()
{
    QFETCH(int, features);
    QFETCH(bool, hasBounds);

    // Also when the file is copied elsewhere to be edited.
    const QString original = installed(QTest::currentDataTag());
    const QString copy = m_folder->filePath(QStringLiteral("copy.reg"));
    QVERIFY(QFile::copy(original, copy));
    for (const QString& path : {original, copy}) {
        QVERIFY(use(path));
        RegistryConfig config;
        QCOMPARE(config.setStorage(kProduct), 1);
        QVERIFY(QFileInfo::exists(
            installationFolder(config.getValue(QStringLiteral("Path"), QString())) +
            QStringLiteral("/languages/pelorin_1.qm")));
        QCOMPARE(config.getValue(QStringLiteral("EnableQDL3"), 0), features);
        QCOMPARE(config.getValue(QStringLiteral("EnableTempComp"), 0), features);
        QCOMPARE(config.getValue(QStringLiteral("ManualPowerMode"), 0), 0);

        QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Help Files")), 1);
        for (const char* language : {"Lang1", "Lang2", "Lang4", "Lang8", "Lang16"})
            QVERIFY(!config.getValue(QLatin1String(language), QString()).isEmpty());
        QCOMPARE(config.setStorage(kBounds) == 1, hasBounds);
    }
}

void TestRegistryConfig::everyCommentedDefaultCanBeTurnedOn()
{
    QByteArray content = contentOf(installed("pelorin.reg"));
    content.replace("\n;\"", "\n\"").replace("\n;[", "\n[");
    const QString path = m_folder->filePath(QStringLiteral("all.reg"));
    QVERIFY(putContent(path, content) && use(path));

    RegistryConfig config;
    QCOMPARE(config.setStorage(kBounds), 1);
    QCOMPARE(config.getValue(QStringLiteral("Type2High"), 0), 0x3F);
    QCOMPARE(config.setStorage(kProduct + QStringLiteral("\\Package Parameters\\Package0")), 1);
    QCOMPARE(config.getValue(QStringLiteral("SEDistance"), QString()), QStringLiteral("50.8"));
}

void TestRegistryConfig::demonstrationHasSensorsOfEveryType()
{
    QVERIFY(use(installed("demo.reg")));
    RegistryConfig config;
    QCOMPARE(config.setStorage(kBounds), 1);
    for (int type = 0; type < 3; ++type) {
        const int low = 16 * (type + 1);
        QCOMPARE(config.getValue(QStringLiteral("Type%1Low").arg(type), -1), low);
        QCOMPARE(config.getValue(QStringLiteral("Type%1High").arg(type), -1), low + 15);
    }
    QCOMPARE(config.setStorage(kProduct), 1);
    QCOMPARE(config.getValue(QStringLiteral("QDL3Comport"), QString()), QStringLiteral("COM96"));
}

QTEST_GUILESS_MAIN(TestRegistryConfig)
#include "TestRegistryConfig.moc"
