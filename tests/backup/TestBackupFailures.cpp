#include "backup/BackupRig.h"
#include "support/FileSizeLimit.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>

using namespace pelorin;
using namespace pelorin::test;

class TestBackupFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void unfitFileWritesNothing_data();
    void unfitFileWritesNothing();
    void withoutAnIdentifiedSensorNothingBegins();
    void linkLostDuringTheFileDialogAbandons_data();
    void linkLostDuringTheFileDialogAbandons();
    void fileThatCannotBeCreatedIsReported();
    void failedReadKeepsAnOlderFileAndLeavesANewOneEmpty_data();
    void failedReadKeepsAnOlderFileAndLeavesANewOneEmpty();
    void fullDiskIsReportedWithPathAndReason();
    void linkLostDuringARestoreNamesWhatWasWritten_data();
    void linkLostDuringARestoreNamesWhatWasWritten();
    void linkLostDuringABackupEndsIt();

private:
    [[nodiscard]] QString path(const char* name = "backup.dat") const
    {
        return m_folder->filePath(QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestBackupFailures::unfitFileWritesNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const QByteArray good = backupOf(0);
    const QString unfit = QStringLiteral("The backup file does not hold every parameter that the "
                                         "connected sensor needs. Nothing was written.\n");
    const QString foreign = QStringLiteral("This is not a backup file of Pelorin.");
    const auto edited = [&good](const char* before, const char* after) {
        return QByteArray(good).replace(before, after);
    };
    QTest::newRow("empty file") << QByteArray() << foreign;
    QTest::newRow("other file") << QByteArray("[Setup]\nLanguage=1\n") << foreign;
    QTest::newRow("marker alone") << good.left(27)
                                  << unfit + QStringLiteral("Missing: D, A, L, U, S, P, Z, N");
    QTest::newRow("cut in the middle")
        << good.left(good.indexOf("4E:")) << unfit + QStringLiteral("Missing: U, S, P, Z, N");
    QTest::newRow("value emptied")
        << edited("55:0000U0", "55:") << unfit + QStringLiteral("Missing: U");
    QTest::newRow("value too long")
        << edited("55:0000U0", "55:0123456789") << unfit + QStringLiteral("Not usable: U");
    QTest::newRow("control character")
        << edited("55:0000U0", "55:0000\t0") << unfit + QStringLiteral("Not usable: U");
    QTest::newRow("several") << edited("55:0000U0", "55:0000\t0")
                                    .replace("4C:0000L0\r\n", "")
                                    .replace("53:", "53:1234567890")
                             << unfit + QStringLiteral("Missing: L\nNot usable: U, S");
    QTest::newRow("last of doubled lines counts") << good + "44:0123456789\n"
                                                  << unfit + QStringLiteral("Not usable: D");
}

void TestBackupFailures::unfitFileWritesNothing()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    BackupRig rig(0);
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), text));
    QCOMPARE(rig.run(Mode::Restore, path()), QStringList(message));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
}

void TestBackupFailures::withoutAnIdentifiedSensorNothingBegins()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    rig.link().forgetIdentification();
    QCOMPARE(rig.run(Mode::Backup, path()),
             QStringList(QStringLiteral("The sensor is not identified. Connect it before you save "
                                        "its parameters.")));
    QCOMPARE(rig.run(Mode::Restore, path()),
             QStringList(QStringLiteral("The sensor is not identified. Nothing was written.")));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
    QCOMPARE(contentOf(path()), backupOf(2));
}

void TestBackupFailures::linkLostDuringTheFileDialogAbandons_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::newRow("backup") << Mode::Backup;
    QTest::newRow("restore") << Mode::Restore;
}

void TestBackupFailures::linkLostDuringTheFileDialogAbandons()
{
    QFETCH(Mode, mode);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    const QStringList texts = rig.run(mode, path(), [&rig] {
        rig.sensor().vanish();
        (void)rig.link().requestRead('D');
        QTRY_COMPARE(rig.link().lossCount(), 1);
        rig.sensor().comeBack();
        QTRY_COMPARE(rig.link().linkFailed(), 0);
    });
    QCOMPARE(texts.last(), QStringLiteral("Operation abandoned: the connection to the sensor was "
                                          "lost."));
    QCOMPARE(contentOf(path()), backupOf(2));
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    const Frames frames = rig.sensor().takeReceivedFrames();
    QVERIFY(std::none_of(frames.begin(), frames.end(),
                         [](const std::string& frame) { return frame[1] == 'N'; }));
}

