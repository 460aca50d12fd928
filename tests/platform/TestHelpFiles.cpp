#include "platform/core/LanguageStrings.h"
#include "platform/ui/HelpWindow.h"
#include "support/Languages.h"

#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <initializer_list>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// What a pattern's first group matches in a text, in order.
QStringList captures(const QString& text, const char* pattern)
{
    QStringList found;
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

} // namespace

/// The help files as they are installed, shown in the program's window.
class TestHelpFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageAndDialogHasAnAnchorInEveryLanguage_data() { addLanguages(); }
    void everyPageAndDialogHasAnAnchorInEveryLanguage();
    void linksLeadToAnchors_data() { addLanguages(); }
    void linksLeadToAnchors();
    void chapterIsShownAtTheTopOfTheWindow_data() { addLanguages(); }
    void chapterIsShownAtTheTopOfTheWindow();
    void shownWindowMovesToAnotherChapter();
    void messagesAreQuotedAsTheProgramShowsThem_data() { addLanguages(); }
    void messagesAreQuotedAsTheProgramShowsThem();

private:
    static void addLanguages()
    {
        QTest::addColumn<int>("code");
        for (const int code : {1, 2, 4, 8, 16})
            QTest::addRow("language %d", code) << code;
    }

    static QString pathOf(Languages& languages, int code)
    {
        languages.setHelpFile(code, QStringLiteral("help\\pelorin_%1.html").arg(code));
        return languages.helpFile(code);
    }

    static QString contentOf(int code)
    {
        Languages languages(code);
        QFile file(pathOf(languages, code));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

void TestHelpFiles::everyPageAndDialogHasAnAnchorInEveryLanguage()
{
    QFETCH(int, code);
    const QString content = contentOf(code);
    QCOMPARE(captures(content, "<h2><a name=\"([a-z]+)\">").join(QLatin1Char(' ')),
             QStringLiteral("connect port information position output offset factory backup log "
                            "manual compensation display keyboard troubleshooting"));
    const char* const message = "<a name=\"(message-[0-9]+)\">";
    QVERIFY(captures(content, message).size() > 20);
    QCOMPARE(captures(content, message), captures(contentOf(1), message));
}

void TestHelpFiles::linksLeadToAnchors()
{
    QFETCH(int, code);
    const QString content = contentOf(code);
    const QStringList anchors = captures(content, "name=\"([^\"]*)\"");
    const QStringList links = captures(content, "href=\"([^\"]*)\"");
    QVERIFY(links.size() > 14);
    for (const QString& link : links)
        QVERIFY2(link.startsWith(QLatin1Char('#')) && anchors.contains(link.mid(1)),
                 qUtf8Printable(link));
}

void TestHelpFiles::chapterIsShownAtTheTopOfTheWindow()
{
    QFETCH(int, code);
    Languages languages(code);
    HelpWindow window;
    auto* browser = window.findChild<QTextBrowser*>();
    const QString path = pathOf(languages, code);
    const QString content = contentOf(code);
    for (const QString& anchor : captures(content, "<h2><a name=\"([a-z]+)\">")) {
        QCOMPARE(window.showHelp(path, anchor).error, 0);
        const QString heading =
            captures(content, qPrintable(QStringLiteral("name=\"%1\"></a>([^<]*)<").arg(anchor)))
                .value(0);
        QVERIFY(!heading.isEmpty());
        QTRY_COMPARE(browser->cursorForPosition(QPoint(20, 12)).block().text(), heading);
    }
    QCOMPARE(browser->documentTitle(), languageString(1014));
}

/// A site's own file may lack an anchor; the chapter shown before must not stand for it.
void TestHelpFiles::shownWindowMovesToAnotherChapter()
{
    Languages languages(1);
    const QString path = pathOf(languages, 1);
    HelpWindow window;
    QScrollBar* bar = window.findChild<QTextBrowser*>()->verticalScrollBar();
    const auto placeOf = [&](const char* anchor) {
        return window.showHelp(path, QLatin1String(anchor)).error == 0 ? bar->value() : -1;
    };
    QVERIFY(placeOf("log") >= 0);
    QTRY_VERIFY(bar->value() > 0);
    const int log = bar->value();
    QVERIFY(placeOf("position") < log);
    QCOMPARE(placeOf("log"), log);
    bar->setValue(10);
    QCOMPARE(placeOf("log"), log);
    QCOMPARE(placeOf("missing"), 0);
    QCOMPARE(placeOf("log"), log);
    QCOMPARE(placeOf(""), 0);
}

void TestHelpFiles::messagesAreQuotedAsTheProgramShowsThem()
{
    QFETCH(int, code);
    const Languages languages(code);
    const QString content = contentOf(code).simplified();
    for (const QString& number : captures(content, "<a name=\"message-([0-9]+)\">")) {
        QString text = languageString(number.toInt()).toHtmlEscaped();
        for (const char* argument : {"%1", "%2", "%3"})
            text.replace(QLatin1String(argument), QStringLiteral("…"));
        text.replace(QLatin1String("&quot;"), QLatin1String("\""));
        const QString quoted =
            QStringLiteral("<dt><a name=\"message-%1\"></a><b>%2</b></dt>").arg(number, text);
        QVERIFY2(content.contains(quoted.simplified()), qUtf8Printable(quoted));
    }
}

QTEST_MAIN(TestHelpFiles)
#include "TestHelpFiles.moc"
