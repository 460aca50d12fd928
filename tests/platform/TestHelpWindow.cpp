#include "platform/ui/HelpWindow.h"

#include "platform/ui/Pictures.h"
#include "support/FileContent.h"
#include "support/NumberedTexts.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <cerrno>
#include <sys/resource.h>

using namespace pelorin;
using namespace pelorin::test;

class TestHelpWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fileIsShownFromItsAnchorOrItsStart();
    void fileThatCannotBeShownIsReportedAndLeavesTheWindow();
    void escapeClosesTheWindow();
    void picturesAreThereInEverySize();

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("help 1.html"));
    NumberedTexts m_texts{QStringLiteral("en")};
};

void TestHelpWindow::initTestCase()
{
    QCoreApplication::installTranslator(&m_texts);
    QVERIFY(putContent(m_file, "<html><head><meta charset=\"utf-8\"></head><body>" +
                                   QByteArray("<p>line</p>").repeated(300) +
                                   "<h2><a name=\"ports\">M\xc3\xbc</a></h2></body></html>"));
}

void TestHelpWindow::fileIsShownFromItsAnchorOrItsStart()
{
    HelpWindow window;
    QCOMPARE(window.showHelp(m_file, QStringLiteral("ports")).error, 0);

    auto* browser = window.findChild<QTextBrowser*>();
    QVERIFY(window.isVisible());
    QCOMPARE(window.windowTitle(), QStringLiteral("en 1014"));
    QVERIFY(browser->toPlainText().endsWith(QString::fromUtf8("M\xc3\xbc")));
    QTRY_VERIFY(browser->verticalScrollBar()->maximum() > 0);
    QTRY_COMPARE(browser->verticalScrollBar()->value(), browser->verticalScrollBar()->maximum());

    QCOMPARE(window.showHelp(m_file).error, 0);
    QTRY_COMPARE(browser->verticalScrollBar()->value(), 0);
}

void TestHelpWindow::fileThatCannotBeShownIsReportedAndLeavesTheWindow()
{
    HelpWindow window;
    for (const QString& path : {QString(), m_folder.path(), m_file + QStringLiteral("/below")}) {
        const HelpWindow::Failure failure = window.showHelp(path);
        QCOMPARE(failure.error, 1);
        QCOMPARE(failure.detail, ENOENT);
    }

    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    const HelpWindow::Failure failure = window.showHelp(m_file);
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(failure.error, 2);
    QCOMPARE(failure.detail, EMFILE);
    QVERIFY(!window.isVisible());
}

void TestHelpWindow::escapeClosesTheWindow()
{
    HelpWindow window;
    QCOMPARE(window.showHelp(m_file).error, 0);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

void TestHelpWindow::picturesAreThereInEverySize()
{
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        QCOMPARE(programIcon().pixmap(QSize(size, size), 1.0).size(), QSize(size, size));
    for (const auto& [name, size] :
         {std::pair("BMP_PELORIN_INFO", 16), std::pair("BMP_PELORIN_WRENCH", 16),
          std::pair("BMP_PELORIN_REDLED", 13), std::pair("BMP_PELORIN_GREENLED", 13),
          std::pair("BMP_PELORIN_GRAYLED", 13)}) {
        const QIcon icon = picture(QLatin1String(name));
        QCOMPARE(icon.pixmap(QSize(size, size), 1.0).size(), QSize(size, size));
        QCOMPARE(icon.pixmap(QSize(size, size), 2.0).size(), QSize(2 * size, 2 * size));
        QCOMPARE(icon.pixmap(QSize(size, size), 2.0).toImage().pixelColor(0, 0).alpha(), 0);
    }
}

QTEST_MAIN(TestHelpWindow)
#include "TestHelpWindow.moc"
