#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"
#include "platform/ui/HelpWindow.h"
#include "support/Languages.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QLibraryInfo>
#include <QMap>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QXmlStreamReader>

#include <cerrno>
#include <memory>

#include <sys/resource.h>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QList<int> kLanguages{1, 2, 4, 8, 16};
const QString kSource = QString::fromUtf8(PELORIN_SOURCE_DIR);
const QString kChecksum = u".sha256"_s;

const QString kChapters =
    u"connect port information position output offset factory backup log manual "
    "compensation display keyboard troubleshooting"_s;

/// The captions in menus that are no titles as well: they alone mark a letter.
const QString kMarked =
    u"106 108 109 193 194 195 196 197 198 200 201 202 203 204 205 206 207 208 209"_s;

/// What a pattern's first group matches in a text, in order.
QStringList captures(const QString& text, const QString& pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

/// The finished texts of a language module's source by number, all that stand there for one.
QMultiMap<QString, QString> textsOf(int code)
{
    QMultiMap<QString, QString> texts;
    QXmlStreamReader xml(contentOf(kSource + u"/resources/languages/pelorin_%1.ts"_s.arg(code)));
    QString number;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"message")
            number = xml.attributes().value(u"id"_s).toString();
        else if (xml.name() == u"translation" && !xml.attributes().hasAttribute(u"type"_s))
            texts.insert(number, xml.readElementText());
    }
    return texts;
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
    void init()
    {
        m_installation = std::make_unique<TestFolder>();
        for (const int code : {1, 2})
            QVERIFY(m_installation->put(moduleOf(code), installedModule(code)));
        m_manager = std::make_unique<LanguageManager>();
        m_manager->init(m_installation->path({}) + u'\\', u"Pelorin"_s);
    }

    void everyTextIsThereOnceInEveryLanguageWithItsArguments()
    {
        const auto names =
            QString::fromUtf8(contentOf(kSource + u"/src/platform/core/Strings.h"_s));
        QStringList numbers = captures(names, u"inline constexpr int k\\w+ = (\\d+);"_s);
        numbers.sort();
        QVERIFY(numbers.size() > 100 && numbers.size() == names.count(u" = "_s));
        const auto english = textsOf(1);
        const auto argumentsOf = [](const QString& text) {
            const QStringList found = captures(text, u"(%[1-9])"_s);
            return QSet<QString>(found.begin(), found.end());
        };
        for (const int code : kLanguages) {
            const auto texts = textsOf(code);
            QCOMPARE(texts.keys(), numbers);
            QStringList marked;
            for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
                QVERIFY2(!text->trimmed().isEmpty() && captures(*text, u"(%[^1-9])"_s).isEmpty(),
                         qPrintable(*text));
                QVERIFY2(argumentsOf(*text) == argumentsOf(english.value(text.key())),
                         qPrintable(*text));
                if (!captures(*text, u"&(\\S)"_s).isEmpty())
                    marked << text.key();
            }
            QCOMPARE(marked.join(u' '), kMarked);
            for (const auto& [number, extension] :
                 {std::pair("191", "txt"), std::pair("212", "dat"), std::pair("257", "csv")}) {
                const QString filter =
                    u"[^;] \\(\\*\\.%1\\);;[^;]+ \\(\\*\\)$"_s.arg(QLatin1String(extension));
                QVERIFY2(texts.value(QLatin1String(number)).contains(QRegularExpression(filter)),
                         extension);
            }
        }
    }

    void everyLanguageSpeaksForProgramAndToolkit()
    {
        m_manager->init(u"C:\\Program Files\\Pelorin\\"_s, u"Pelorin"_s);
        for (const auto& [code, value, cancel] :
             {std::tuple(2, "Wert", "Abbrechen"), std::tuple(4, "Valeur", "Annuler"),
              std::tuple(8, "Valor", "Cancelar"), std::tuple(16, "Valore", "Annulla"),
              std::tuple(1, "Value", "Cancel")}) { // nothing of the former one is left
            QCOMPARE(m_manager->loadLanguage(code), 1);
            QCOMPARE(m_manager->getCurrentLanguage(), code);
            QCOMPARE(languageString(112), QLatin1String(value));
            QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"),
                     QLatin1String(cancel));
        }
        for (const int number : {0, -1, 1, 199, 1011, 99999})
            QVERIFY2(languageString(number).isNull(), qPrintable(languageString(number)));
        m_manager->shutDown();
        QCOMPARE(m_manager->getCurrentLanguage(), 0);
        QVERIFY(languageString(112).isNull());
    }

    void unusableModuleLeavesTheLanguageAsItWas()
    {
        struct Row
        {
            const char* name;
            QByteArray content;
            QByteArray checksum;
        };
        const QByteArray whole = installedModule(2);
        const QByteArray sum = contentOf(programFolder() + u'/' + moduleOf(2) + kChecksum);
        QByteArray oneByteOff = whole;
        oneByteOff[oneByteOff.size() / 2] ^= 1;
        QByteArray damagedInside = whole;
        damagedInside.replace(100, 64, QByteArray(64, '\0')); // in the index of the texts
        const QString toolkits = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
        const std::vector<Row> rows{
            {"not a module", QByteArray(1000, 'x'), {}},
            {"cut short", whole.left(whole.size() / 2), {}},
            {"damaged inside", damagedInside, {}},
            {"another program's", contentOf(toolkits + u"/qtbase_de.qm"_s), {}},
            {"one byte off", oneByteOff, sum},
            {"checksum lost", whole, ""}};
        QVERIFY(m_installation->put(moduleOf(3), whole));
        QCOMPARE(m_manager->loadLanguage(1), 1);
        for (const int code : {3, 4}) // none, one without a module
            QCOMPARE(m_manager->loadLanguage(code), 0);
        forEachRow(rows, [this](const Row& row) {
            QVERIFY(m_installation->put(moduleOf(2), row.content));
            if (!row.checksum.isNull())
                QVERIFY(m_installation->put(moduleOf(2) + kChecksum, row.checksum));
            QCOMPARE(m_manager->loadLanguage(2), 0);
            QCOMPARE(m_manager->getCurrentLanguage(), 1);
            QCOMPARE(languageString(112), u"Value"_s);
        });
    }

    void availableLanguagesAreThoseThatLoad()
    {
        QCOMPARE(m_manager->getAvailLanguages(), 1 | 2);
        QVERIFY(m_installation->put(moduleOf(2), "x"));
        QVERIFY(m_installation->put(moduleOf(16), installedModule(16)));
        QCOMPARE(m_manager->getAvailLanguages(), 1 | 2); // looked for once
        m_manager->init(m_installation->path({}) + u'\\', u"Pelorin"_s);
        QCOMPARE(m_manager->getAvailLanguages(), 1 | 16);
        m_manager->init(u"/nowhere\\"_s, u"Pelorin"_s);
        QCOMPARE(m_manager->getAvailLanguages(), 0);
    }

    void helpFileIsFoundInTheInstallation()
    {
        const QString help = m_installation->path(u"help/"_s);
        for (const auto& [set, found] :
             {std::pair(QString(), QString()), std::pair(u"help\\own.html"_s, help + u"own.html"_s),
              std::pair(u"/srv/own.html"_s, u"/srv/own.html"_s),
              std::pair(u"C:\\Help\\Pelorin.hlp"_s, help + u"pelorin_4.html"_s),
              std::pair(u"\\\\server\\Pelorin.hlp"_s, help + u"pelorin_4.html"_s)}) {
            m_manager->setHelpFile(4, set);
            QCOMPARE(m_manager->helpFile(4), found);
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
            QVERIFY(links.size() > 14);
            for (const QString& link : links)
                QVERIFY2(link.startsWith(u'#') && anchors.contains(link.mid(1)), qPrintable(link));

            const QStringList numbers = captures(content, u"<a name=\"message-([0-9]+)\">"_s);
            messages = code == 1 ? numbers : messages;
            QVERIFY(numbers.size() > 20);
            QCOMPARE(numbers, messages);
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
                    captures(content, u"name=\"%1\"></a>([^<]+)<"_s.arg(chapter)).value(0);
                const auto top = [&] {
                    return browser->cursorForPosition({20, 12}).block().text();
                };
                QVERIFY2(!heading.isEmpty() && waitFor([&] { return top() == heading; }),
                         qPrintable(chapter));
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
            QVERIFY(QTest::qWaitForWindowActive(&window));
            QTest::keyClick(&window, Qt::Key_Escape);
            QVERIFY(!window.isVisible());
        }
    }

    void helpThatCannotBeShownIsReportedAndLeavesTheWindow()
    {
        const QString file = m_installation->path(moduleOf(1));
        HelpWindow window;
        for (const QString& path : {QString(), m_installation->path({}), file + u"/below"_s}) {
            const HelpWindow::Failure missing = window.showHelp(path);
            QCOMPARE(missing.error, 1);
            QCOMPARE(missing.detail, ENOENT);
        }
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
        const rlimit none{0, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        const HelpWindow::Failure unreadable = window.showHelp(file);
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
        QCOMPARE(unreadable.error, 2);
        QCOMPARE(unreadable.detail, EMFILE);
        QVERIFY(!window.isVisible());
    }

private:
    std::unique_ptr<TestFolder> m_installation; ///< with English and German
    std::unique_ptr<LanguageManager> m_manager;
};

QTEST_MAIN(TestLanguages)
#include "TestLanguages.moc"
