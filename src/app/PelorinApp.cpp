#include "app/PelorinApp.h"

#include "app/PelorinMainWindow.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/SignalWait.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"

#include <QApplication>

#include <algorithm>
#include <optional>
#include <utility>

namespace pelorin {

namespace {

constexpr int kLanguageCount = 5;
constexpr int kDefaultPort = 1;
constexpr std::chrono::seconds kSessionEndLimit{60};

QString portEntry()
{
    return QStringLiteral("COMPort");
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

/// Devices that a driver only keeps ready do not count.
bool portExists(int port)
{
    const auto ports = ComPortNames().presentPorts();
    return std::any_of(ports.begin(), ports.end(),
                       [port](const PresentPort& present) { return present.number == port; });
}

} // namespace

PelorinApp::PelorinApp(const ComPortFactory& factory)
    : m_factory(factory), m_installPath(installPath()), m_link(factory), m_runner(m_link),
      m_restore(m_runner, m_formats)
{
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] {
        requestClose();
        if (!m_portLeft)
            waitForSignal(*this, &PelorinApp::portLeft, kSessionEndLimit);
    });
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
    reportUnusableSettings(languageCode);
    if (!loadLanguage(languageCode))
        return false;
    loadHelpFiles();
    if (const auto given = portOfCommandLine(commandLine)) {
        m_savePortOnExit = 0;
        port = *given;
    } else if (!m_profile.has(portEntry()) && !portExists(port)) {
        QMetaObject::invokeMethod(
            this, [this] { selectPort(0); }, Qt::QueuedConnection);
        return true; // nobody has chosen the port that is not there
    }
    connectToPort(port);
    return true;
}

/// Opens the port, and asks the user what to do as long as that fails.
void PelorinApp::connectToPort(int port)
{
    if (m_closeRequested)
        return giveUp();
    m_opener.open(port, nullptr, [this, port](PortOpener::Result result) {
        if (m_closeRequested)
            return; // the port is being closed
        if (result == PortOpener::Result::Left)
            return selectPort(port);
        if (result == PortOpener::Result::Opened)
            return showMainWindow();
        showError(m_link.openFailure());
        askForPort(port);
    });
}

void PelorinApp::askForPort(int port)
{
    if (m_closeRequested)
        return giveUp();
    const auto answer = messageBox(nullptr, languageString(strings::kAskForOtherPort).arg(port),
                                   QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
                                   QMessageBox::Warning);
    if (answer == QMessageBox::Abort || m_closeRequested) {
        giveUp();
    } else if (answer == QMessageBox::Retry) {
        connectToPort(port);
    } else {
        selectPort(port);
    }
}

/// @param port preselected; 0 for none
void PelorinApp::selectPort(int port)
{
    SelectPortDialog dialog(nullptr, port, SelectPortDialog::Use::Start);
    const int result = dialog.exec();
    if (m_closeRequested || result == QDialog::Rejected)
        return giveUp();
    if (result == QDialog::Accepted)
        return connectToPort(dialog.selectedPort());
    if (result == SelectPortDialog::kWithoutPort)
        return showMainWindow();
    m_profileStays = true;
    giveUp();
    Q_EMIT demonstrationWanted();
}

void PelorinApp::showMainWindow()
{
    m_mainWindow = std::make_unique<PelorinMainWindow>(
        m_factory, PelorinMainWindow::Conversation{m_runner, m_formats, m_restore}, m_languages);
    connect(m_mainWindow.get(), &PelorinMainWindow::closed, this, &PelorinApp::closed);
    connect(m_mainWindow.get(), &PelorinMainWindow::poweredDown, this, &PelorinApp::leavePort);
    m_mainWindow->showMaximized();
}

void PelorinApp::leavePort()
{
    if (!std::exchange(m_portLeft, true))
        Q_EMIT portLeft();
}

/// A port that was opened meanwhile is closed when the link ends.
void PelorinApp::giveUp()
{
    leavePort();
    QMetaObject::invokeMethod(this, &PelorinApp::closed, Qt::QueuedConnection);
}

void PelorinApp::exitInstance()
{
    if (m_profileStays)
        return;
    QMap<QString, int> values;
    if (m_savePortOnExit == 1 && m_link.hasOpened())
        values[portEntry()] = m_link.portNumber();
    if (const int language = m_languages.getCurrentLanguage(); language != 0)
        values[languageEntry()] = language;
    const int toldAtStart = m_profile.unreadable().systemError;
    const WholeFile::Outcome outcome = m_profile.write(values);
    if (outcome.isDone() || outcome.systemError == toldAtStart)
        return;
    if (m_closeRequested) {
        qWarning("%s", qUtf8Printable(outcome.message()));
    } else {
        showError(outcome.message());
    }
}

void PelorinApp::requestClose()
{
    m_closeRequested = true;
    if (!m_mainWindow && !m_portLeft)
        m_runner.closePort(false, [this] { giveUp(); });
    QWidget* window = m_mainWindow.get();
    if (!window || !window->isVisible()) // at the start, or at the end
        window = QApplication::activeModalWidget();
    if (window)
        window->close();
}

/// A program that is asked to end asks nothing more of its user.
void PelorinApp::showError(const QString& text) const
{
    if (m_closeRequested)
        return;
    warn(QApplication::activeWindow(), text);
}

bool PelorinApp::loadLanguage(int code)
{
    if (m_installPath.isEmpty()) {
        showError(QStringLiteral("Unable to initialize language subsystem. Please reinstall "
                                 "application!"));
        return false;
    }
    m_languages.init(m_installPath, productName());
    if (m_languages.loadLanguage(code) == 1)
        return true;
    showError(QStringLiteral("Unable to load language DLL code language code %1. Please "
                             "reinstall application!")
                  .arg(code));
    return false;
}

/// Damaged and unreadable files count as missing; the user must know why the settings are not used.
/// Without them there may be no installation path, so the texts come from beside the program then.
void PelorinApp::reportUnusableSettings(int languageCode)
{
    const WholeFile::Outcome& unreadable = m_profile.unreadable();
    if (settingsFault().isNull() && unreadable.isDone() && !m_profile.isDamaged())
        return;
    m_languages.init(m_installPath.isEmpty() ? programFolder() : m_installPath, productName());
    if (m_languages.loadLanguage(languageCode) != 1)
        (void)m_languages.loadLanguage(kDefaultLanguage);       // which may fail: see textOr
    if (const QString fault = settingsFault(); !fault.isNull()) // in the language now
        showError(fault);
    if (!unreadable.isDone()) {
        showError(textOr(strings::kRegistryUnreadable, QStringLiteral("%1: %2"))
                      .arg(unreadable.path, unreadable.reason()));
    }
    if (m_profile.isDamaged())
        showError(textOr(strings::kProfileDamaged, QStringLiteral("%1")).arg(m_profile.fileName()));
    m_languages.shutDown();
}

void PelorinApp::loadHelpFiles()
{
    RegistryConfig config;
    if (config.setStorage(productKey(QStringLiteral("Help Files")), 0) != 1) {
        showError(languageString(strings::kNoHelpFiles));
        return;
    }
    for (int bit = 0; bit < kLanguageCount; ++bit) {
        const int code = 1 << bit;
        m_languages.setHelpFile(code,
                                config.getValue(QStringLiteral("Lang%1").arg(code), QString()));
    }
}

} // namespace pelorin
