#include "app/PelorinMainWindow.h"

#include "app/BackupCommand.h"
#include "app/BusyFilter.h"
#include "app/Commands.h"
#include "app/ConnectionSupervisor.h"
#include "app/LinkStatusBar.h"
#include "app/MainMenu.h"
#include "app/PageArea.h"
#include "display/DisplayUnitDialog.h"
#include "link/SensorLink.h"
#include "pages/AboutDialog.h"
#include "pages/ManualCommDialog.h"
#include "pages/SelectPortDialog.h"
#include "pages/SensorPage.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/RegistryConfig.h"
#include "platform/ui/HelpWindow.h"
#include "platform/ui/Pictures.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>

#include <utility>

namespace pelorin {

namespace {

constexpr int kTitleText = 119;
constexpr int kHelpFailedText = 239;
constexpr int kSimulatedText = 1000;
constexpr int kDisplayUnitPortText = 1602;

/// A switch of the product's settings; off if they cannot be read.
bool isSwitchedOn(const QString& name)
{
    RegistryConfig config;
    return config.setStorage(
               QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin"), 0) == 1 &&
           config.getValue(name, qint32{0}) == 1;
}

} // namespace

PelorinMainWindow::PelorinMainWindow(const ComPortFactory& factory, SensorLink& link,
                                     LanguageManager& languages)
    : m_factory(factory), m_link(link), m_languages(languages), m_gate(*this),
      m_busy(new BusyFilter(this)), m_statusBar(new LinkStatusBar(this))
{
    const bool manualPower = isSwitchedOn(QStringLiteral("ManualPowerMode"));
    m_menu = new MainMenu(*menuBar(), isSwitchedOn(QStringLiteral("EnableQDL3")), link, languages);
    m_connection =
        new ConnectionSupervisor(*this, link, {m_gate, *m_busy, *m_statusBar}, manualPower);
    m_pages = new PageArea(this, link, m_connection->formatRestore(),
                           {manualPower, isSwitchedOn(QStringLiteral("EnableTempComp"))});
    setWindowIcon(programIcon());
    setCentralWidget(m_pages);
    setStatusBar(m_statusBar);
    showTitle();
    connectParts();

    m_link.setReplyTarget(this, WM_LINK_REPLY);
    m_link.setLossTarget(this);
    postCommand(kConnectCommand);
}

PelorinMainWindow::~PelorinMainWindow()
{
    delete m_displayUnit.data(); // of a window that was not closed before
    m_link.setReplyTarget(nullptr, 0);
    m_link.setLossTarget(nullptr);
}

int PelorinMainWindow::currentPage() const
{
    return m_pages->currentPage();
}

bool PelorinMainWindow::isBusy() const
{
    return m_busy->isBusy();
}

void PelorinMainWindow::connectParts()
{
    connect(m_menu, &MainMenu::commandChosen, this, &PelorinMainWindow::chooseCommand);
    connect(m_pages, &PageArea::pageChosen, this, &PelorinMainWindow::choosePage);
    connect(m_pages, &PageArea::refreshChosen, this, [this] { chooseCommand(kRefreshCommand); });
    connect(m_pages, &PageArea::noticed, &m_gate, &CommandGate::addNotice);
    connect(&m_gate, &CommandGate::freed, this, &PelorinMainWindow::runDeferred);

    connect(m_connection, &ConnectionSupervisor::connectWanted, this,
            [this] { postCommand(kConnectCommand); });
    connect(m_connection, &ConnectionSupervisor::connected, this, &PelorinMainWindow::onConnected);
    connect(m_connection, &ConnectionSupervisor::givenUp, this, &PelorinMainWindow::close);
    connect(m_connection, &ConnectionSupervisor::lost, this, [this] {
        if (SensorPage* page = m_pages->shownPage())
            page->linkLost();
    });
}

void PelorinMainWindow::translate()
{
    const bool pageStatusShown = m_statusBar->text() == m_pageStatus;
    showTitle();
    m_menu->translate();
    m_statusBar->translate();
    m_pages->translate();
    if (SensorPage* page = m_pages->shownPage(); page && pageStatusShown)
        page->postStatusText();
}

void PelorinMainWindow::showTitle()
{
    QString title = languageString(kTitleText);
    if (ComPortNames().isSimulated(QStringLiteral("COM%1").arg(m_link.portNumber())))
        title += QStringLiteral(" - ") + languageString(kSimulatedText);
    setWindowTitle(title);
}

/// Switches from the event loop: leaving a page may wait for the sensor, which a list that is
/// still handling its click must not.
void PelorinMainWindow::choosePage(int index)
{
    if (index == currentPage() || isBusy())
        return;
    QMetaObject::invokeMethod(
        this,
        [this, index] {
            if (!isBusy() && m_gate.isFree() && index != currentPage())
                switchPage(index);
        },
        Qt::QueuedConnection);
}

void PelorinMainWindow::switchPage(int index)
{
    const CommandGate::Scope scope(m_gate);
    m_pages->switchPage(index);
}

/// Ends the position stream of the shown page before a command uses the link.
/// @return false if the command must not go on, since the window is to close
bool PelorinMainWindow::releasePage()
{
    m_pages->releaseLink();
    return !m_gate.isCloseWanted();
}

void PelorinMainWindow::resumePage()
{
    if (!m_gate.isCloseWanted())
        m_pages->resumeLink();
}

void PelorinMainWindow::chooseCommand(int command)
{
    if (!isBusy())
        postCommand(command);
}

/// Commands run from the event loop, never from inside the menu or the button.
void PelorinMainWindow::postCommand(int command)
{
    QCoreApplication::postEvent(
        this, new WindowMessage(WM_COMMAND, static_cast<std::uintptr_t>(command)));
}

void PelorinMainWindow::runCommand(int command)
{
    if (m_closing || !m_menu->isPossible(command) || (isBusy() && command != kConnectCommand))
        return;
    // Posted before a command that now waits for the sensor; Connect and Exit wait for its end.
    if (!m_gate.isFree() && command != kConnectCommand && command != kExitCommand)
        return;
    const CommandGate::Scope scope(m_gate);
    switch (command) {
    case kSelectPortCommand:
        return selectPort();
    case kConnectCommand:
        return connectSensor();
    case kRefreshCommand:
        return refresh();
    case kSaveBackupCommand:
        return runBackup(BackupProgressDialog::Mode::Backup);
    case kRestoreBackupCommand:
        return runBackup(BackupProgressDialog::Mode::Restore);
    case kDisplayUnitCommand:
        return showDisplayUnit();
    case kWriteECommand:
        return writeCommand('E');
    case kWriteQCommand:
        return writeCommand('Q');
    case kManualCommCommand:
        return communicateManually();
    case kHelpCommand:
        return showHelp();
    case kAboutCommand:
        (void)AboutDialog(this).exec();
        return;
    case kExitCommand:
        (void)close();
        return;
    default:
        if (isLanguageCommand(command)) // what cannot be loaded is greyed; the old one stays
            (void)m_languages.loadLanguage(languageCodeOf(command));
    }
}

void PelorinMainWindow::refresh()
{
    if (SensorPage* page = m_pages->shownPage())
        page->getCurrentValues();
}

/// A Connect that is asked for while one runs is that one; while a dialog is open, a notice waits
/// to be read or another command runs it waits.
void PelorinMainWindow::connectSensor()
{
    if (m_connection->isConnecting())
        return;
    m_connectWanted = CommandGate::isDialogOpen() || m_gate.isNested() || m_gate.hasNotice();
    if (m_connectWanted || !releasePage())
        return;
    m_connectWanted = m_gate.hasNotice(); // of the page that was released
    if (!m_connectWanted)
        m_connection->connectSensor();
}

void PelorinMainWindow::selectPort()
{
    SelectPortDialog dialog(this, m_link.portNumber());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedPort() == m_link.portNumber())
        return;
    if (m_displayUnit && m_displayUnit->usesPort(dialog.selectedPort())) {
        m_gate.addNotice(languageString(kDisplayUnitPortText)
                             .arg(QStringLiteral("COM%1").arg(dialog.selectedPort())));
        return;
    }
    if (!releasePage())
        return;
    if (!m_connection->changePort(dialog.selectedPort())) {
        close();
        return;
    }
    m_connectWanted = false; // it was meant for the port that was left
    showTitle();
    switchPage(0);
}

/// After a restore the sensor is connected and read afresh, which shows page 0.
void PelorinMainWindow::runBackup(BackupProgressDialog::Mode mode)
{
    const bool restored = runBackupCommand(*this, m_link, mode, [this] { return releasePage(); });
    m_link.setReplyTarget(this, WM_LINK_REPLY);
    if (restored) {
        postCommand(kConnectCommand);
    } else {
        resumePage();
    }
}

void PelorinMainWindow::writeCommand(char id)
{
    if (releasePage())
        m_connection->writeCommand(id);
}

void PelorinMainWindow::communicateManually()
{
    if (!releasePage())
        return;
    ManualCommDialog(this, m_link).exec();
    m_link.setReplyTarget(this, WM_LINK_REPLY);
    if (SensorPage* page = m_pages->shownPage())
        page->sensorChanged();
    resumePage();
}

/// Opens the dialog of the display unit; one that is open comes to the front as it is.
void PelorinMainWindow::showDisplayUnit()
{
    if (!m_displayUnit) {
        m_displayUnit = new DisplayUnitDialog(this, m_factory, m_link);
        m_displayUnit->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_displayUnit, &QDialog::finished, this, [this] {
            m_displayUnit.clear();
            m_gate.wake();
        });
        m_displayUnit->show();
    }
    m_displayUnit->raise();
    m_displayUnit->activateWindow();
}

