#include "platform/core/Profile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

namespace {

const QString kPort = QStringLiteral("COMPort");
const QString kLanguage = QStringLiteral("Language");

bool putContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void profileStandsInTheUsersConfigurationFolder();
    void damageOfTheUsersFileIsNoticed();
    void storedNumbersAreReadByTheNextRun();
    void valueThatIsNoNumberCountsAsAbsent_data();
    void valueThatIsNoNumberCountsAsAbsent();
    void damagedFileCountsAsMissingAndIsKept_data();
    void damagedFileCountsAsMissingAndIsKept();
    void damagedFileThatCannotBeKeptIsNotOverwritten();
    void failedWriteIsReported();

private:
    QString fileName() const { return m_folder->filePath(QStringLiteral("Pelorin.ini")); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProfile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestProfile::profileStandsInTheUsersConfigurationFolder()
{
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8()));
    QCOMPARE(Profile::usersFile(),
             m_folder->filePath(QStringLiteral("Korvex Systems/Pelorin.ini")));
}

void TestProfile::damageOfTheUsersFileIsNoticed()
{
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8()));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("Korvex Systems")));
    QVERIFY(putContent(Profile::usersFile(), "[Setup\nCOMPort=7\n"));
    const Profile profile;
    QCOMPARE(profile.fileName(), Profile::usersFile());
    QVERIFY(profile.isDamaged());
    QCOMPARE(profile.readInt(kPort, 1), 1);
}

void TestProfile::storedNumbersAreReadByTheNextRun()
{
    {
        Profile profile(fileName());
        QVERIFY(!profile.isDamaged());
        QCOMPARE(profile.readInt(kPort, 1), 1);
        QVERIFY(profile.writeInt(kPort, 97));
        QVERIFY(profile.writeInt(kLanguage, 16));
    }
    const Profile profile(fileName());
    QCOMPARE(profile.readInt(kPort, 1), 97);
    QCOMPARE(profile.readInt(kLanguage, 1), 16);
    QCOMPARE(contentOf(fileName()), QByteArray("[Setup]\nCOMPort=97\nLanguage=16\n"));
}

void TestProfile::valueThatIsNoNumberCountsAsAbsent_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("text") << QByteArray("COM7");
    QTest::newRow("fraction") << QByteArray("7.0");
    QTest::newRow("list") << QByteArray("7, 8");
    QTest::newRow("too large") << QByteArray("99999999999");
    QTest::newRow("another kind") << QByteArray("@Variant(x)");
}

void TestProfile::valueThatIsNoNumberCountsAsAbsent()
{
    QFETCH(QByteArray, value);

    QVERIFY(putContent(fileName(), "[Setup]\nCOMPort=" + value + "\nLanguage=2\n"));
    const Profile profile(fileName());
    QVERIFY(!profile.isDamaged());
    QCOMPARE(profile.readInt(kPort, 1), 1);
    QCOMPARE(profile.readInt(kLanguage, 1), 2);
}

void TestProfile::damagedFileCountsAsMissingAndIsKept_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("section cut") << QByteArray("[Setup\nCOMPort=7\n");
    QTest::newRow("zeros of a lost block") << QByteArray(100, '\0');
    QTest::newRow("another text") << QByteArray("COM7 is the sensor's port");
}

void TestProfile::damagedFileCountsAsMissingAndIsKept()
{
    QFETCH(QByteArray, content);

    QVERIFY(putContent(fileName(), content));
    QVERIFY(putContent(fileName() + QStringLiteral(".damaged"), "from an earlier damage"));
    Profile profile(fileName());
    QVERIFY(profile.isDamaged());
    QCOMPARE(profile.readInt(kPort, 1), 1);
    QCOMPARE(contentOf(fileName()), content);

    QVERIFY(profile.writeInt(kLanguage, 2));
    QVERIFY(profile.writeInt(kPort, 3));
    QCOMPARE(contentOf(fileName() + QStringLiteral(".damaged")), content);
    QCOMPARE(contentOf(fileName()), QByteArray("[Setup]\nCOMPort=3\nLanguage=2\n"));
    QVERIFY(!Profile(fileName()).isDamaged());
}

void TestProfile::damagedFileThatCannotBeKeptIsNotOverwritten()
{
    QVERIFY(putContent(fileName(), "[Setup\n"));
    QVERIFY(QDir(m_folder->path()).mkpath(fileName() + QStringLiteral(".damaged/inside")));
    Profile profile(fileName());
    QVERIFY(!profile.writeInt(kPort, 3));
    QCOMPARE(contentOf(fileName()), QByteArray("[Setup\n"));
}

void TestProfile::failedWriteIsReported()
{
    QVERIFY(putContent(fileName(), "[Setup]\nCOMPort=7\n"));
    Profile profile(fileName() + QStringLiteral("/below a file.ini"));
    QVERIFY(!profile.writeInt(kPort, 3));
}

QTEST_APPLESS_MAIN(TestProfile)
#include "TestProfile.moc"
