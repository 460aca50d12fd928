#include "support/FileContent.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

namespace {

struct Text
{
    QString text;
    bool finished = false;
    int count = 0; ///< how often the number stands in the module
};

using Texts = QMap<int, Text>;

constexpr const char* kSource = PELORIN_SOURCE_DIR;

/// The texts of a language module's source.
Texts readTexts(int code)
{
    Texts texts;
    const QString path =
        QString::fromUtf8(kSource) + QStringLiteral("/resources/languages/pelorin_%1.ts").arg(code);
    QXmlStreamReader xml(pelorin::test::contentOf(path));
    int number = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("message")) {
            number = xml.attributes().value(QLatin1String("id")).toInt();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            const int count = texts.value(number).count + 1;
            texts.insert(number, {xml.readElementText(), finished, count});
        }
    }
    return xml.hasError() ? Texts() : texts;
}

QSet<QString> matches(const QString& text, const char* pattern, int group = 0)
{
    QSet<QString> found;
    auto match = QRegularExpression(QString::fromLatin1(pattern)).globalMatch(text);
    while (match.hasNext())
        found.insert(match.next().captured(group));
    return found;
}

QChar mnemonicOf(const QString& caption)
{
    const auto mark = caption.indexOf(QLatin1Char('&'));
    return mark < 0 || mark + 1 >= caption.size() ? QChar() : caption.at(mark + 1).toUpper();
}

/// The captions of the menu bar and of each menu, by number.
const QList<QList<int>> kMenus = {
    {108, 194, 209, 200, 203, 106}, {107, 109}, {193, 246}, {204, 205, 206, 207, 208},
    {195, 196, 197, 198, 251},      {201, 202}};

} // namespace

/// Walks the sources of the language modules.
class TestLanguageTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageHasTheEnglishNumbersAndArguments_data() { addLanguages(); }
    void everyLanguageHasTheEnglishNumbersAndArguments();
    void mnemonicsStandInMenusAloneAndAreUniqueThere_data() { addLanguages(); }
    void mnemonicsStandInMenusAloneAndAreUniqueThere();
    void fileFiltersOfferTheExtensionAndAllFiles_data() { addLanguages(); }
    void fileFiltersOfferTheExtensionAndAllFiles();
    void everyTextHasOneName();

private:
    static void addLanguages()
    {
        QTest::addColumn<int>("code");
        for (const int code : {1, 2, 4, 8, 16})
            QTest::addRow("language %d", code) << code;
    }
};

void TestLanguageTexts::everyLanguageHasTheEnglishNumbersAndArguments()
{
    QFETCH(int, code);
    const Texts english = readTexts(1);
    const Texts texts = readTexts(code);
    QVERIFY(english.size() > 100);
    QCOMPARE(texts.keys(), english.keys());

    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const QByteArray where = QByteArray::number(it.key()) + ": " + it->text.toUtf8();
        QVERIFY2(it->count == 1, where.constData());
        QVERIFY2(it->finished, where.constData());
        QVERIFY2(!it->text.trimmed().isEmpty(), where.constData());
        QVERIFY2(matches(it->text, "%[0-9L]+") == matches(english[it.key()].text, "%[0-9L]+"),
                 where.constData());
        QVERIFY2(matches(it->text, "%[^0-9]").isEmpty(), where.constData());
    }
}

void TestLanguageTexts::mnemonicsStandInMenusAloneAndAreUniqueThere()
{
    QFETCH(int, code);
    const Texts texts = readTexts(code);
    QVERIFY(texts.size() > 100);
    QSet<int> captions;
    for (const auto& menu : kMenus) {
        QSet<QChar> taken;
        for (const int number : menu) {
            const QChar mnemonic = mnemonicOf(texts[number].text);
            QVERIFY2(mnemonic.isNull() || !taken.contains(mnemonic),
                     qPrintable(texts[number].text));
            taken.insert(mnemonic);
            captions.insert(number);
        }
    }
    captions.subtract({107, 246, 251}); // also titles, where the mark would show
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        QVERIFY2(captions.contains(it.key()) != mnemonicOf(it->text).isNull(),
                 qPrintable(it->text));
    }
}

void TestLanguageTexts::fileFiltersOfferTheExtensionAndAllFiles()
{
    QFETCH(int, code);
    const Texts texts = readTexts(code);
    for (const auto& [number, extension] :
         {std::pair(191, "txt"), std::pair(212, "dat"), std::pair(257, "csv")}) {
        const auto filters = texts[number].text.split(QStringLiteral(";;"));
        QCOMPARE(filters.size(), 2);
        QVERIFY2(filters[0].endsWith(QStringLiteral(" (*.%1)").arg(QLatin1String(extension))),
                 qPrintable(filters[0]));
        QVERIFY2(filters[1].endsWith(QStringLiteral(" (*)")), qPrintable(filters[1]));
    }
}

void TestLanguageTexts::everyTextHasOneName()
{
    const QString path =
        QString::fromUtf8(kSource) + QStringLiteral("/src/platform/core/Strings.h");
    const QString content = QString::fromUtf8(pelorin::test::contentOf(path));
    const auto named = matches(content, "inline constexpr int k\\w+ = (\\d+);", 1);
    QSet<QString> numbers;
    for (const int number : readTexts(1).keys())
        numbers.insert(QString::number(number));
    QCOMPARE(named, numbers);
    QCOMPARE(content.count(QStringLiteral(" = ")), numbers.size());
}

QTEST_APPLESS_MAIN(TestLanguageTexts)
#include "TestLanguageTexts.moc"
