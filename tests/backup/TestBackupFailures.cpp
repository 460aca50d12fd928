#include "backup/BackupRig.h"
#include "support/FileSizeLimit.h"

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kLost = QStringLiteral("Operation abandoned: the connection to the sensor was lost.");
const QString kOlder = QStringLiteral("older.dat");
const QString kNew = QStringLiteral("new.dat");

} // namespace

class TestBackupFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unfitFileWritesNothing();
    void withoutAnIdentifiedSensorNothingBegins();
    void linkLostDuringTheFileDialogAbandons();
    void failedReadKeepsAnOlderFileAndLeavesANewOneEmpty();
    void fileThatCannotBeSavedIsReportedWithPathAndReason();
    void lostLinkIsToldAndWhatWasWritten_data();
    void lostLinkIsToldAndWhatWasWritten();
};

void TestBackupFailures::unfitFileWritesNothing()
{
    BackupRig rig(0);
    QVERIFY(rig.startConnected());
    QByteArray edited = backupOf(0);
    edited.replace("55:0000U0", "55:0000\t0").replace("4C:", "4F:").replace("53:", "53:1234");
    const QString unfit = QStringLiteral("The backup file does not hold every parameter that the "
                                         "connected sensor needs. Nothing was written.\n");
    for (const auto& [text, message] : std::initializer_list<std::pair<QByteArray, QString>>{
             {"[Setup]\nLanguage=1\n", QStringLiteral("This is not a backup file of Pelorin.")},
             {edited.left(27), unfit + QStringLiteral("Missing: D, A, L, U, S, P, Z, N")},
             {edited, unfit + QStringLiteral("Missing: L\nNot usable: U, S")},
             {backupOf(0) + "44:0123456789\n", unfit + QStringLiteral("Not usable: D")}}) {
        QVERIFY(rig.folder.put(rig.file, text));
        QCOMPARE(rig.run(Mode::Restore), QStringList(message));
        QCOMPARE(rig.frames(), QString());
    }
}

void TestBackupFailures::withoutAnIdentifiedSensorNothingBegins()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.folder.put(rig.file, backupOf(2)));
    rig.link().forgetIdentification();
    QCOMPARE(rig.run(Mode::Backup),
             QStringList(QStringLiteral("The sensor is not identified. Connect it before you save "
                                        "its parameters.")));
    QCOMPARE(rig.run(Mode::Restore),
             QStringList(QStringLiteral("The sensor is not identified. Nothing was written.")));
    QCOMPARE(rig.frames(), QString());
    QCOMPARE(rig.content(), backupOf(2));
}

void TestBackupFailures::linkLostDuringTheFileDialogAbandons()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.folder.put(rig.file, backupOf(2)));
    int losses = 0;
    for (const Mode mode : {Mode::Backup, Mode::Restore}) {
        const QStringList texts = rig.run(mode, rig.file, [&](QFileDialog&) {
            ++losses;
            rig.sensor().vanish();
            (void)rig.link().requestRead('D');
            QTRY_COMPARE(rig.link().lossCount(), losses);
            rig.sensor().comeBack();
            QTRY_COMPARE(rig.link().linkFailed(), 0);
        });
        QCOMPARE(texts.last(), kLost);
        QCOMPARE(rig.content(), backupOf(2));
        QTRY_VERIFY(rig.link().isIdentified());
        QVERIFY(rig.waitIdle());
        QVERIFY(!rig.frames().contains(QLatin1String("NN"))); // nothing was restored
    }
}

void TestBackupFailures::failedReadKeepsAnOlderFileAndLeavesANewOneEmpty()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    rig.sensor().setParameter('U', "28\n000");
    QVERIFY(rig.folder.put(kOlder, "older"));
    for (const char* message : {"Parameter U holds control characters, which a backup file cannot "
                                "keep. No backup was saved.",
                                "Parameter 85 could not be read from the sensor."}) {
        for (const QString& name : {kNew, kOlder}) // the last is told after "replace it?"
            QCOMPARE(rig.run(Mode::Backup, name).last(), QLatin1String(message));
        QCOMPARE(rig.folder.content(kNew), QByteArray());
        QCOMPARE(rig.folder.content(kOlder), QByteArray("older"));
        QCOMPARE(rig.folder.names(), QStringLiteral("new.dat older.dat"));
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "U");
    }
}

void TestBackupFailures::fileThatCannotBeSavedIsReportedWithPathAndReason()
{
    BackupRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.folder.put(kOlder, "older"));
    const QString below = QStringLiteral("older.dat/new.dat");
    QCOMPARE(rig.run(Mode::Backup, below),
             QStringList(QStringLiteral("The file %1 could not be opened (system error 20).")
                             .arg(rig.folder.path(below))));
    QCOMPARE(rig.frames(), QString());

    const FileSizeLimit limit(40);
    for (const QString& name : {kNew, kOlder})
        QCOMPARE(rig.run(Mode::Backup, name).last(),
                 QStringLiteral("The file %1 could not be written: File too large")
                     .arg(rig.folder.path(name)));
    QCOMPARE(rig.folder.content(kOlder), QByteArray("older"));
    QCOMPARE(rig.folder.names(), kOlder);
}

void TestBackupFailures::lostLinkIsToldAndWhatWasWritten_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QByteArray>("lostAt");
    QTest::addColumn<QString>("message");
    const auto restore = [](const char* lostAt, int id, const char* written) {
        const QString failure =
            QStringLiteral("Parameter %1 could not be written to the sensor.\n").arg(id);
        QTest::newRow(lostAt) << Mode::Restore << QByteArray(lostAt)
                              << failure + kLost + QLatin1Char('\n') + QLatin1String(written);
    };
    restore("DN", 68, "No parameter had been written before.");
    restore("SN", 83, "Parameters written before: D, A, L, U. ");
    restore("EN", 69, "Parameters written before: D, A, L, U, S, P, Z, N, M, J, K, O. ");
    QTest::newRow("backup") << Mode::Backup << QByteArray("NA")
                            << QStringLiteral("Parameter 78 could not be read from the sensor.\n") +
                                   kLost;
}

void TestBackupFailures::lostLinkIsToldAndWhatWasWritten()
{
    QFETCH(Mode, mode);
    QFETCH(QByteArray, lostAt);
    QFETCH(QString, message);
    BackupRig rig;
    QVERIFY(rig.startConnected());
    if (mode == Mode::Restore)
        QVERIFY(rig.folder.put(rig.file, backupOf(2)));
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, lostAt.toStdString());
    const QStringList texts = rig.run(mode);
    QCOMPARE(texts.size(), 1);
    QCOMPARE(texts.first().left(message.size()), message);
    if (mode == Mode::Backup)
        QCOMPARE(rig.content(), QByteArray());
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    if (lostAt != "EN")
        QCOMPARE(rig.sensor().parameter('A'), std::string("00000005")); // nothing took effect
}

QTEST_MAIN(TestBackupFailures)
#include "TestBackupFailures.moc"
