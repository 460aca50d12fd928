#include "app/PelorinMainWindow.h"

#include "app/BackupCommand.h"
#include "app/BusyFilter.h"
#include "app/Commands.h"
#include "app/LinkStatusBar.h"
#include "app/MainMenu.h"
#include "display/DisplayUnitDialog.h"
#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "pages/AboutDialog.h"
#include "pages/CommLogPage.h"
#include "pages/FactoryParamsPage.h"
#include "pages/MagnetPositionPage.h"
#include "pages/ManualCommDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/SelectPortDialog.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/RegistryConfig.h"
#include "platform/ui/HelpWindow.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/Pictures.h"
#include "tempcomp/TempCompPage.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kConnectingText = 116;
constexpr int kConnectedText = 117;
constexpr int kNotConnectedText = 118;
constexpr int kTitleText = 119;
constexpr int kRefreshText = 166;
constexpr int kHelpFailedText = 239;
constexpr int kSwitchOnText = 244;
constexpr int kSwitchOffText = 245;
constexpr int kSimulatedText = 1000;
constexpr int kNoBoundsText = 1005;
constexpr int kPageListNameText = 1009;
constexpr int kDisplayUnitPortText = 1602;

constexpr int kReconnectLimit = 10;
constexpr auto kReconnectPeriod = 500ms;
constexpr auto kSupplyOffTime = 500ms;
constexpr auto kSwitchOnTime = 3000ms;
constexpr auto kStoreTime = 500ms;

constexpr double kListShare = 0.20; ///< of the window's width
constexpr double kPageShare = 0.90; ///< of the window's height
constexpr int kButtonPoints = 18;

} // namespace

/// Marks that a command runs: what has to wait for its end is made up for afterwards.
class PelorinMainWindow::CommandScope
{
public:
    explicit CommandScope(PelorinMainWindow& window) : m_window(window)
    {
        ++m_window.m_commandDepth;
    }
    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;
    ~CommandScope()
    {
        if (--m_window.m_commandDepth == 0)
            QMetaObject::invokeMethod(&m_window, &PelorinMainWindow::runDeferred,
                                      Qt::QueuedConnection);
    }

private:
    PelorinMainWindow& m_window;
};