void PelorinMainWindow::showHelp()
{
    const int code = m_languages.getCurrentLanguage();
    if (!m_help)
        m_help = new HelpWindow(this);
    const auto [error, detail] =
        m_help->showHelp(m_languages.helpFile(code), m_pages->helpAnchor());
    if (error == 0)
        return;
    m_gate.addNotice(
        languageString(kHelpFailedText)
            .arg(QString::number(code), QString::number(error), QString::number(detail)));
}

void PelorinMainWindow::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (!message)
        return;
    const auto wParam = message->wParam();
    switch (message->message()) {
    case WM_COMMAND:
        runCommand(static_cast<int>(wParam));
        break;
    case WM_LINK_REPLY:
        onLinkReply(message->request(), static_cast<int>(wParam));
        break;
    case WM_BUSY:
        if (wParam == 1) {
            m_busy->begin();
        } else if (!m_connection->isActive()) { // what a page released before must not end that
            m_busy->release();
        }
        break;
    case WM_STATUS_TEXT:
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the message carries an address
        if (const auto* text = reinterpret_cast<const QString*>(message->wParam()))
            showPageStatus(*text);
        break;
    case WM_LINK_STATE:
        m_statusBar->setLinkState(static_cast<int>(wParam));
        break;
    case WM_LINK_LOST:
        m_connection->onLinkLost();
        break;
    default:
        break;
    }
}