void TestBackupFailures::fileThatCannotBeCreatedIsReported()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path("plain"), "older"));
    const QString below = path("plain/backup.dat");
    QCOMPARE(rig.run(Mode::Backup, below),
             QStringList(
                 QStringLiteral("The file %1 could not be opened (system error 20).").arg(below)));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
    QCOMPARE(contentOf(path("plain")), QByteArray("older"));
}

void TestBackupFailures::failedReadKeepsAnOlderFileAndLeavesANewOneEmpty_data()
{
    QTest::addColumn<bool>("silent");
    QTest::addColumn<QString>("message");
    QTest::newRow("silent sensor")
        << true << QStringLiteral("Parameter 85 could not be read from the sensor.");
    QTest::newRow("control characters")
        << false
        << QStringLiteral("Parameter U holds control characters, which a backup file cannot keep. "
                          "No backup was saved.");
}

void TestBackupFailures::failedReadKeepsAnOlderFileAndLeavesANewOneEmpty()
{
    QFETCH(bool, silent);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    if (silent)
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "U");
    else
        rig.sensor().setParameter('U', "28\n000");
    QVERIFY(create(path("older.dat"), "older"));
    QCOMPARE(rig.run(Mode::Backup, path("new.dat")), QStringList(message));
    QCOMPARE(rig.run(Mode::Backup, path("older.dat")).last(), message); // after "replace it?"
    QCOMPARE(contentOf(path("new.dat")), QByteArray());
    QCOMPARE(contentOf(path("older.dat")), QByteArray("older"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    QVERIFY(!rig.window().isBusy());
}

void TestBackupFailures::fullDiskIsReportedWithPathAndReason()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path("older.dat"), "older"));
    const FileSizeLimit limit(40);
    for (const char* name : {"new.dat", "older.dat"})
        QCOMPARE(
            rig.run(Mode::Backup, path(name)).last(),
            QStringLiteral("The file %1 could not be written: File too large").arg(path(name)));
    QCOMPARE(contentOf(path("older.dat")), QByteArray("older"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("older.dat")));
}

void TestBackupFailures::linkLostDuringARestoreNamesWhatWasWritten_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("written");
    QTest::newRow("first write") << QByteArray("DN") << int('D') << QString();
    QTest::newRow("in the middle") << QByteArray("SN") << int('S') << QStringLiteral("D, A, L, U");
    QTest::newRow("last command") << QByteArray("EN") << int('E')
                                  << QStringLiteral("D, A, L, U, S, P, Z, N, M, J, K, O");
}

void TestBackupFailures::linkLostDuringARestoreNamesWhatWasWritten()
{
    QFETCH(QByteArray, command);
    QFETCH(int, id);
    QFETCH(QString, written);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(create(path(), backupOf(2)));
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, command.toStdString());
    const QStringList texts = rig.run(Mode::Restore, path());
    QCOMPARE(texts.size(), 1);
    const QStringList lines = texts.first().split(QLatin1Char('\n'));
    QCOMPARE(lines.value(0),
             QStringLiteral("Parameter %1 could not be written to the sensor.").arg(id));
    QCOMPARE(lines.value(1), QStringLiteral("Operation abandoned: the connection to the sensor "
                                            "was lost."));
    QVERIFY(lines.value(2).startsWith(
        written.isEmpty() ? QStringLiteral("No parameter had been written before.")
                          : QStringLiteral("Parameters written before: %1. ").arg(written)));
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    if (id != 'E')
        QCOMPARE(rig.sensor().parameter('A'), std::string("00000005")); // nothing took effect
}

void TestBackupFailures::linkLostDuringABackupEndsIt()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "N");
    QCOMPARE(rig.run(Mode::Backup, path()),
             QStringList(QStringLiteral("Parameter 78 could not be read from the sensor.\n"
                                        "Operation abandoned: the connection to the sensor was "
                                        "lost.")));
    QCOMPARE(contentOf(path()), QByteArray());
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
}

QTEST_MAIN(TestBackupFailures)
#include "TestBackupFailures.moc"