PelorinMainWindow::PelorinMainWindow(const ComPortFactory& factory, SensorLink& link,
                                     LanguageManager& languages)
    : m_factory(factory), m_link(link), m_languages(languages)
{
    readSettings();
    setWindowIcon(programIcon());
    m_busy = new BusyFilter(this);
    m_menu = new MainMenu(*menuBar(), m_displayUnitEnabled == 1, [this](int command) {
        return MainMenu::ItemState{canRun(command), isLanguageCommand(command),
                                   languageCodeOf(command) == m_languages.getCurrentLanguage()};
    });
    connect(m_menu, &MainMenu::commandChosen, this, &PelorinMainWindow::chooseCommand);
    m_statusBar = new LinkStatusBar(this);
    m_statusBar->setPort(m_link.portNumber());
    setStatusBar(m_statusBar);

    setCentralWidget(new QWidget(this));
    centralWidget()->installEventFilter(this);
    createPageList();
    createRefreshButton();
    createPages();
    translate();

    m_reconnectTimer.setInterval(Pacing::pause(kReconnectPeriod));
    connect(&m_reconnectTimer, &QTimer::timeout, this, &PelorinMainWindow::onReconnectTimer);
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

bool PelorinMainWindow::isBusy() const
{
    return m_busy->isBusy();
}

void PelorinMainWindow::readSettings()
{
    RegistryConfig config;
    if (config.setStorage(QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin"),
                          0) != 1)
        return;
    m_manualPowerMode = config.getValue(QStringLiteral("ManualPowerMode"), qint32{0});
    m_displayUnitEnabled = config.getValue(QStringLiteral("EnableQDL3"), qint32{0});
    m_tempCompEnabled = config.getValue(QStringLiteral("EnableTempComp"), qint32{0});
}

void PelorinMainWindow::createPageList()
{
    m_pageList = new QListWidget(centralWidget());
    m_pageList->setObjectName(QStringLiteral("pageList"));
    m_pageList->setIconSize(QSize(16, 16));
    m_pageList->installEventFilter(this);
    connect(m_pageList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { choosePage(m_pageList->row(item)); });
}

void PelorinMainWindow::createRefreshButton()
{
    m_refreshButton = new QPushButton(centralWidget());
    m_refreshButton->setObjectName(QStringLiteral("refreshButton"));
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(kButtonPoints);
    m_refreshButton->setFont(font);
    connect(m_refreshButton, &QPushButton::clicked, this,
            [this] { chooseCommand(kRefreshCommand); });
}

/// Creates the pages in the order of the page list; a page that does not exist on this
/// installation leaves no gap.
void PelorinMainWindow::createPages()
{
    const QLatin1String info("BMP_PELORIN_INFO");
    const QLatin1String wrench("BMP_PELORIN_WRENCH");
    addPage(new SensorInfoPage, 110, info);
    auto* position = new MagnetPositionPage(m_formatRestore, m_manualPowerMode == 1);
    connect(position, &MagnetPositionPage::formatKept, this, &PelorinMainWindow::showNotice,
            Qt::QueuedConnection);
    addPage(position, 261, info);
    auto* output = new OutputSetupPage;
    connect(output, &OutputSetupPage::applyFailed, this, &PelorinMainWindow::showNotice,
            Qt::QueuedConnection);
    addPage(output, 168, wrench);
    addPage(new CommLogPage, 188, info);
    auto* factory = new FactoryParamsPage;
    // At once, so that the Connect after a loss waits for the answer.
    connect(factory, &FactoryParamsPage::writingFailed, this, &PelorinMainWindow::showNotice);
    addPage(factory, 214, wrench);
    if (m_tempCompEnabled == 1)
        addPage(new TempCompPage, 253, wrench);
}

void PelorinMainWindow::addPage(SensorPage* page, int caption, QLatin1String icon)
{
    page->makeDialog(centralWidget(), m_link);
    m_pages.push_back(page);
    m_pageCaptions.push_back(caption);
    m_pageList->addItem(new QListWidgetItem(picture(icon), QString()));
}

void PelorinMainWindow::layOut()
{
    const QWidget& area = *centralWidget();
    const int height = area.height() + m_statusBar->height();
    const int split = static_cast<int>(area.width() * kListShare);
    const int bottom = static_cast<int>(height * kPageShare);
    m_pageList->setGeometry(0, 0, split, area.height());
    m_refreshButton->setGeometry(split, bottom, area.width() - split, area.height() - bottom);
    if (SensorPage* page = shownPage())
        page->setGeometry(split, 0, area.width() - split, bottom);
}

void PelorinMainWindow::translate()
{
    showTitle();
    m_menu->translate();
    m_statusBar->translate();
    m_refreshButton->setText(languageString(kRefreshText));
    m_pageList->setAccessibleName(languageString(kPageListNameText));
    for (std::size_t index = 0; index < m_pages.size(); ++index)
        m_pageList->item(static_cast<int>(index))->setText(languageString(m_pageCaptions[index]));
    if (m_statusString != 0)
        setStatus(m_statusString);
    else if (SensorPage* page = shownPage(); page && m_pageStatusShown)
        page->postStatusText();
}

void PelorinMainWindow::showTitle()
{
    QString title = languageString(kTitleText);
    if (ComPortNames().isSimulated(QStringLiteral("COM%1").arg(m_link.portNumber())))
        title += QStringLiteral(" - ") + languageString(kSimulatedText);
    setWindowTitle(title);
}

SensorPage* PelorinMainWindow::shownPage() const
{
    return m_currentPage < 0 ? nullptr : m_pages[static_cast<std::size_t>(m_currentPage)];
}

/// Switches from the event loop: leaving a page may wait for the sensor, which a list that is
/// still handling its click must not.
void PelorinMainWindow::choosePage(int index)
{
    if (index < 0 || index == m_currentPage || isBusy())
        return;
    QMetaObject::invokeMethod(
        this,
        [this, index] {
            if (!isBusy() && m_commandDepth == 0 && index != m_currentPage)
                switchPage(index);
        },
        Qt::QueuedConnection);
}

void PelorinMainWindow::switchPage(int index)
{
    const CommandScope scope(*this);
    if (SensorPage* page = shownPage()) {
        page->setNewValues();
        page->hide();
    }
    m_pageReleased = false;
    m_currentPage = index;
    m_pageList->setCurrentRow(index);
    layOut();
    shownPage()->show();
    shownPage()->getCurrentValues();
}

/// Ends the position stream of the shown page before a command uses the link.
void PelorinMainWindow::releasePage()
{
    if (SensorPage* page = shownPage(); page && page->releaseLink())
        m_pageReleased = true;
}

/// Starts again what releasePage has ended, where the page is still shown.
void PelorinMainWindow::resumePage()
{
    if (std::exchange(m_pageReleased, false) && !m_closing && !m_closeWanted)
        shownPage()->getCurrentValues();
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

bool PelorinMainWindow::canRun(int command) const
{
    switch (command) {
    case kWriteECommand:
    case kWriteQCommand:
        return m_link.ssiType() != 1;
    default:
        return !isLanguageCommand(command) ||
               (m_languages.getAvailLanguages() & languageCodeOf(command)) != 0;
    }
}

void PelorinMainWindow::runCommand(int command)
{
    if (m_closing || !canRun(command) || (isBusy() && command != kConnectCommand))
        return;
    // Posted before a command that now waits for the sensor; Connect and Exit wait for its end.
    if (m_commandDepth > 0 && command != kConnectCommand && command != kExitCommand)
        return;
    const CommandScope scope(*this);
    if (isLanguageCommand(command)) {
        chooseLanguage(languageCodeOf(command));
        return;
    }
    switch (command) {
    case kSelectPortCommand:
        selectPort();
        break;
    case kConnectCommand:
        connectSensor();
        break;
    case kRefreshCommand:
        if (SensorPage* page = shownPage())
            page->getCurrentValues();
        break;
    case kSaveBackupCommand:
        runBackup(BackupProgressDialog::Mode::Backup);
        break;
    case kRestoreBackupCommand:
        runBackup(BackupProgressDialog::Mode::Restore);
        break;
    case kDisplayUnitCommand:
        showDisplayUnit();
        break;
    case kWriteECommand:
        writeCommand(Operation::WriteE, 'E');
        break;
    case kWriteQCommand:
        writeCommand(Operation::WriteQ, 'Q');
        break;
    case kManualCommCommand:
        communicateManually();
        break;
    case kHelpCommand:
        showHelp();
        break;
    case kAboutCommand:
        AboutDialog(this).exec();
        break;
    case kExitCommand:
        close();
        break;
    default:
        break;
    }
}

/// A Connect that is asked for while one runs is that one; while a dialog is open or another
/// command runs it waits.
void PelorinMainWindow::connectSensor()
{
    if (isConnecting())
        return;
    if (isDialogOpen() || m_commandDepth > 1) {
        m_connectWanted = true;
        return;
    }
    m_connectWanted = false;
    releasePage();
    if (m_closeWanted)
        return;
    m_pendingOperation = Operation::Connect;
    setStatus(kConnectingText);
    if (m_manualPowerMode == 1) {
        m_link.forgetIdentification();
        askForManualConnect();
        m_busy->begin();
        m_pendingRequest = m_link.requestRead('V');
    } else {
        m_busy->begin();
        m_pendingRequest = m_link.requestConnect();
    }
}

/// Has the user switch the sensor's supply off and on while PROG frames stream. The frames go
/// on also when the port was reopened in between.
void PelorinMainWindow::askForManualConnect()
{
    if (messageBox(this, languageString(kSwitchOffText), QMessageBox::Ok | QMessageBox::Cancel,
                   QMessageBox::Information) != QMessageBox::Ok)
        return;
    m_keepAlive = 1;
    m_link.setKeepAlive(m_keepAlive);
    (void)messageBox(this, languageString(kSwitchOnText), QMessageBox::Ok,
                     QMessageBox::Information);
    if (!m_closeWanted)
        Pacing::sleep(kSwitchOnTime);
    m_keepAlive = 0;
    m_link.setKeepAlive(m_keepAlive);
}

bool PelorinMainWindow::isConnecting() const
{
    return m_pendingOperation == Operation::Connect ||
           m_pendingOperation == Operation::RestoreFormat;
}

void PelorinMainWindow::selectPort()
{
    SelectPortDialog dialog(this, m_link.portNumber());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedPort() == m_link.portNumber())
        return;
    if (m_displayUnit && m_displayUnit->usesPort(dialog.selectedPort())) {
        showNotice(languageString(kDisplayUnitPortText)
                       .arg(QStringLiteral("COM%1").arg(dialog.selectedPort())));
        return;
    }
    releasePage();
    if (m_closeWanted)
        return;
    m_link.close();
    if (!openPort(dialog.selectedPort(), 1)) {
        close();
        return;
    }
    m_connectWanted = false; // it was meant for the port that was left
    m_statusBar->setPort(m_link.portNumber());
    showTitle();
    switchPage(0);
}

/// Opens a port; a success ends the reconnecting, whoever opened it.
int PelorinMainWindow::openPort(int port, int showErrors)
{
    if (!m_link.open(port, showErrors))
        return 0;
    stopReconnect();
    m_link.setKeepAlive(m_keepAlive); // opened again while the user switches the supply
    return 1;
}

/// After a restore the sensor is connected and read afresh, which shows page 0.
void PelorinMainWindow::runBackup(BackupProgressDialog::Mode mode)
{
    const bool restored = runBackupCommand(*this, m_link, mode, [this] {
        releasePage();
        return !m_closeWanted;
    });
    m_link.setReplyTarget(this, WM_LINK_REPLY);
    if (restored)
        postCommand(kConnectCommand);
    else
        resumePage();
}

void PelorinMainWindow::writeCommand(Operation operation, char id)
{
    releasePage();
    if (m_closeWanted)
        return;
    m_busy->begin();
    m_pendingOperation = operation;
    m_pendingRequest = m_link.requestWrite(id, QByteArray());
}

void PelorinMainWindow::communicateManually()
{
    releasePage();
    if (m_closeWanted)
        return;
    ManualCommDialog(this, m_link).exec();
    m_link.setReplyTarget(this, WM_LINK_REPLY);
    resumePage();
}

void PelorinMainWindow::chooseLanguage(int code)
{
    (void)m_languages.loadLanguage(code); // what cannot be loaded is greyed; the old one stays
}

/// Opens the dialog of the display unit; one that is open comes to the front as it is.
void PelorinMainWindow::showDisplayUnit()
{
    if (!m_displayUnit) {
        m_displayUnit = new DisplayUnitDialog(this, m_factory, m_link);
        m_displayUnit->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_displayUnit, &QDialog::finished, this, [this] {
            m_displayUnit.clear();
            QMetaObject::invokeMethod(this, &PelorinMainWindow::runDeferred, Qt::QueuedConnection);
        });
        m_displayUnit->show();
    }
    m_displayUnit->raise();
    m_displayUnit->activateWindow();
}

