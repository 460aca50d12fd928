#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"
#include "platform/ui/HelpWindow.h"
#include "support/Languages.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

#include <cerrno>
#include <tuple>

#include <sys/resource.h>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QList<int> kLanguages{1, 2, 4, 8, 16};

const QString kChapters = u"first connect port settings information position output offset factory "
                          u"backup safe log manual "
                          "compensation display keyboard troubleshooting"_s;

/// The captions in menus that are no titles as well: they alone mark a letter.
const QString kMarked =
    u"106 108 109 1730 1760 1900 193 194 195 196 197 198 200 201 202 203 204 205 206 207 208 209 "
    "2140 2142 2150"_s;

/// Sentences of windows that ask, advise or tell of no fault: the help's list of messages need not
/// have them. Nor those of the command line and of single values and log lines, below.
const QString kNoFaults =
    u"117 167 184 240 244 245 263 1102 1503 1610 1703 1706 1707 1714 1715 1716 1749 1750 1756 1758 "
    "1771 1774 1776 1785 1910 1911 1912 1926 1927 1928 1936 1941 1965 1973 1975 1977 2149 2152 "
    "2267 2269"_s;

/// Whether the help has to explain an English text.
bool tellsOfAFault(const QString& number, const QString& text)
{
    static const QStringList noFaults = kNoFaults.split(u' ');
    const int value = number.toInt();
    const bool isForWindows = value < 2000 || value > 2139 || value == 2111;
    return isForWindows && text.endsWith(u'.') && !text.endsWith(u"..."_s) && text.contains(u' ') &&
           !noFaults.contains(number);
}

/// What a pattern's first group matches in a text, in order.
QStringList captures(const QString& text, const QString& pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

/// The numbers of all texts, sorted.
QStringList modulesNumbers()
{
    const auto names = QString::fromUtf8(
        contentOf(QString::fromUtf8(PELORIN_SOURCE_DIR) + u"/src/platform/core/Strings.h"_s));
    QStringList numbers = captures(names, u"inline constexpr int k\\w+ = (\\d+);"_s);
    numbers.sort();
    return numbers.size() == names.count(u" = "_s) ? numbers : QStringList();
}

QString moduleOf(int code)
{
    return u"languages/pelorin_%1.qm"_s.arg(code);
}

QByteArray installedModule(int code)
{
    return contentOf(programFolder() + u'/' + moduleOf(code));
}

} // namespace