void PelorinMainWindow::onLinkReply(RequestId request, int result)
{
    if (SensorPage* page = m_pages->shownPage();
        !m_connection->takeLinkReply(request, result) && page)
        page->takeLinkReply(request, result);
    if (m_gate.isCloseWanted())
        m_gate.wake();
}

void PelorinMainWindow::onConnected(bool success)
{
    if (success) {
        switchPage(0);
    } else {
        resumePage();
    }
}

void PelorinMainWindow::showPageStatus(const QString& text)
{
    m_pageStatus = text;
    m_statusBar->setText(text);
}

/// Makes up for what had to wait for the end of a dialog or a command.
void PelorinMainWindow::runDeferred()
{
    if (m_gate.isCloseWanted()) {
        close();
    } else if (std::exchange(m_connectWanted, false)) {
        postCommand(kConnectCommand);
    }
}

bool PelorinMainWindow::event(QEvent* event)
{
    (void)WindowMessage::from(event); // whatever a worker has written of it
    if (event->type() == QEvent::WindowUnblocked)
        m_gate.wake();
    return QMainWindow::event(event);
}

void PelorinMainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

/// Whether something is being written to the sensor that must not be cut off.
bool PelorinMainWindow::isWriting() const
{
    const SensorPage* page = m_pages->shownPage();
    return (page && page->isWriting()) || m_connection->isWriting();
}

/// Dialogs that are open are ended first; the window then closes when their command has returned,
/// and not before what is being written has ended and the display unit has answered.
void PelorinMainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    m_gate.requestClose();
    if (m_displayUnit)
        m_displayUnit->close();
    if (CommandGate::isDialogOpen()) {
        endDialogs();
        return;
    }
    m_closeAfterWriting = m_closeAfterWriting || isWriting();
    if (m_displayUnit || m_gate.isCommandRunning() || isWriting() || m_closing)
        return;
    m_closing = true;
    shutDown();
    event->accept();
    Q_EMIT closed();
}

/// They may be open one over the other.
void PelorinMainWindow::endDialogs()
{
    QWidget* dialog = QApplication::activeModalWidget();
    while (dialog && dialog->close())
        dialog = QApplication::activeModalWidget();
}

void PelorinMainWindow::shutDown()
{
    m_connection->stop();
    if (SensorPage* page = m_pages->shownPage())
        page->setNewValues();
    m_connection->switchSupplyOff(m_closeAfterWriting);
    if (m_link.linkFailed() == 0)
        m_link.setReplyTarget(nullptr, 0);
}

} // namespace pelorin