void PelorinMainWindow::showHelp()
{
    const int code = m_languages.getCurrentLanguage();
    auto* window = new HelpWindow(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    const auto [error, detail] = window->showHelp(m_languages.helpFile(code));
    if (error == 0)
        return;
    delete window;
    (void)messageBox(
        this,
        languageString(kHelpFailedText)
            .arg(QString::number(code), QString::number(error), QString::number(detail)),
        QMessageBox::Ok, QMessageBox::Warning);
}

void PelorinMainWindow::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (!message)
        return;
    switch (message->message()) {
    case WM_COMMAND:
        runCommand(static_cast<int>(message->wParam()));
        break;
    case WM_LINK_REPLY:
        onLinkReply(message->request(), static_cast<int>(message->wParam()));
        break;
    case WM_BUSY:
        onBusy(message->wParam() == 1);
        break;
    case WM_STATUS_TEXT:
        if (const auto* text = reinterpret_cast<const QString*>(message->wParam())) {
            m_statusString = 0;
            m_pageStatusShown = true;
            m_statusBar->setText(*text);
            m_statusBar->setExplanation(QString());
        }
        break;
    case WM_LINK_STATE:
        m_statusBar->setLinkState(static_cast<int>(message->wParam()));
        break;
    case WM_LINK_LOST:
        onLinkLost();
        break;
    default:
        break;
    }
}

