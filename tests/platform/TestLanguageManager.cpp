#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"
#include "support/FileContent.h"

#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kChecksum = QStringLiteral(".sha256");

QString moduleIn(const QString& folder, int code)
{
    return folder + QStringLiteral("/languages/pelorin_%1.qm").arg(code);
}

QByteArray installedModule(int code)
{
    return contentOf(moduleIn(programFolder(), code));
}

} // namespace

class TestLanguageManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyLanguageSpeaksForProgramAndToolkit_data();
    void everyLanguageSpeaksForProgramAndToolkit();
    void changeOfLanguageLeavesNothingOfTheFormer();
    void unusableModuleLeavesTheLanguageAsItWas_data();
    void unusableModuleLeavesTheLanguageAsItWas();
    void availableLanguagesAreThoseThatLoad();
    void helpFileIsFoundInTheInstallation_data();
    void helpFileIsFoundInTheInstallation();

private:
    QTemporaryDir m_installation; ///< with English and German
    std::unique_ptr<LanguageManager> m_manager;
};

void TestLanguageManager::init()
{
    for (const int code : {1, 2})
        QVERIFY(putContent(moduleIn(m_installation.path(), code), installedModule(code)));
    (void)QFile::remove(moduleIn(m_installation.path(), 2) + kChecksum); // of the row before
    m_manager = std::make_unique<LanguageManager>();
    m_manager->init(m_installation.path() + QLatin1Char('\\'), QStringLiteral("Pelorin"));
}

void TestLanguageManager::everyLanguageSpeaksForProgramAndToolkit_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("toolkitCancel");

    const auto row = [](const char* title, int code, const char* value, const char* cancel) {
        QTest::newRow(title) << code << QString::fromLatin1(value) << QString::fromLatin1(cancel);
    };
    row("English", 1, "Value", "Cancel");
    row("German", 2, "Wert", "Abbrechen");
    row("French", 4, "Valeur", "Annuler");
    row("Spanish", 8, "Valor", "Cancelar");
    row("Italian", 16, "Valore", "Annulla");
}

void TestLanguageManager::everyLanguageSpeaksForProgramAndToolkit()
{
    QFETCH(int, code);
    QFETCH(QString, value);
    QFETCH(QString, toolkitCancel);

    m_manager->init(QStringLiteral("C:\\Program Files\\Pelorin\\"), QStringLiteral("Pelorin"));
    QCOMPARE(m_manager->loadLanguage(code), 1);
    QCOMPARE(m_manager->getCurrentLanguage(), code);
    QCOMPARE(languageString(112), value);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), toolkitCancel);
    for (const int number : {0, -1, 1, 199, 1011, 99999})
        QVERIFY2(languageString(number).isNull(), qPrintable(languageString(number)));
}

void TestLanguageManager::changeOfLanguageLeavesNothingOfTheFormer()
{
    QCOMPARE(m_manager->loadLanguage(2), 1);
    QCOMPARE(m_manager->loadLanguage(1), 1);
    QCOMPARE(languageString(112), QStringLiteral("Value"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));

    m_manager->shutDown();
    QCOMPARE(m_manager->getCurrentLanguage(), 0);
    QVERIFY(languageString(112).isNull());
}

void TestLanguageManager::unusableModuleLeavesTheLanguageAsItWas_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("checksum");

    const QByteArray whole = installedModule(2);
    const QByteArray sum = contentOf(moduleIn(programFolder(), 2) + kChecksum);
    QByteArray oneByteOff = whole;
    oneByteOff[oneByteOff.size() / 2] ^= 1;
    QByteArray damagedInside = whole;
    damagedInside.replace(100, 64, QByteArray(64, '\0')); // in the index of the texts
    const QString toolkits = QLibraryInfo::path(QLibraryInfo::TranslationsPath);

    const auto row = [](const char* title, int code, const QByteArray& content,
                        const QByteArray& checksum = {}) {
        QTest::newRow(title) << code << content << checksum;
    };
    row("missing", 4, QByteArray());
    row("empty", 2, "");
    row("not a module", 2, QByteArray(1000, 'x'));
    row("cut short", 2, whole.left(whole.size() / 2));
    row("damaged inside", 2, damagedInside);
    row("texts of another program", 2, contentOf(toolkits + QStringLiteral("/qtbase_de.qm")));
    row("no language code", 3, whole);
    row("one byte off", 2, oneByteOff, sum);
    row("another module", 2, installedModule(1), sum);
    row("checksum lost", 2, whole, "");
}

void TestLanguageManager::unusableModuleLeavesTheLanguageAsItWas()
{
    QFETCH(int, code);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, checksum);

    if (!content.isNull())
        QVERIFY(putContent(moduleIn(m_installation.path(), code), content));
    if (!checksum.isNull())
        QVERIFY(putContent(moduleIn(m_installation.path(), code) + kChecksum, checksum));
    QCOMPARE(m_manager->loadLanguage(1), 1);
    QCOMPARE(m_manager->loadLanguage(code), 0);
    QCOMPARE(m_manager->getCurrentLanguage(), 1);
    QCOMPARE(languageString(112), QStringLiteral("Value"));
}

void TestLanguageManager::availableLanguagesAreThoseThatLoad()
{
    QCOMPARE(m_manager->getAvailLanguages(), 1 | 2);
    QVERIFY(putContent(moduleIn(m_installation.path(), 2), "x"));
    QVERIFY(putContent(moduleIn(m_installation.path(), 16), installedModule(16)));
    QCOMPARE(m_manager->getAvailLanguages(), 1 | 2); // looked for once
    m_manager->init(m_installation.path() + QLatin1Char('\\'), QStringLiteral("Pelorin"));
    QCOMPARE(m_manager->getAvailLanguages(), 1 | 16);

    m_manager->init(QStringLiteral("/nowhere\\"), QStringLiteral("Pelorin"));
    QCOMPARE(m_manager->getAvailLanguages(), 0);
}

void TestLanguageManager::helpFileIsFoundInTheInstallation_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("found");

    const QString help = m_installation.path() + QStringLiteral("/help/");
    const QString installed = help + QStringLiteral("pelorin_4.html");
    const QString absolute = QStringLiteral("/srv/help/own.html");
    QTest::newRow("none") << "" << QString();
    QTest::newRow("relative") << "help\\own.html" << help + QStringLiteral("own.html");
    QTest::newRow("absolute") << absolute << absolute;
    QTest::newRow("Windows") << "C:\\Help\\Pelorin.hlp" << installed;
    QTest::newRow("Windows server") << "\\\\server\\Help\\Pelorin.hlp" << installed;
}

void TestLanguageManager::helpFileIsFoundInTheInstallation()
{
    QFETCH(QString, set);
    QFETCH(QString, found);
    m_manager->setHelpFile(2, QStringLiteral("other.html"));
    m_manager->setHelpFile(4, set);
    QCOMPARE(m_manager->helpFile(4), found);
}

QTEST_GUILESS_MAIN(TestLanguageManager)
#include "TestLanguageManager.moc"
