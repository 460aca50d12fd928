#include "sensor/KeptFormats.h"

#include "support/FileSizeLimit.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kDevice = QStringLiteral("/dev/serial/by-id/usb-\u00C4 100%=;[1]-if00-port0");
const KeptFormat kFormat{kDevice, "4A\r\0", "4A0519", "4E0519", false};
const QString kFormer = QStringLiteral("former.ini");

} // namespace

class TestKeptFormats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<TestFolder>(); }
    void keptFormatOutlastsTheProgramUntilItIsDropped();
    void damagedFilesArePassedOver();
    void whatCannotBeStoredIsTold();
    void formerFileIsTakenOverAsFarAsItCanBeStored();

private:
    [[nodiscard]] QString kept() const { return m_folder->path(QStringLiteral("a/formats")); }
    [[nodiscard]] KeptFormats formats() const
    {
        return KeptFormats(kept(), m_folder->path(kFormer));
    }

    std::unique_ptr<TestFolder> m_folder;
};

void TestKeptFormats::keptFormatOutlastsTheProgramUntilItIsDropped()
{
    QVERIFY(formats().all().isEmpty());
    KeptFormat other = kFormat;
    other.streaming = "4E0618";
    other.device = QString(300, QLatin1Char('x'));
    KeptFormat changed = kFormat;
    changed.readBack = true;
    for (const KeptFormat& format : {kFormat, other, changed})
        QVERIFY(formats().keep(format).isDone());
    QCOMPARE(formats().all().size(), 2);
    QCOMPARE(formats().of(kDevice, kFormat.version), QList<KeptFormat>{changed});
    QVERIFY(formats().of(kDevice, "4B").isEmpty());
    for (int time = 0; time < 2; ++time)
        QVERIFY(formats().drop(changed).isDone());
    QCOMPARE(formats().all(), QList<KeptFormat>{other});

    // Whichever of its paths a device has, it is the same one.
    QVERIFY(m_folder->put(QStringLiteral("ttyUSB0"), {}));
    const QString link = m_folder->path(QStringLiteral("by-id"));
    QVERIFY(QFile::link(m_folder->path(QStringLiteral("ttyUSB0")), link));
    other.device = m_folder->path(QStringLiteral("ttyUSB0"));
    QVERIFY(formats().keep(other).isDone());
    QCOMPARE(formats().of(link, other.version), QList<KeptFormat>{other});
}

void TestKeptFormats::damagedFilesArePassedOver()
{
    QVERIFY(formats().keep(kFormat).isDone());
    const QDir folder(kept());
    const QString name = folder.entryList(QDir::Files).value(0);
    const QByteArray whole = contentOf(folder.filePath(name));
    QVERIFY(putContent(folder.filePath(QStringLiteral("copy.ini")), whole));
    QCOMPARE(formats().all(), QList<KeptFormat>{kFormat});
    for (const QByteArray& damaged :
         {QByteArray(), whole.left(60), QByteArray(whole).replace("4A0519", "4A051")}) {
        QVERIFY(putContent(folder.filePath(name), damaged));
        QVERIFY(formats().all().isEmpty());
        QCOMPARE(contentOf(folder.filePath(name)), damaged);
    }
}

void TestKeptFormats::whatCannotBeStoredIsTold()
{
    QVERIFY(formats().keep(kFormat).isDone());
    KeptFormat changed = kFormat;
    changed.readBack = true;
    {
        const FileSizeLimit limit(20);
        QCOMPARE(formats().keep(changed).systemError, EFBIG);
    }
    QCOMPARE(formats().all(), QList<KeptFormat>{kFormat});
    changed.own = "4A05";
    QCOMPARE(formats().keep(changed).systemError, EINVAL);
    QVERIFY(m_folder->put(kFormer, {}));
    const KeptFormats below(m_folder->path(kFormer + QStringLiteral("/formats")), QString());
    QCOMPARE(below.keep(kFormat).systemError, ENOTDIR);
}

void TestKeptFormats::formerFileIsTakenOverAsFarAsItCanBeStored()
{
    const TestRegistry ports("[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                             "\"simulator:sensor\"=\"COM97\"\n");
    const QByteArray unknown = "[COM98]\n334130313032\\4E0519=4A0519\n";
    const QByteArray known = "[COM33]\n3341\\4E0519=4A0519\n3341\\4E0618=4A0618\n\n"
                             "[COM97]\n4E0519=4A0519\n\n";
    QVERIFY(m_folder->put(kFormer, known + unknown));
    {
        const FileSizeLimit limit(20);
        QVERIFY(formats().all().isEmpty());
    }
    QCOMPARE(m_folder->content(kFormer), known + unknown);

    const QString first = QStringLiteral("/dev/ttyUSB0");
    KeptFormat newer{first, "3A", "4A0618", "4E0618", true};
    QVERIFY(KeptFormats(kept(), QString()).keep(newer).isDone());
    QCOMPARE(formats().all().size(), 3);
    const auto ofFirst = formats().of(first, "3A");
    QCOMPARE(ofFirst.size(), 2);
    QVERIFY(ofFirst.contains(newer));
    QVERIFY(ofFirst.contains({first, "3A", "4A0519", "4E0519", false}));
    QCOMPARE(formats().of(QStringLiteral("simulator:sensor"), {}).size(), 1);
    QCOMPARE(m_folder->content(kFormer), "[COM33]\n\n[COM97]\n\n" + unknown);

    QVERIFY(m_folder->put(kFormer, known));
    QCOMPARE(formats().all().size(), 3);
    QVERIFY(!QFileInfo::exists(m_folder->path(kFormer)));
}

QTEST_GUILESS_MAIN(TestKeptFormats)
#include "TestKeptFormats.moc"
