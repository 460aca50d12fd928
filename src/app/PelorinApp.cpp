#include "app/PelorinApp.h"

#include "app/PelorinMainWindow.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/SettingsLocation.h"
#include "platform/ui/MessageBox.h"

#include <QApplication>

#include <optional>

namespace pelorin {

namespace {

constexpr int kPortNotOpenText = 167;
constexpr int kNoHelpFilesText = 238;
constexpr int kDamagedRegistryText = 1003;
constexpr int kDamagedProfileText = 1004;
constexpr int kUnreadableRegistryText = 1027;

constexpr int kLanguageCount = 5;
constexpr int kDefaultLanguage = 1;
constexpr int kDefaultPort = 1;

const QString& productKey()
{
    static const QString kKey =
        QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin");
    return kKey;
}

QString applicationName()
{
    return QStringLiteral("Pelorin");
}

QString portEntry()
{
    return QStringLiteral("COMPort");
}

QString languageEntry()
{
    return QStringLiteral("Language");
}

/// A text of the language, or what must be said even without one.
QString textOr(int number, const QString& plain)
{
    const QString text = languageString(number);
    return text.isNull() ? plain : text;
}

/// The port that a "/CP:" switch names: the one or two digits behind it, 0 if there is no digit;
/// nothing without the switch, or with nothing behind it.
std::optional<int> portOfCommandLine(const QString& commandLine)
{
    const QString kSwitch = QStringLiteral("/CP:");
    const auto start = commandLine.indexOf(kSwitch);
    const QString digits = start < 0 ? QString() : commandLine.mid(start + kSwitch.size(), 2);
    if (digits.isEmpty())
        return std::nullopt;
    const auto digitOf = [](QChar character) {
        return character >= u'0' && character <= u'9' ? character.unicode() - u'0' : -1;
    };
    const int first = digitOf(digits.front());
    if (first < 0)
        return 0;
    const int second = digits.size() > 1 ? digitOf(digits.back()) : -1;
    return second < 0 ? first : first * 10 + second;
}

} // namespace

PelorinApp::PelorinApp(const ComPortFactory& factory) : m_factory(factory), m_link(factory)
{
    m_link.setErrorPresenter([this](const QString& text) { showError(text); });
    connect(qApp, &QGuiApplication::commitDataRequest, this, &PelorinApp::requestClose);
    RegistryConfig config;
    if (config.setStorage(productKey(), 0) == 1)
        m_installPath = config.getValue(QStringLiteral("Path"), QString());
    if (!m_installPath.isEmpty() && !m_installPath.endsWith(QLatin1Char('\\')))
        m_installPath += QLatin1Char('\\');
}

PelorinApp::~PelorinApp()
{
    m_mainWindow.reset();
    m_languages.shutDown();
}

bool PelorinApp::initInstance(const QString& commandLine)
{
    int port = m_profile.readInt(portEntry(), kDefaultPort);
    const int languageCode = m_profile.readInt(languageEntry(), kDefaultLanguage);
    reportDamagedSettings(languageCode);
    if (!loadLanguage(languageCode))
        return false;
    loadHelpFiles();
    if (const auto given = portOfCommandLine(commandLine)) {
        m_savePortOnExit = 0;
        port = *given;
    }
    if (!connectToPort(port))
        return true;

    m_mainWindow = std::make_unique<PelorinMainWindow>(m_factory, m_link, m_languages);
    connect(m_mainWindow.get(), &PelorinMainWindow::closed, this, &PelorinApp::closed);
    m_mainWindow->showMaximized();
    return true;
}

void PelorinApp::exitInstance()
{
    bool stored = true;
    if (m_savePortOnExit == 1 && m_link.hasOpened())
        stored = m_profile.writeInt(portEntry(), m_link.portNumber());
    if (const int language = m_languages.getCurrentLanguage(); language != 0)
        stored = m_profile.writeInt(languageEntry(), language) && stored;
    if (!stored)
        qWarning("The profile %s could not be written", qUtf8Printable(m_profile.fileName()));
}

void PelorinApp::requestClose()
{
    m_closeRequested = true;
    QWidget* window = m_mainWindow.get();
    if (!window)
        window = QApplication::activeModalWidget();
    if (window)
        window->close();
}

/// A program that is asked to end asks nothing more of its user.
void PelorinApp::showError(const QString& text) const
{
    if (m_closeRequested)
        return;
    (void)messageBox(QApplication::activeWindow(), text, QMessageBox::Ok, QMessageBox::Warning);
}

bool PelorinApp::loadLanguage(int code)
{
    if (m_installPath.isEmpty()) {
        showError(QStringLiteral("Unable to initialize language subsystem. Please reinstall "
                                 "application!"));
        return false;
    }
    m_languages.init(m_installPath, applicationName());
    if (m_languages.loadLanguage(code) == 1)
        return true;
    showError(QStringLiteral("Unable to load language DLL code language code %1. Please "
                             "reinstall application!")
                  .arg(code));
    return false;
}

/// Damaged files count as missing; the user must know why the settings are not used. Without
/// them there may be no installation path, so the texts come from beside the program then.
void PelorinApp::reportDamagedSettings(int languageCode)
{
    const auto damage = RegistryFile::read(registryFilePath()).damage();
    if (!damage && !m_profile.isDamaged())
        return;
    m_languages.init(m_installPath.isEmpty() ? programFolder() : m_installPath, applicationName());
    if (m_languages.loadLanguage(languageCode) != 1)
        (void)m_languages.loadLanguage(kDefaultLanguage); // which may fail: see textOr
    if (damage && damage->line == 0) {
        showError(textOr(kUnreadableRegistryText, QStringLiteral("%1")).arg(damage->path));
    } else if (damage) {
        showError(textOr(kDamagedRegistryText, QStringLiteral("%1: %2"))
                      .arg(damage->path, QString::number(damage->line)));
    }
    if (m_profile.isDamaged())
        showError(textOr(kDamagedProfileText, QStringLiteral("%1")).arg(m_profile.fileName()));
    m_languages.shutDown();
}

void PelorinApp::loadHelpFiles()
{
    RegistryConfig config;
    if (config.setStorage(productKey() + QStringLiteral("\\Help Files"), 0) != 1) {
        showError(languageString(kNoHelpFilesText));
        return;
    }
    for (int bit = 0; bit < kLanguageCount; ++bit) {
        const int code = 1 << bit;
        m_languages.setHelpFile(code,
                                config.getValue(QStringLiteral("Lang%1").arg(code), QString()));
    }
}

/// Opens the port, asking the user what to do as long as that fails.
bool PelorinApp::connectToPort(int port)
{
    while (!m_closeRequested) {
        if (m_link.open(port, 1))
            return true;
        if (m_closeRequested)
            break;
        const auto answer = messageBox(
            nullptr, languageString(kPortNotOpenText).arg(port),
            QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore, QMessageBox::Warning);
        if (answer == QMessageBox::Abort)
            break;
        if (answer == QMessageBox::Ignore) {
            SelectPortDialog dialog(nullptr, port);
            if (dialog.exec() != QDialog::Accepted)
                break;
            port = dialog.selectedPort();
        }
    }
    return false;
}

} // namespace pelorin
