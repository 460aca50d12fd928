#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

namespace {

QString installedModule(int code)
{
    return programFolder() + QStringLiteral("/languages/pelorin_%1.qm").arg(code);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool putContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
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
    void unknownNumberHasNoText();
    void unusableModuleLeavesTheLanguageAsItWas_data();
    void unusableModuleLeavesTheLanguageAsItWas();
    void availableLanguagesAreThoseThatLoad();
    void nothingIsSpokenAfterShutDown();
    void helpFileIsFoundInTheInstallation_data();
    void helpFileIsFoundInTheInstallation();

private:
    /// An installation in a temporary folder, with English and German.
    QTemporaryDir m_installation;
    QString moduleIn(int code) const
    {
        return m_installation.filePath(QStringLiteral("languages/pelorin_%1.qm").arg(code));
    }
    QString installPath() const { return m_installation.path() + QLatin1Char('\\'); }
};

void TestLanguageManager::init()
{
    QVERIFY(QDir(m_installation.path()).mkpath(QStringLiteral("languages")));
    for (const int code : {1, 2})
        QVERIFY(putContent(moduleIn(code), contentOf(installedModule(code))));
}

void TestLanguageManager::everyLanguageSpeaksForProgramAndToolkit_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("toolkitCancel");

    QTest::newRow("English") << 1 << "Value"
                             << "Cancel";
    QTest::newRow("German") << 2 << "Wert"
                            << "Abbrechen";
    QTest::newRow("French") << 4 << "Valeur"
                            << "Annuler";
    QTest::newRow("Spanish") << 8 << "Valor"
                             << "Cancelar";
    QTest::newRow("Italian") << 16 << "Valore"
                             << "Annulla";
}

void TestLanguageManager::everyLanguageSpeaksForProgramAndToolkit()
{
    QFETCH(int, code);
    QFETCH(QString, value);
    QFETCH(QString, toolkitCancel);

    LanguageManager manager;
    manager.init(QStringLiteral("C:\\Program Files\\Pelorin\\"), QStringLiteral("Pelorin"));
    QCOMPARE(manager.loadLanguage(code), 1);
    QCOMPARE(manager.getCurrentLanguage(), code);
    QCOMPARE(languageString(112), value);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), toolkitCancel);
}

void TestLanguageManager::changeOfLanguageLeavesNothingOfTheFormer()
{
    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    QCOMPARE(manager.loadLanguage(2), 1);
    QCOMPARE(manager.loadLanguage(1), 1);
    QCOMPARE(languageString(112), QStringLiteral("Value"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
}

void TestLanguageManager::unknownNumberHasNoText()
{
    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    QCOMPARE(manager.loadLanguage(1), 1);
    for (const int number : {0, -1, 1, 199, 1011, 99999})
        QVERIFY2(languageString(number).isNull(), qPrintable(languageString(number)));
}

void TestLanguageManager::unusableModuleLeavesTheLanguageAsItWas_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("content");

    const QByteArray whole = contentOf(installedModule(2));
    QByteArray damagedInside = whole;
    damagedInside.replace(100, 64, QByteArray(64, '\0')); // in the index of the texts
    const QString toolkits = QLibraryInfo::path(QLibraryInfo::TranslationsPath);

    QTest::newRow("missing") << 4 << QByteArray();
    QTest::newRow("empty") << 2 << QByteArray("");
    QTest::newRow("not a module") << 2 << QByteArray(1000, 'x');
    QTest::newRow("cut short") << 2 << whole.left(whole.size() / 2);
    QTest::newRow("damaged inside") << 2 << damagedInside;
    QTest::newRow("texts of another program")
        << 2 << contentOf(toolkits + QStringLiteral("/qtbase_de.qm"));
    QTest::newRow("no language code") << 3 << whole;
    QTest::newRow("code zero") << 0 << whole;
}

void TestLanguageManager::unusableModuleLeavesTheLanguageAsItWas()
{
    QFETCH(int, code);
    QFETCH(QByteArray, content);

    if (!content.isNull())
        QVERIFY(putContent(moduleIn(code), content));
    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    QCOMPARE(manager.loadLanguage(1), 1);

    QCOMPARE(manager.loadLanguage(code), 0);
    QCOMPARE(manager.getCurrentLanguage(), 1);
    QCOMPARE(languageString(112), QStringLiteral("Value"));
}

void TestLanguageManager::availableLanguagesAreThoseThatLoad()
{
    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    QCOMPARE(manager.getAvailLanguages(), 1 | 2);
    QVERIFY(putContent(moduleIn(2), QByteArray("x")));
    QVERIFY(putContent(moduleIn(16), contentOf(installedModule(16))));
    QCOMPARE(manager.getAvailLanguages(), 1 | 16);
    QVERIFY(QFile::remove(moduleIn(16)));

    manager.init(QStringLiteral("/nowhere\\"), QStringLiteral("Pelorin"));
    QCOMPARE(manager.getAvailLanguages(), 0);
}

void TestLanguageManager::nothingIsSpokenAfterShutDown()
{
    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    QCOMPARE(manager.loadLanguage(2), 1);
    manager.shutDown();
    QCOMPARE(manager.getCurrentLanguage(), 0);
    QVERIFY(languageString(112).isNull());
}

void TestLanguageManager::helpFileIsFoundInTheInstallation_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("found");

    const QString folder = m_installation.path();
    QTest::newRow("none") << "" << QString();
    QTest::newRow("relative") << "help\\own.html" << folder + QStringLiteral("/help/own.html");
    QTest::newRow("absolute") << "/srv/help/own.html"
                              << "/srv/help/own.html";
    QTest::newRow("Windows") << "C:\\Help\\Pelorin.hlp"
                             << folder + QStringLiteral("/help/pelorin_4.html");
    QTest::newRow("Windows server")
        << "\\\\server\\Help\\Pelorin.hlp" << folder + QStringLiteral("/help/pelorin_4.html");
}

void TestLanguageManager::helpFileIsFoundInTheInstallation()
{
    QFETCH(QString, set);
    QFETCH(QString, found);

    LanguageManager manager;
    manager.init(installPath(), QStringLiteral("Pelorin"));
    manager.setHelpFile(2, QStringLiteral("other.html"));
    manager.setHelpFile(4, set);
    QCOMPARE(manager.helpFile(4), found);
}

QTEST_GUILESS_MAIN(TestLanguageManager)
#include "TestLanguageManager.moc"