/// The language modules and help files, as their sources and as they are installed.
class TestLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsThereOnceInEveryLanguageWithItsArguments()
    {
        const QString source = QString::fromUtf8(PELORIN_SOURCE_DIR);
        const QStringList numbers = modulesNumbers();
        QVERIFY(numbers.size() > 100);
        QStringList english;
        QHash<QString, QString> said; // in all languages, by number
        for (const int code : kLanguages) {
            const Languages languages(code);
            const QString path = source + u"/resources/languages/pelorin_%1.ts"_s.arg(code);
            QStringList found = captures(QString::fromUtf8(contentOf(path)), u" id=\"(\\d+)\""_s);
            found.sort();
            QCOMPARE(found, numbers);
            QStringList arguments;
            QStringList marked;
            for (const QString& number : numbers) {
                const QString text = languageString(number.toInt());
                QVERIFY2(!text.trimmed().isEmpty() && captures(text, u"(%[^1-9])"_s).isEmpty(),
                         qPrintable(number));
                said[number] += text + u'\n';
                QStringList inText = captures(text, u"(%.)"_s);
                inText.sort();
                inText.removeDuplicates();
                arguments << number + inText.join(QString());
                if (text.contains(QRegularExpression(u"&\\S"_s)))
                    marked << number;
            }
            english = code == 1 ? arguments : english;
            QCOMPARE(arguments, english);
            QCOMPARE(marked.join(u' '), kMarked);
            for (const auto& [number, extension] :
                 {std::pair(191, "txt"), std::pair(212, "dat"), std::pair(257, "csv")}) {
                const QRegularExpression filter(
                    u"[^;] \\(\\*\\.%1\\);;[^;]+ \\(\\*\\)$"_s.arg(QLatin1String(extension)));
                QVERIFY2(languageString(number).contains(filter), extension);
            }
        }
        for (const QString& number : numbers) {
            const bool isGiven = number.toInt() < 1000;
            QVERIFY2(isGiven || said.keys(said[number]).size() == 1, qPrintable(number));
        }
    }

    void everyLanguageSpeaksForProgramAndToolkit()
    {
        LanguageManager manager;
        manager.init(u"C:\\Program Files\\Pelorin\\"_s, u"Pelorin"_s);
        for (const auto& [code, value, cancel] :
             {std::tuple(2, "Wert", "Abbrechen"), std::tuple(4, "Valeur", "Annuler"),
              std::tuple(8, "Valor", "Cancelar"), std::tuple(16, "Valore", "Annulla"),
              std::tuple(1, "Value", "Cancel")}) { // nothing of the former one is left
            QCOMPARE(manager.loadLanguage(code), 1);
            QCOMPARE(manager.getCurrentLanguage(), code);
            QCOMPARE(languageString(112), QLatin1String(value));
            QCOMPARE(qApp->translate("QPlatformTheme", "Cancel"), QLatin1String(cancel));
        }
        for (const int number : {0, -1, 1, 199, 1011, 99999})
            QVERIFY2(languageString(number).isNull(), qPrintable(languageString(number)));
        manager.shutDown();
        QVERIFY(manager.getCurrentLanguage() == 0 && languageString(112).isNull());
    }

    void onlyWholeModulesAreAvailableAndLoaded()
    {
        const TestFolder installation;
        const QByteArray whole = installedModule(2);
        LanguageManager manager;
        const auto available = [&] {
            manager.init(installation.path({}) + u'\\', u"Pelorin"_s);
            return manager.getAvailLanguages();
        };
        QCOMPARE(available(), 0);
        for (const int code : {1, 2, 3, 16})
            QVERIFY(installation.put(moduleOf(code), installedModule(qMax(code & ~1, 1))));
        QCOMPARE(manager.getAvailLanguages(), 0); // looked for once
        QCOMPARE(available(), 1 | 2 | 16);
        QCOMPARE(manager.loadLanguage(1), 1);
        for (const int code : {3, 4}) // no language, one without a module
            QCOMPARE(manager.loadLanguage(code), 0);

        const auto isRefused = [&](const QByteArray& content) {
            return installation.put(moduleOf(2), content) && available() == (1 | 16) &&
                   manager.loadLanguage(2) == 0 && manager.getCurrentLanguage() == 1 &&
                   languageString(112) == u"Value";
        };
        QVERIFY(isRefused(QByteArray(1000, 'x')));
        QVERIFY(isRefused(whole.left(whole.size() / 2)));
        QVERIFY(isRefused(QByteArray(whole).replace(100, 64, QByteArray(64, '\0')))); // lost texts
        const QString toolkits = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
        QVERIFY(isRefused(contentOf(toolkits + u"/qtbase_de.qm"_s)));

        const QString checksum = moduleOf(2) + u".sha256"_s;
        QVERIFY(installation.put(checksum, contentOf(programFolder() + u'/' + checksum)));
        QVERIFY(isRefused(QByteArray(whole).replace(whole.size() - 1, 1, "x")));
        QVERIFY(installation.put(checksum, {}));
        QVERIFY(isRefused(whole));
    }

    void helpFileIsFoundInTheInstallation()
    {
        LanguageManager manager;
        manager.init(u"/srv/pelorin\\"_s, u"Pelorin"_s);
        const QString installed = u"/srv/pelorin/help/pelorin_4.html"_s;
        for (const auto& [set, found] :
             {std::pair(QString(), QString()), std::pair(u"/own.html"_s, u"/own.html"_s),
              std::pair(u"help\\own.html"_s, u"/srv/pelorin/help/own.html"_s),
              std::pair(u"C:\\Help\\Pelorin.hlp"_s, installed),
              std::pair(u"\\\\server\\Pelorin.hlp"_s, installed)}) {
            manager.setHelpFile(4, set);
            QCOMPARE(manager.helpFile(4), found);
        }
    }

    void helpIsWholeAndQuotesTheProgramInEveryLanguage()
    {
        QStringList messages;
        for (const int code : kLanguages) {
            Languages languages(code);
            languages.setHelpFile(code, u"help\\pelorin_%1.html"_s.arg(code));
            const QString path = languages.helpFile(code);
            const QString content = QString::fromUtf8(contentOf(path));
            const QStringList chapters = captures(content, u"<h2><a name=\"([a-z]+)\">"_s);
            QCOMPARE(chapters.join(u' '), kChapters);
            const QStringList anchors = captures(content, u"name=\"([^\"]*)\""_s);
            const QStringList links = captures(content, u"href=\"([^\"]*)\""_s);
            for (const QString& link : links)
                QVERIFY2(link.startsWith(u'#') && anchors.contains(link.mid(1)), qPrintable(link));

            const QStringList numbers = captures(content, u"<a name=\"message-([0-9]+)\">"_s);
            messages = code == 1 ? numbers : messages;
            QVERIFY(links.size() > 14 && numbers.size() > 20);
            QCOMPARE(numbers, messages);
            for (const QString& number : code == 1 ? modulesNumbers() : QStringList()) {
                QVERIFY2(numbers.contains(number) ||
                             !tellsOfAFault(number, languageString(number.toInt())),
                         qPrintable(number));
            }
            for (const QString& number : numbers) {
                QString text = languageString(number.toInt()).toHtmlEscaped();
                text.replace(u"&quot;"_s, u"\""_s).replace(QRegularExpression(u"%[123]"_s), u"…"_s);
                const QString quoted =
                    u"<dt><a name=\"message-%1\"></a><b>%2</b></dt>"_s.arg(number, text);
                QVERIFY2(content.simplified().contains(quoted.simplified()), qPrintable(quoted));
            }

            HelpWindow window;
            auto* browser = window.findChild<QTextBrowser*>();
            for (const QString& chapter : chapters) {
                QCOMPARE(window.showHelp(path, chapter).error, 0);
                const QString heading =
                    captures(content, u"name=\"%1\"></a>([^<]+)<"_s.arg(chapter)).value(0, u"-"_s);
                const auto top = [&] {
                    return browser->cursorForPosition({20, 12}).block().text();
                };
                QVERIFY2(waitFor([&] { return top() == heading; }), qPrintable(heading));
                browser->verticalScrollBar()->setValue(10);
                (void)window.showHelp(path, chapter);
                QCOMPARE(top(), heading);
            }
            QCOMPARE(browser->documentTitle(), languageString(1014));
            QCOMPARE(window.windowTitle(), languageString(1014));

            // A site's own file may lack an anchor; the chapter shown before must not stand for it.
            for (const QString& anchor : {u"missing"_s, QString()}) {
                (void)window.showHelp(path, u"log"_s);
                QCOMPARE(window.showHelp(path, anchor).error, 0);
                QCOMPARE(browser->verticalScrollBar()->value(), 0);
            }
            QVERIFY(waitFor([&window] { return window.isActiveWindow(); }));
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        }
    }

    void helpFindsTextsAndGoesBack()
    {
        Languages languages(1);
        languages.setHelpFile(1, u"help\\pelorin_1.html"_s);
        HelpWindow window;
        QCOMPARE(window.showHelp(languages.helpFile(1)).error, 0);
        QVERIFY(waitFor([&window] { return window.isActiveWindow(); }));
        auto* browser = window.findChild<QTextBrowser*>();
        auto* edit = window.findChild<QLineEdit*>(u"helpFind"_s);
        const auto result = [&] {
            return window.findChild<QLabel*>(u"helpFindResult"_s)->text() + u'|' +
                   browser->textCursor().selectedText();
        };
        const auto place = [&] { return browser->textCursor().selectionStart(); };
        QTest::keyClick(browser, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(waitFor([edit] { return edit->hasFocus(); }));
        QTest::keyClicks(edit, u"NOT restarted"_s);
        QCOMPARE(result(), u"|not restarted"_s);
        const int first = place();
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(place() > first && result() == u"|not restarted");
        QTest::keyClick(edit, Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(place(), first);
        QTest::keyClick(edit, Qt::Key_F3, Qt::ShiftModifier); // from the other side
        QVERIFY(place() > first);
        QTest::keyClick(edit, Qt::Key_F3);
        QCOMPARE(place(), first);
        QTest::keyClicks(edit, u"!"_s);
        QCOMPARE(result(), u"Not found|"_s);

        auto* back = window.findChild<QToolButton*>(u"helpBack"_s);
        QVERIFY(!back->isEnabled());
        QCOMPARE(window.showHelp(languages.helpFile(1), u"log"_s).error, 0);
        QVERIFY(waitFor([browser] { return browser->verticalScrollBar()->value() > 0; }));
        QTest::mouseClick(back, Qt::LeftButton);
        QCOMPARE(browser->source().fragment(), QString());
        QTest::mouseClick(window.findChild<QToolButton*>(u"helpForward"_s), Qt::LeftButton);
        QCOMPARE(browser->source().fragment(), u"log"_s);
    }

    void helpThatCannotBeShownIsReportedAndLeavesTheWindow()
    {
        const QString file = programFolder() + u'/' + moduleOf(1);
        HelpWindow window;
        const auto fails = [&window](const QString& path, int error, int detail) {
            const HelpWindow::Failure failure = window.showHelp(path);
            return failure.error == error && failure.detail == detail;
        };
        for (const QString& path : {QString(), programFolder(), file + u"/below"_s})
            QVERIFY2(fails(path, 1, ENOENT), qPrintable(path));
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
        const rlimit none{0, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        const bool isReported = fails(file, 2, EMFILE);
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
        QVERIFY(isReported && !window.isVisible());
    }
};

QTEST_MAIN(TestLanguages)
#include "TestLanguages.moc"
