#include "platform/core/Profile.h"

#include "support/FileContent.h"

#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

#include <sys/resource.h>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kPort = QStringLiteral("COMPort");
const QString kLanguage = QStringLiteral("Language");

/// As long as this lives, this process can open no more files.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        (void)getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        (void)setrlimit(RLIMIT_NOFILE, &none);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { (void)setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace

class TestProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void storedNumbersAreReadByTheNextRun();
    void allElseInTheFileIsKept();
    void valueThatIsNoNumberCountsAsAbsent();
    void damagedFileCountsAsMissingAndIsKept();
    void unreadableFileIsNeitherDamagedNorTouched();

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
    Profile profile;
    QCOMPARE(profile.fileName(), m_file);
    QVERIFY(!profile.isDamaged() && profile.unreadable().isDone());
    QCOMPARE(profile.readInt(kPort, 1), 1);
    QVERIFY(profile.write({}).isDone());
    QVERIFY(!QFileInfo::exists(m_file));
    QVERIFY(profile.write({{kLanguage, 16}, {kPort, 97}}).isDone());
    QCOMPARE(Profile().readInt(kPort, 1), 97);
    QCOMPARE(contentOf(m_file), QByteArray("[Setup]\nCOMPort=97\nLanguage=16\n"));
}

void TestProfile::allElseInTheFileIsKept()
{
    for (const auto& [before, after] : std::initializer_list<std::pair<QByteArray, QByteArray>>{
             {"; mine\r\n\r\n[Setup]\r\n Language = \"2\" \r\nsome "
              "text\r\nZoom=1\r\n\r\n[Other]\r\n"
              "COMPort=9",
              "; mine\r\n\r\n[Setup]\r\nCOMPort=3\r\n Language = \"2\" \r\nsome text\r\nZoom=1\r\n"
              "\r\n[Other]\r\nCOMPort=9\n"},
             {"[Other]\nA=1\n", "[Other]\nA=1\n\n[Setup]\nCOMPort=3\n"},
             {"[Setup]\nCOMPort=1\nCOMPort=2\n", "[Setup]\nCOMPort=1\nCOMPort=3\n"},
             {"\xEF\xBB\xBF[Setup]\nB=1\n", "\xEF\xBB\xBF[Setup]\nB=1\nCOMPort=3\n"}}) {
        QVERIFY(putContent(m_file, before));
        QVERIFY(Profile().write({{kPort, 3}}).isDone());
        QCOMPARE(contentOf(m_file), after);
        QCOMPARE(Profile().readInt(kPort, 1), 3);
    }
}

void TestProfile::valueThatIsNoNumberCountsAsAbsent()
{
    for (const char* value : {"", "COM7", "7.0", "7, 8", "99999999999", "@Variant(x)"}) {
        QVERIFY(putContent(m_file, QByteArray("[Setup]\nCOMPort=") + value + "\nLanguage=2\n"));
        const Profile profile;
        QVERIFY(!profile.isDamaged());
        QCOMPARE(profile.readInt(kPort, 1), 1);
        QCOMPARE(profile.readInt(kLanguage, 1), 2);
    }
}

void TestProfile::damagedFileCountsAsMissingAndIsKept()
{
    for (const QByteArray& content : {QByteArray("[Setup\nCOMPort=7\n"), QByteArray(100, '\0'),
                                      QByteArray("COM7 is the sensor's port")}) {
        QVERIFY(putContent(m_file, content));
        QVERIFY(putContent(m_copy, "from an earlier damage"));
        Profile profile;
        QVERIFY(profile.isDamaged());
        QCOMPARE(profile.readInt(kPort, 1), 1);
        QCOMPARE(contentOf(m_file), content);

        QVERIFY(profile.write({{kPort, 3}}).isDone());
        QCOMPARE(contentOf(m_copy), content);
        QCOMPARE(contentOf(m_file), QByteArray("[Setup]\nCOMPort=3\n"));
    }
    QVERIFY(QFile::remove(m_copy));
    QVERIFY(QDir().mkpath(m_copy)); // cannot be kept, so it is not overwritten
    QVERIFY(putContent(m_file, "[Setup\n"));
    QCOMPARE(Profile().write({{kPort, 3}}).systemError, EISDIR);
    QCOMPARE(contentOf(m_file), QByteArray("[Setup\n"));
}

void TestProfile::unreadableFileIsNeitherDamagedNorTouched()
{
    QVERIFY(putContent(m_file, "[Setup]\nCOMPort=7\n"));
    {
        const NoMoreFiles limit;
        Profile profile;
        QVERIFY(!profile.isDamaged());
        QCOMPARE(profile.unreadable().systemError, EMFILE);
        QCOMPARE(profile.write({{kPort, 3}}).systemError, EMFILE);
    }
    QCOMPARE(contentOf(m_file), QByteArray("[Setup]\nCOMPort=7\n"));
    QVERIFY(!QFileInfo::exists(m_copy));
}

QTEST_APPLESS_MAIN(TestProfile)
#include "TestProfile.moc"
