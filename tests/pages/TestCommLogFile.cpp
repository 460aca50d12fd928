#include "pages/CommLogFile.h"

#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;

using Outcome = CommLogSaving::Outcome;

class TestCommLogFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everyLineEndsWithCarriageReturnAndLineFeed();
    void emptyLogGivesAnEmptyFile();
    void manyLinesAreWrittenWhole();
    void olderFileIsReplacedWhole();
    void fileThatCannotBeOpenedTellsTheSystemsError_data();
    void fileThatCannotBeOpenedTellsTheSystemsError();
    void writeErrorHalfWayKeepsTheOlderFile_data();
    void writeErrorHalfWayKeepsTheOlderFile();

private:
    [[nodiscard]] QString path() const { return m_folder->filePath(QStringLiteral("log.txt")); }
    [[nodiscard]] bool save() const
    {
        return saveCommLog(path(), m_log->snapshot()).outcome == Outcome::Done;
    }
    void putFile(const QByteArray& content) const;
    [[nodiscard]] QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CommLog> m_log;
};

void TestCommLogFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_log = std::make_unique<CommLog>();
}

void TestCommLogFile::putFile(const QByteArray& content) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray TestCommLogFile::content() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void TestCommLogFile::everyLineEndsWithCarriageReturnAndLineFeed()
{
    m_log->append(QStringLiteral("TX: [56][Get][TERM]"));
    m_log->append(QString());
    m_log->append(QStringLiteral("Ger\u00E4t fehlt"));
    QVERIFY(save());
    QCOMPARE(content(), QByteArray("TX: [56][Get][TERM]\r\n\r\nGer\xC3\xA4t fehlt\r\n"));
}

void TestCommLogFile::emptyLogGivesAnEmptyFile()
{
    QVERIFY(save());
    QCOMPARE(content(), QByteArray());
}

void TestCommLogFile::manyLinesAreWrittenWhole()
{
    QByteArray expected;
    for (int line = 0; line < 50'000; ++line) {
        m_log->append(QStringLiteral("RX: [%1]").arg(line));
        expected += "RX: [" + QByteArray::number(line) + "]\r\n";
    }
    QVERIFY(save());
    QCOMPARE(content(), expected);
}

void TestCommLogFile::olderFileIsReplacedWhole()
{
    putFile("an older and longer file\r\n");
    m_log->append(QStringLiteral("RX: "));
    QVERIFY(save());
    QCOMPARE(content(), QByteArray("RX: \r\n"));
}

void TestCommLogFile::fileThatCannotBeOpenedTellsTheSystemsError_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("error");

    QTest::newRow("below a plain file") << QStringLiteral("log.txt/new.txt") << ENOTDIR;
    QTest::newRow("missing folder") << QStringLiteral("none/new.txt") << ENOENT;
    QTest::newRow("a folder") << QStringLiteral(".") << EINVAL;
    QTest::newRow("a device") << QStringLiteral("/dev/null") << EINVAL;
}

void TestCommLogFile::fileThatCannotBeOpenedTellsTheSystemsError()
{
    QFETCH(QString, path);
    QFETCH(int, error);
    putFile("older\r\n");

    const auto saving =
        saveCommLog(QDir(m_folder->path()).absoluteFilePath(path), m_log->snapshot());
    QCOMPARE(saving.outcome, Outcome::NotOpened);
    QCOMPARE(saving.systemError, error);
    QCOMPARE(content(), QByteArray("older\r\n"));
}

void TestCommLogFile::writeErrorHalfWayKeepsTheOlderFile_data()
{
    QTest::addColumn<int>("limit");
    QTest::newRow("first byte") << 0;
    QTest::newRow("in the middle") << 300'000;
    QTest::newRow("last byte") << 499'999;
}

void TestCommLogFile::writeErrorHalfWayKeepsTheOlderFile()
{
    QFETCH(int, limit);
    putFile("older\r\n");
    for (int line = 0; line < 50'000; ++line)
        m_log->append(QStringLiteral("RX: [41]"));

    CommLogSaving saving;
    {
        const FileSizeLimit full(static_cast<rlim_t>(limit));
        saving = saveCommLog(path(), m_log->snapshot());
    }
    QCOMPARE(saving.outcome, Outcome::NotWritten);
    QCOMPARE(saving.reason(), QStringLiteral("File too large"));
    QCOMPARE(content(), QByteArray("older\r\n"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("log.txt")});
    QVERIFY(save());
    QCOMPARE(content().size(), 500'000);
}

QTEST_APPLESS_MAIN(TestCommLogFile)
#include "TestCommLogFile.moc"