/// While an own request runs only its completion ends the busy state: what a page released
/// before must not end it.
void PelorinMainWindow::onBusy(bool busy)
{
    if (busy)
        m_busy->begin();
    else if (m_pendingOperation == Operation::None)
        m_busy->release();
}

void PelorinMainWindow::onLinkReply(RequestId request, int result)
{
    if (request != 0 && request == m_pendingRequest) {
        m_pendingRequest = 0;
        if (m_pendingOperation == Operation::Connect) {
            onConnected(result);
        } else if (m_pendingOperation == Operation::RestoreFormat) {
            awaitRestore(m_formatRestore.next(m_link, result));
        } else {
            Pacing::sleep(kStoreTime);
            m_pendingOperation = Operation::None;
            QCoreApplication::postEvent(this, new WindowMessage(WM_BUSY, 0));
            postCommand(kConnectCommand);
        }
    } else if (SensorPage* page = shownPage()) {
        page->takeLinkReply(request, result);
    }
    if (m_closeWanted)
        QMetaObject::invokeMethod(this, &PelorinMainWindow::runDeferred, Qt::QueuedConnection);
}

/// A data format that could not be written back before goes first, before any page reads it.
void PelorinMainWindow::onConnected(int result)
{
    if (result == 1 && m_manualPowerMode == 1)
        (void)m_link.identifyFromLastReply(); // the sensor has answered, whatever type it is
    const RequestId restore = result == 1 ? m_formatRestore.begin(m_link) : 0;
    if (restore == 0)
        finishConnect(result);
    else
        awaitRestore(restore);
}

