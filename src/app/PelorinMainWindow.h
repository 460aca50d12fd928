#pragma once

#include "app/CommandGate.h"
#include "pages/SendHistory.h"
#include "sensor/Journal.h"

#include <QMainWindow>
#include <QPointer>

namespace pelorin {

class BackupCommands;
class BusyFilter;
class Closing;
class ComPortFactory;
class ConnectionNotices;
class ConnectionSupervisor;
class DisplayUnitDialog;
class FormatRestore;
class HelpWindow;
class KeptFormats;
class LanguageManager;
class LinkStatusBar;
class MainMenu;
class PagePane;
class PositionStream;
class SensorLink;
class SafeWriter;
class SequenceRunner;
class SelectPortCommand;
class SettingsCommand;
class WriteReport;

/// The frame window: menu, pages and status bar. It runs the commands, one at a time, holds back
/// what must wait for the end of a command, a plan or a dialog, and closes in an orderly way.
class PelorinMainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// What the window works with; all outlive it.
    struct Conversation
    {
        SequenceRunner& runner;
        KeptFormats& formats;
        FormatRestore& restore;
    };

    /// @param factory makes the display unit's port
    PelorinMainWindow(const ComPortFactory& factory, const Conversation& conversation,
                      LanguageManager& languages);
    ~PelorinMainWindow() override;

    /// Leaves the shown page and shows another one, which then reads its values.
    /// @param index row of the page list
    void switchPage(int index);

    /// Index of the shown page, -1 without one.
    [[nodiscard]] int currentPage() const;
    [[nodiscard]] bool isBusy() const;

Q_SIGNALS:
    /// The window has been closed; the program ends.
    void closed();
    /// The window is closing: the sensor's supply is off and its port closed.
    void poweredDown();

protected:
    void customEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void connectParts();
    void connectConnection();
    void translate();
    void showTitle();

    void choosePage(int index);
    void chooseCommand(int command);
    void postCommand(int command);
    void wantConnect();
    void runCommand(int command);

    void refresh();
    void connectSensor();
    void communicateManually();
    void showDisplayUnit();
    void showHelp();

    void onConnected(bool success);
    void onPortChanged(bool isFirst);
    void onPortLeft();
    void showPageStatus(const QString& text);

    void runDeferred();

    const ComPortFactory& m_factory;
    SequenceRunner& m_runner;
    SensorLink& m_link;
    FormatRestore& m_restore;
    LanguageManager& m_languages;
    const bool m_manualPowerMode;
    const bool m_displayUnitEnabled;
    const bool m_tempCompEnabled;

    CommandGate m_gate;
    BusyFilter* m_busy;
    const Journal m_journal;
    SafeWriter* m_writer;
    LinkStatusBar* m_statusBar;
    PositionStream* m_stream;
    MainMenu* m_menu;
    ConnectionSupervisor* m_connection;
    PagePane* m_pages;
    ConnectionNotices* m_notices;
    WriteReport* m_report;
    SettingsCommand* m_settings;
    BackupCommands* m_backups;
    Closing* m_closing;
    SelectPortCommand* m_selectPort;
    HelpWindow* m_help = nullptr;              ///< null until it is asked for
    QPointer<DisplayUnitDialog> m_displayUnit; ///< null while it is closed
    QString m_pageStatus;                      ///< the last status text of a page
    SendHistory m_sendHistory;                 ///< of manual communications

    bool m_connectWanted = false; ///< a Connect waits
    bool m_offerDue = false;      ///< of what was not finished; the sensor has to be read before
    bool m_closedTold = false;
};

} // namespace pelorin
