#include "platform/core/LanguageManager.h"

#include "platform/core/LanguageNumbers.h"
#include "platform/core/SettingsLocation.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

struct Language
{
    int code;
    const char* locale;
};

constexpr Language kLanguages[] = {{1, "en"}, {2, "de"}, {4, "fr"}, {8, "es"}, {16, "it"}};

const Language* findLanguage(int code)
{
    const auto* const found =
        std::find_if(std::begin(kLanguages), std::end(kLanguages),
                     [code](const Language& language) { return language.code == code; });
    return found == std::end(kLanguages) ? nullptr : found;
}

/// Whether a module is the one that was built. The toolkit trusts the offsets in a module, and
/// crashes on one that is damaged there. A site's own module has no checksum beside it.
bool isAsBuilt(const QString& path, const QByteArray& content)
{
    QFile file(path + QStringLiteral(".sha256"));
    if (!file.exists())
        return true;
    const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
    return file.open(QIODevice::ReadOnly) && file.readAll().simplified().startsWith(sum + ' ');
}

/// A module that is damaged inside still loads, but has lost texts.
bool isComplete(const QTranslator& module)
{
    return std::all_of(
        std::begin(kLanguageNumbers), std::end(kLanguageNumbers), [&module](int number) {
            return !module.translate("", QByteArray::number(number).constData()).isEmpty();
        });
}

} // namespace

LanguageManager::~LanguageManager()
{
    shutDown();
}

void LanguageManager::init(const QString& installPath, const QString& applicationName)
{
    m_folder = installationFolder(installPath);
    m_moduleName = applicationName.toLower();
    m_available.reset();
}

int LanguageManager::loadLanguage(int code)
{
    auto module = loadModule(code);
    if (!module)
        return 0;

    const QString locale = QLatin1String(findLanguage(code)->locale);
    auto toolkitTexts = std::make_unique<QTranslator>();
    const bool translated = toolkitTexts->load(QStringLiteral("qtbase_") + locale,
                                               QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (translated)
        QCoreApplication::installTranslator(toolkitTexts.get());
    QCoreApplication::installTranslator(&module->texts);

    // The former language goes after the new one has come, so that no text is ever missing.
    std::swap(m_toolkitTexts, toolkitTexts);
    std::swap(m_module, module);
    m_currentLanguage = code;
    return 1;
}

int LanguageManager::getAvailLanguages() const
{
    if (!m_available) {
        m_available = 0;
        for (const Language& language : kLanguages) {
            if (loadModule(language.code))
                *m_available |= language.code;
        }
    }
    return *m_available;
}

void LanguageManager::setHelpFile(int code, const QString& file)
{
    m_helpFiles.insert(code, file);
}

QString LanguageManager::helpFile(int code) const
{
    QString file = m_helpFiles.value(code);
    if (file.isEmpty())
        return QString();
    if (isWindowsPath(file))
        file = QStringLiteral("help/%1_%2.html").arg(m_moduleName, QString::number(code));
    file.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return QDir::cleanPath(QDir(m_folder).absoluteFilePath(file));
}

void LanguageManager::shutDown()
{
    m_module.reset();
    m_toolkitTexts.reset();
    m_currentLanguage = 0;
}

std::unique_ptr<LanguageManager::Module> LanguageManager::loadModule(int code) const
{
    if (!findLanguage(code))
        return nullptr;
    const QString path =
        QStringLiteral("%1/languages/%2_%3.qm").arg(m_folder, m_moduleName, QString::number(code));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    auto module = std::make_unique<Module>();
    module->content = file.readAll();
    if (!isAsBuilt(path, module->content))
        return nullptr;
    const auto* const bytes = reinterpret_cast<const uchar*>(module->content.constData());
    const bool loaded = module->texts.load(bytes, static_cast<int>(module->content.size()));
    return loaded && isComplete(module->texts) ? std::move(module) : nullptr;
}

} // namespace pelorin
