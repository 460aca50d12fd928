#include "app/PelorinMainWindow.h"

#include "app/BackupCommands.h"
#include "app/BusyFilter.h"
#include "app/Closing.h"
#include "app/Commands.h"
#include "app/ConnectionNotices.h"
#include "app/ConnectionSupervisor.h"
#include "app/LinkStatusBar.h"
#include "app/MainMenu.h"
#include "app/NoticeStrip.h"
#include "app/OpenBackupCommand.h"
#include "app/PagePane.h"
#include "app/ReportCommand.h"
#include "app/SelectPortCommand.h"
#include "app/SensorHeader.h"
#include "app/SettingsCommand.h"
#include "app/SupportFileCommand.h"
#include "app/WriteReport.h"
#include "display/DisplayUnitDialog.h"
#include "link/SensorLink.h"
#include "pages/AboutDialog.h"
#include "pages/ManualCommDialog.h"
#include "pages/SensorPage.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/Strings.h"
#include "platform/core/WindowMessage.h"
#include "platform/ui/HelpWindow.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/Pictures.h"
#include "sensor/FormatRestore.h"
#include "sensor/PositionStream.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>

#include <utility>

namespace pelorin {

namespace {

constexpr QSize kNormalSize(1100, 720); ///< logical pixels, where the screen has them
constexpr QSize kSmallestSize(800, 560);

} // namespace

PelorinMainWindow::PelorinMainWindow(const ComPortFactory& factory,
                                     const Conversation& conversation, LanguageManager& languages)
    : m_factory(factory), m_runner(conversation.runner), m_link(conversation.runner.link()),
      m_restore(conversation.restore), m_languages(languages), m_manualPowerMode(isPowerManual()),
      m_displayUnitEnabled(isSwitchedOn(QStringLiteral("EnableQDL3"))),
      m_tempCompEnabled(isSwitchedOn(QStringLiteral("EnableTempComp"))), m_gate(*this),
      m_busy(new BusyFilter([this] { return isBusy(); }, this)),
      m_writer(new SafeWriter(m_runner, m_journal,
                              {.enabled = areWritesSafe(), .manualPower = m_manualPowerMode})),
      m_statusBar(new LinkStatusBar(this)),
      m_stream(new PositionStream(m_runner, conversation.formats, m_restore, m_manualPowerMode)),
      m_menu(new MainMenu(*menuBar(), m_displayUnitEnabled, m_link, languages)),
      m_connection(new ConnectionSupervisor(
          *this, {m_gate, *m_statusBar, m_runner, conversation.formats, m_restore, *m_writer},
          m_manualPowerMode)),
      m_pages(new PagePane(this, *m_writer, *m_stream, m_restore, m_tempCompEnabled)),
      m_notices(new ConnectionNotices(
          this, {m_pages->strip(), m_gate, m_link, conversation.formats, *m_stream})),
      m_report(new WriteReport(*this, {*m_writer, m_gate, m_pages->strip(), *m_statusBar})),
      m_settings(new SettingsCommand(
          *this, {m_gate, *m_writer, *m_stream, *m_connection, *m_menu, *m_pages})),
      m_backups(new BackupCommands(*this, {*m_writer, m_restore, m_gate, *m_pages})),
      m_closing(new Closing(*this, {m_gate, m_runner, *m_connection, *m_pages,
                                    [this] { return !m_displayUnit.isNull(); }})),
      m_selectPort(new SelectPortCommand(
          *this, {m_gate, m_link, *m_connection, *m_closing,
                  [this](int port) { return m_displayUnit && m_displayUnit->usesPort(port); }}))
{
    m_stream->setParent(this);
    m_writer->setParent(this);
    setWindowIcon(programIcon());
    setCentralWidget(m_pages);
    setStatusBar(m_statusBar);
    const QSize room = screen()->availableSize();
    setMinimumSize(kSmallestSize.boundedTo(room));
    resize(kNormalSize.boundedTo(room));
    showTitle();
    connectParts();
    connectConnection();

    m_link.setLossTarget(this);
    QMetaObject::invokeMethod(
        m_connection,
        [this] {
            if (m_link.linkFailed() == 1) // lost before there was a window to be told
                m_connection->onLinkLost();
        },
        Qt::QueuedConnection);
    if (m_link.hasOpened()) {
        wantConnect();
    } else {
        switchPage(0);
        m_notices->update();
    }
}

PelorinMainWindow::~PelorinMainWindow()
{
    m_runner.disconnect(this);   // pages that go with the window end their plans
    delete m_displayUnit.data(); // of a window that was not closed before
    m_link.setLossTarget(nullptr);
}

int PelorinMainWindow::currentPage() const
{
    return m_pages->currentPage();
}

bool PelorinMainWindow::isBusy() const
{
    return m_runner.isBusy() || m_writer->isRunning();
}

void PelorinMainWindow::connectParts()
{
    connect(m_menu, &MainMenu::commandChosen, this, &PelorinMainWindow::chooseCommand);
    connect(m_pages, &PagePane::pageChosen, this, &PelorinMainWindow::choosePage);
    connect(m_pages, &PagePane::refreshChosen, this, [this] { chooseCommand(kRefreshCommand); });
    connect(m_pages, &PagePane::noticed, &m_gate,
            [this](const QString& text) { m_gate.addNotice(text); });
    connect(m_pages, &PagePane::entriesChanged, m_statusBar,
            [this] { m_statusBar->setEntryCount(m_pages->entryCount()); });
    connect(&m_gate, &CommandGate::freed, this, &PelorinMainWindow::runDeferred);
    connect(m_closing, &Closing::poweredDown, this, &PelorinMainWindow::poweredDown);

    const auto onBusyChanged = [this] {
        m_busy->update();
        m_pages->header().showSensor();
        m_gate.wake();
    };
    connect(&m_runner, &SequenceRunner::busyChanged, this, onBusyChanged);
    connect(m_writer, &SafeWriter::ended, this, onBusyChanged);
    connect(m_report, &WriteReport::putBackWanted, m_backups, &BackupCommands::putBack,
            Qt::QueuedConnection);
    connect(m_backups, &BackupCommands::readWanted, this, [this] { switchPage(0); });
    connect(m_report, &WriteReport::refreshWanted, this, [this] {
        if (m_pages->entryCount() == 0)
            refresh();
    });
    connect(m_settings, &SettingsCommand::displayUnitChanged, this, [this] {
        if (m_displayUnit)
            m_displayUnit->close();
    });
    connect(m_report, &WriteReport::showWanted, this, [this](const QString& entry) {
        m_backups->selectNext(entry);
        chooseCommand(kEarlierStatesCommand);
    });
}

/// What follows the port and the sensor on it, and who wants others.
void PelorinMainWindow::connectConnection()
{
    using Supervisor = ConnectionSupervisor;
    connect(m_connection, &Supervisor::connectWanted, this, &PelorinMainWindow::wantConnect);
    connect(m_settings, &SettingsCommand::connectWanted, this, &PelorinMainWindow::wantConnect);
    connect(m_backups, &BackupCommands::connectWanted, this, &PelorinMainWindow::wantConnect);
    connect(m_notices, &ConnectionNotices::commandWanted, this, &PelorinMainWindow::chooseCommand);

    SensorHeader* header = &m_pages->header();
    connect(m_connection, &Supervisor::sensorLeft, m_report, &WriteReport::leaveSensor);
    connect(m_connection, &Supervisor::sensorLeft, header, &SensorHeader::forgetSensor);
    connect(m_connection, &Supervisor::sensorLeft, m_notices, [this] {
        if (m_link.linkFailed() == 1) // a Connect tells at its end
            m_notices->update();
    });
    connect(m_connection, &Supervisor::connected, header, &SensorHeader::showSensor);
    connect(m_connection, &Supervisor::connected, this, &PelorinMainWindow::onConnected);
    connect(m_connection, &Supervisor::connected, m_notices, &ConnectionNotices::update);
    connect(m_connection, &Supervisor::formatKept, m_notices, &ConnectionNotices::tellOf);

    connect(m_selectPort, &SelectPortCommand::portChanged, this, &PelorinMainWindow::onPortChanged);
    connect(m_selectPort, &SelectPortCommand::portLeft, this, &PelorinMainWindow::onPortLeft);
    const auto choosePort = [this] {
        onPortLeft();
        chooseCommand(kSelectPortCommand);
    };
    connect(m_connection, &Supervisor::portWanted, this, choosePort);
    connect(m_settings, &SettingsCommand::portWanted, this, choosePort);
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
    QString title = languageString(strings::kMainTitle);
    if (ComPortNames().isSimulated(ComPortNames::nameOf(m_link.openedPort())))
        title += QStringLiteral(" - ") + languageString(strings::kSimulated);
    setWindowTitle(title);
    m_pages->header().showSensor();
}

/// A page is left only when what it does with the sensor has ended.
void PelorinMainWindow::choosePage(int index)
{
    if (index == currentPage() || isBusy() || !m_gate.isFree() || !m_pages->mayDiscard(m_gate))
        return;
    (void)m_runner.endStream(*this, [this, index](bool /*restored*/) {
        if (!m_gate.isCloseWanted())
            switchPage(index);
    });
}

void PelorinMainWindow::switchPage(int index)
{
    const CommandGate::Scope scope(m_gate);
    m_pages->switchPage(index);
}

void PelorinMainWindow::chooseCommand(int command)
{
    if (isBusy())
        return;
    const auto leaving =
        command == kExitCommand ? PagePane::Leaving::Window : PagePane::Leaving::Page;
    const bool opensFirst = command == kSelectPortCommand && !m_link.hasOpened(); // entries stay
    if (losesEntries(command) && !opensFirst && m_pages->losesEntries(leaving) &&
        (!m_gate.isFree() || !m_pages->mayDiscard(m_gate, leaving)))
        return;
    postCommand(command);
}

/// Commands run from the event loop, never from inside the menu or the button.
void PelorinMainWindow::postCommand(int command)
{
    QCoreApplication::postEvent(
        this, new WindowMessage(WM_COMMAND, static_cast<std::uintptr_t>(command)));
}

/// Connects as soon as that is possible; until then nothing else begins.
void PelorinMainWindow::wantConnect()
{
    if (!m_link.hasOpened())
        return; // and nothing would take the reservation back
    m_runner.reserveConnect(*m_connection);
    postCommand(kConnectCommand);
}

void PelorinMainWindow::runCommand(int command)
{
    // Asked again where it runs: what was free when it was chosen may not be any more.
    const bool waits = command == kConnectCommand || command == kExitCommand;
    if (m_closing->hasBegun() || !m_menu->isPossible(command))
        return;
    if (!waits && (isBusy() || !m_gate.isFree()))
        return;
    const CommandGate::Scope scope(m_gate);
    switch (command) {
    case kSelectPortCommand:
        return m_selectPort->run();
    case kSettingsCommand:
        return m_settings->run();
    case kConnectCommand:
        return connectSensor();
    case kRefreshCommand:
        return refresh();
    case kSaveBackupCommand:
        return m_backups->run(BackupCommands::Mode::Backup);
    case kRestoreBackupCommand:
        return m_backups->run(BackupCommands::Mode::Restore);
    case kCompareCommand:
        return m_backups->run(BackupCommands::Mode::Compare);
    case kOpenBackupCommand:
        return OpenBackupCommand(*this, m_gate).run();
    case kEarlierStatesCommand:
        return m_backups->showEarlierStates();
    case kReportCommand:
        return ReportCommand(*this, {*m_writer, m_restore, m_gate}).run();
    case kDisplayUnitCommand:
        return showDisplayUnit();
    case kWriteECommand:
        return m_connection->writeCommand('E');
    case kWriteQCommand:
        return m_connection->writeCommand('Q');
    case kManualCommCommand:
        return communicateManually();
    case kHelpCommand:
        return showHelp();
    case kSupportFileCommand:
        return SupportFileCommand(*this, {m_link, m_journal, m_languages}).run();
    case kAboutCommand:
        return static_cast<void>(AboutDialog(this).exec());
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
    m_report->endNotWritten();
    if (SensorPage* page = m_pages->shownPage())
        page->getCurrentValues();
}

/// A Connect that is asked for while one runs is that one; while a dialog is open, a notice waits
/// to be read or something else runs it waits, and nothing else begins before it.
void PelorinMainWindow::connectSensor()
{
    if (m_connection->isConnecting()) {
        m_runner.cancelConnect();
        return;
    }
    const bool free = !CommandGate::isDialogOpen() && !m_gate.isNested() && !m_gate.hasNotice();
    m_connectWanted = !free || !m_connection->connectSensor();
}

/// What was meant for the port that was left is dropped.
void PelorinMainWindow::onPortChanged(bool isFirst)
{
    m_connectWanted = false;
    m_runner.cancelConnect();
    showTitle();
    if (isFirst) {
        m_notices->update();
        wantConnect();
    } else {
        switchPage(0);
    }
}

void PelorinMainWindow::onPortLeft()
{
    m_connectWanted = false;
    showTitle();
    m_notices->update();
}

void PelorinMainWindow::communicateManually()
{
    (void)ManualCommDialog(this, m_runner, m_sendHistory).exec();
}

/// Opens the dialog of the display unit; one that is open comes to the front as it is.
void PelorinMainWindow::showDisplayUnit()
{
    if (!m_displayUnit) {
        m_displayUnit = new DisplayUnitDialog(this, m_factory, m_link.openedPort());
        m_displayUnit->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_displayUnit, &DisplayUnitDialog::portStuck, this,
                [this](const QString& text) { m_gate.addNotice(text); });
        connect(m_displayUnit, &QDialog::finished, this, [this] {
            m_displayUnit.clear();
            m_gate.wake();
            m_closing->goOnSoon(); // also where a command below keeps the gate closed
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
        languageString(strings::kHelpFailed)
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
    }
}

/// Not over entries: their page is refreshed by the user.
void PelorinMainWindow::onConnected(bool success)
{
    m_offerDue = success;
    if (success && m_pages->entryCount() == 0)
        switchPage(0);
}

/// While the port is lost, or the sensor is being connected, the bar says so: a page's text of a
/// plan that has ended thereby comes behind.
void PelorinMainWindow::showPageStatus(const QString& text)
{
    m_pageStatus = text;
    if (m_link.linkFailed() != 1 && !m_connection->isConnecting())
        m_statusBar->setText(text);
}

/// Makes up for what had to wait for the end of a dialog, a command or a plan.
void PelorinMainWindow::runDeferred()
{
    if (m_gate.isCloseWanted()) {
        m_closing->goOn();
    } else if (isBusy()) {
        return; // its end comes back here
    } else if (std::exchange(m_connectWanted, false)) {
        wantConnect();
    } else if (!m_runner.isConnectWanted()) {
        if (SensorPage* page = m_pages->shownPage())
            page->resume();
        if (std::exchange(m_offerDue, false))
            m_report->offerUnfinished();
    }
}

bool PelorinMainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Show)
        m_report->tellUntold();
    if (event->type() == QEvent::WindowUnblocked)
        m_gate.wake();
    // A box may be on its way when the close comes, or a session's end runs above a command.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        m_closing->goOnSoon();
    return QMainWindow::event(event);
}

/// Escape that nobody else has a use for closes the notice.
void PelorinMainWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        m_pages->strip().clear();
    QMainWindow::keyPressEvent(event);
}

void PelorinMainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

/// Only who closes by hand is asked about entries. Dialogs that are open are ended first; the
/// window then closes when their command has returned, what is being written has ended and the
/// display unit has answered.
void PelorinMainWindow::closeEvent(QCloseEvent* event)
{
    if (m_closing->isDone()) {
        event->accept();
        if (!std::exchange(m_closedTold, true))
            Q_EMIT closed();
        return;
    }
    event->ignore();
    if (event->spontaneous() && !m_gate.isCloseWanted())
        return m_closing->askFirst();
    m_gate.requestClose();
    if (m_displayUnit)
        m_displayUnit->close();
    m_closing->goOn();
}

} // namespace pelorin