void PelorinMainWindow::awaitRestore(RequestId request)
{
    m_pendingOperation = Operation::RestoreFormat;
    m_pendingRequest = request;
    if (request == 0)
        finishConnect(m_link.isIdentified() ? 1 : 0); // not if the link was lost meanwhile
}

/// The connect is settled before page 0 is shown: leaving a page can send requests of its own.
void PelorinMainWindow::finishConnect(int result)
{
    m_pendingOperation = Operation::None;
    QCoreApplication::postEvent(this, new WindowMessage(WM_BUSY, 0));
    setStatus(result == 1 ? kConnectedText : kNotConnectedText);
    m_statusBar->setLinkState(result);
    if (!m_link.versionText().isEmpty() && m_link.ssiType() == kSsiTypeUnknown)
        m_statusBar->setExplanation(QStringLiteral("SSY Type: Unknown\n") +
                                    languageString(kNoBoundsText));
    if (result == 1)
        switchPage(0);
    else
        resumePage();
}

void PelorinMainWindow::onLinkLost()
{
    if (m_reconnectBusy || m_closing)
        return;
    m_reconnectBusy = true;
    const int port = m_link.portNumber();
    setStatus(0);
    m_statusBar->setText(
        QStringLiteral("Lost communication with COM%1, trying to reconnect...").arg(port));
    m_statusBar->setLinkState(0);
    if (m_link.linkFailed() == 1) {
        ++m_reconnectAttempts;
        if (!m_reconnectTimer.isActive())
            m_reconnectTimer.start();
        if (SensorPage* page = shownPage())
            page->linkLost();
        m_link.close();
        if (openPort(port, 0))
            postCommand(kConnectCommand);
    }
    m_reconnectBusy = false;
}

