#include "Program.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace pelorin;

namespace {

constexpr int kToolTimeLimit = 120'000; ///< ms; packing takes seconds on an idle machine

/// Runs a command to its end. @return what it printed; null if it failed
QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kToolTimeLimit);
    const QByteArray output = process.readAll();
    if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return output + ' ';
    qWarning("%s failed: %s", qUtf8Printable(program), output.constData());
    return QByteArray();
}

/// The command of a group of the desktop entry, as the desktop starts it.
QString commandOf(const QByteArray& entry, const QByteArray& group)
{
    const auto start = entry.indexOf('[' + group + "]\n");
    const auto exec = entry.indexOf("\nExec=", start);
    return QString::fromUtf8(entry.mid(exec + 6, entry.indexOf('\n', exec + 6) - exec - 6));
}

} // namespace

/// The Debian package, unpacked into an empty folder.
class TestPackage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void packageNamesWhatIsLoadedAtRunTime();
    void desktopFilesAreValid();
    void everyLanguageHasItsTextsAndItsHelp();
    void defaultSettingsAndTheirLanguageAreFound();
    void menuStartsTheProgramOnASensor_data();
    void menuStartsTheProgramOnASensor();

private:
    [[nodiscard]] QString installed(const char* path) const
    {
        return m_root.filePath(QStringLiteral("usr/") + QLatin1String(path));
    }

    /// Starts a program with nothing in its environment but the user's folder and a screen.
    [[nodiscard]] std::unique_ptr<Program> start(const QString& program,
                                                 const QStringList& arguments = {}) const
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), m_home);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        return std::make_unique<Program>(installed("bin/") + program, arguments, environment);
    }

    QTemporaryDir m_root;
    QString m_home = m_root.filePath(QStringLiteral("home"));
    QString m_package;
};

void TestPackage::initTestCase()
{
    const QString folder = m_root.filePath(QStringLiteral("package"));
    QVERIFY(!outputOf(QStringLiteral(PELORIN_CPACK),
                      {QStringLiteral("--config"), QStringLiteral(PELORIN_CPACK_CONFIG),
                       QStringLiteral("-B"), folder})
                 .isNull());
    const QStringList packages = QDir(folder).entryList({QStringLiteral("*.deb")});
    QCOMPARE(packages.size(), 1);
    m_package = folder + QLatin1Char('/') + packages.front();
    QVERIFY(!outputOf(QStringLiteral("dpkg-deb"),
                      {QStringLiteral("--extract"), m_package, m_root.path()})
                 .isNull());
}

void TestPackage::init()
{
    QVERIFY(QDir(m_home).removeRecursively());
    QVERIFY(QDir().mkpath(m_home + QStringLiteral("/.config/pelorin")));
}

/// No program is linked against the screen's plug-ins and the toolkit's texts, so that nobody
/// finds out by himself that they are needed.
void TestPackage::packageNamesWhatIsLoadedAtRunTime()
{
    const QByteArray depends =
        outputOf(QStringLiteral("dpkg-deb"),
                 {QStringLiteral("--field"), m_package, QStringLiteral("Depends")});
    for (const char* package : {"qt6-qpa-plugins", "qt6-translations-l10n", "libqt6widgets6 (>="})
        QVERIFY2(depends.contains(package), package);
}

void TestPackage::desktopFilesAreValid()
{
    QVERIFY(!outputOf(QStringLiteral(PELORIN_DESKTOP_FILE_VALIDATE),
                      {installed("share/applications/pelorin.desktop")})
                 .isNull());
    QVERIFY(!outputOf(QStringLiteral(PELORIN_APPSTREAMCLI),
                      {QStringLiteral("validate-tree"), QStringLiteral("--no-net"), m_root.path()})
                 .isNull());
    const QByteArray entry = contentOf(installed("share/applications/pelorin.desktop"));
    QVERIFY(entry.contains("\nIcon=pelorin\n"));
    QVERIFY(contentOf(installed("share/icons/hicolor/scalable/apps/pelorin.svg")).contains("<svg"));
}

void TestPackage::everyLanguageHasItsTextsAndItsHelp()
{
    for (const char* code : {"1", "2", "4", "8", "16"}) {
        const QString name = QStringLiteral("/pelorin_") + QLatin1String(code);
        for (const char* kind : {".qm", ".qm.sha256"}) {
            QVERIFY2(
                QFile::exists(installed("share/pelorin/languages") + name + QLatin1String(kind)),
                code);
        }
        QVERIFY2(QFile::exists(installed("share/pelorin/help") + name + QStringLiteral(".html")),
                 code);
    }
}

/// COM0 is no port: the program gets as far as its first question, in its language.
void TestPackage::defaultSettingsAndTheirLanguageAreFound()
{
    const auto pelorin = start(QStringLiteral("pelorin"), {QStringLiteral("/CP:0")});
    QTRY_VERIFY_WITH_TIMEOUT(pelorin->catches(SIGTERM), kTimeLimit);
    QCOMPARE(pelorin->endBy(SIGTERM), 0);
    QCOMPARE(contentOf(m_home + QStringLiteral("/.config/Korvex Systems/Pelorin.ini")),
             QByteArray("[Setup]\nLanguage=1\n"));
}

void TestPackage::menuStartsTheProgramOnASensor_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QByteArray>("port");
    QTest::newRow("program, settings of its user")
        << QByteArray("Desktop Entry") << QStringLiteral("home/.config/pelorin/pelorin.reg")
        << QByteArray("COM1");
    QTest::newRow("demonstration")
        << QByteArray("Desktop Action Demonstration")
        << QStringLiteral("usr/share/pelorin/demo.reg") << QByteArray("COM99");
}

/// The sensor stands behind a terminal in the place of the demonstration's. It goes, and its
/// terminal with it, when its parameter 'D' is read: by the first page, which is shown when the
/// sensor is identified.
void TestPackage::menuStartsTheProgramOnASensor()
{
    QFETCH(QByteArray, group);
    QFETCH(QString, settings);
    QFETCH(QByteArray, port);

    const QString line = m_home + QStringLiteral("/sensor");
    QByteArray text = contentOf(installed("share/pelorin/demo.reg"));
    QVERIFY(text.contains("\"simulator:sensor?type=2\"=\"COM99\""));
    text.replace("\"simulator:sensor?type=2\"=\"COM99\"",
                 '"' + line.toUtf8() + "\"=\"" + port + '"');
    QFile file(m_root.filePath(settings));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
    file.close();
    const auto simulator = start(
        QStringLiteral("pelorin-simulator"),
        {QStringLiteral("--link"), line, QStringLiteral("--fault"), QStringLiteral("vanish:0@D")});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(line).isSymLink(), kTimeLimit);

    const QByteArray entry = contentOf(installed("share/applications/pelorin.desktop"));
    const auto pelorin = start(commandOf(entry, group));
    QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo(line).isSymLink(), kTimeLimit);
    QVERIFY(pelorin->isRunning());
    QCOMPARE(pelorin->endBy(SIGTERM), 0);
}

QTEST_GUILESS_MAIN(TestPackage)
#include "TestPackage.moc"
