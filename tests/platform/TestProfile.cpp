#include "platform/core/Profile.h"
#include "support/FileContent.h"

#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kPort = QStringLiteral("COMPort");
const QString kLanguage = QStringLiteral("Language");

} // namespace

class TestProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void storedNumbersAreReadByTheNextRun();
    void valueThatIsNoNumberCountsAsAbsent_data();
    void valueThatIsNoNumberCountsAsAbsent();
    void damagedFileCountsAsMissingAndIsKept_data();
    void damagedFileCountsAsMissingAndIsKept();
    void damagedFileThatCannotBeKeptIsNotOverwritten();
    void failedWriteIsReported();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file; ///< the profile of the user
    QString m_copy; ///< of a damaged one
};

void TestProfile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_folder->path().toUtf8()));
    m_file = m_folder->filePath(QStringLiteral("Korvex Systems/Pelorin.ini"));
    m_copy = m_file + QStringLiteral(".damaged");
}

void TestProfile::storedNumbersAreReadByTheNextRun()
{
    {
        Profile profile;
        QCOMPARE(profile.fileName(), m_file);
        QVERIFY(!profile.isDamaged());
        QCOMPARE(profile.readInt(kPort, 1), 1);
        QVERIFY(profile.writeInt(kPort, 97));
        QVERIFY(profile.writeInt(kLanguage, 16));
    }
    QCOMPARE(Profile().readInt(kPort, 1), 97);
    QCOMPARE(contentOf(m_file), QByteArray("[Setup]\nCOMPort=97\nLanguage=16\n"));
}

void TestProfile::valueThatIsNoNumberCountsAsAbsent_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char* value : {"", "COM7", "7.0", "7, 8", "99999999999", "@Variant(x)"})
        QTest::addRow("'%s'", value) << QByteArray(value);
}

void TestProfile::valueThatIsNoNumberCountsAsAbsent()
{
    QFETCH(QByteArray, value);
    QVERIFY(putContent(m_file, "[Setup]\nCOMPort=" + value + "\nLanguage=2\n"));
    const Profile profile;
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
    QVERIFY(putContent(m_file, content));
    QVERIFY(putContent(m_copy, "from an earlier damage"));
    Profile profile;
    QVERIFY(profile.isDamaged());
    QCOMPARE(profile.readInt(kPort, 1), 1);
    QCOMPARE(contentOf(m_file), content);

    QVERIFY(profile.writeInt(kLanguage, 2));
    QVERIFY(profile.writeInt(kPort, 3));
    QCOMPARE(contentOf(m_copy), content);
    QCOMPARE(contentOf(m_file), QByteArray("[Setup]\nCOMPort=3\nLanguage=2\n"));
    QVERIFY(!Profile().isDamaged());
}

void TestProfile::damagedFileThatCannotBeKeptIsNotOverwritten()
{
    QVERIFY(putContent(m_file, "[Setup\n"));
    QVERIFY(QDir().mkpath(m_copy + QStringLiteral("/inside")));
    QVERIFY(!Profile().writeInt(kPort, 3));
    QCOMPARE(contentOf(m_file), QByteArray("[Setup\n"));
}

void TestProfile::failedWriteIsReported()
{
    QVERIFY(putContent(m_file, "[Setup]\nCOMPort=7\n"));
    QVERIFY(!Profile(m_file + QStringLiteral("/below a file.ini")).writeInt(kPort, 3));
}

QTEST_APPLESS_MAIN(TestProfile)
#include "TestProfile.moc"