/// After eleven attempts the user decides, once no other dialog is open.
void PelorinMainWindow::onReconnectTimer()
{
    if (m_reconnectAttempts <= kReconnectLimit) {
        onLinkLost();
        return;
    }
    if (isDialogOpen())
        return;
    const CommandScope scope(*this);
    stopReconnect();
    const auto answer = messageBox(
        this,
        QStringLiteral("Serial communications port COM%1 no longer exists, please check the "
                       "connection and retry.")
            .arg(m_link.portNumber()),
        QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Question);
    if (answer == QMessageBox::Retry)
        onLinkLost();
    else
        close();
}

void PelorinMainWindow::stopReconnect()
{
    m_reconnectTimer.stop();
    m_reconnectAttempts = 0;
}

/// Not inside a command that waits for the sensor: it would wait for the answer, too.
void PelorinMainWindow::showNotice(const QString& text)
{
    m_notices << text;
    runDeferred();
}

void PelorinMainWindow::setStatus(int stringNumber)
{
    m_statusString = stringNumber;
    m_pageStatusShown = false;
    m_statusBar->setText(languageString(stringNumber));
    m_statusBar->setExplanation(QString());
}

bool PelorinMainWindow::isDialogOpen()
{
    return QApplication::activeModalWidget() != nullptr;
}

/// Makes up for what had to wait for the end of a dialog or a command.
void PelorinMainWindow::runDeferred()
{
    if (m_commandDepth > 0 || isDialogOpen())
        return;
    if (m_closeWanted) {
        close();
    } else if (!m_closing && !m_notices.isEmpty()) {
        const CommandScope scope(*this);
        (void)messageBox(this, m_notices.takeFirst(), QMessageBox::Ok, QMessageBox::Information);
    } else if (m_connectWanted) {
        m_connectWanted = false;
        postCommand(kConnectCommand);
    }
}

bool PelorinMainWindow::event(QEvent* event)
{
    (void)WindowMessage::from(event); // whatever a worker has written of it
    if (event->type() == QEvent::WindowUnblocked)
        QMetaObject::invokeMethod(this, &PelorinMainWindow::runDeferred, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

void PelorinMainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

/// In the page list the arrow keys only move; Enter and Space choose.
bool PelorinMainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == centralWidget() && event->type() == QEvent::Resize) {
        layOut();
    } else if (watched == m_pageList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            choosePage(m_pageList->currentRow());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

/// Whether something is being written to the sensor that must not be cut off.
bool PelorinMainWindow::isWriting() const
{
    const SensorPage* page = shownPage();
    return (page && page->isWriting()) || m_pendingOperation == Operation::RestoreFormat ||
           m_pendingOperation == Operation::WriteE || m_pendingOperation == Operation::WriteQ;
}

/// Dialogs that are open, one over the other, are ended first; the window then closes when their
/// command has returned, and not before what is being written has ended and the display unit has
/// answered.
void PelorinMainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (m_displayUnit)
        m_displayUnit->close();
    if (isDialogOpen()) {
        m_closeWanted = true;
        QWidget* dialog = QApplication::activeModalWidget();
        while (dialog && dialog->close())
            dialog = QApplication::activeModalWidget();
        return;
    }
    m_closeAfterWriting = m_closeAfterWriting || isWriting();
    m_closeWanted = m_displayUnit || m_commandDepth > 0 || isWriting();
    if (m_closeWanted || m_closing)
        return;
    m_closing = true;
    shutDown();
    event->accept();
    Q_EMIT closed();
}

void PelorinMainWindow::shutDown()
{
    m_reconnectTimer.stop();
    if (SensorPage* page = shownPage())
        page->setNewValues();
    if (m_closeAfterWriting)
        Pacing::sleep(kStoreTime); // the sensor must not lose its supply while it stores
    if (m_manualPowerMode == 0) {
        if (m_pendingOperation == Operation::Connect)
            m_link.close(1); // the worker would switch the supply on again
        else if (m_link.linkFailed() == 0)
            m_link.setRts(0);
        Pacing::sleep(kSupplyOffTime);
    }
    if (m_link.linkFailed() == 0)
        m_link.setReplyTarget(nullptr, 0);
}

} // namespace pelorin
