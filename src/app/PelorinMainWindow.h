#pragma once

#include "backup/BackupProgressDialog.h"
#include "pages/FormatRestore.h"
#include "platform/core/WindowMessage.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <vector>

class QListWidget;
class QPushButton;

namespace pelorin {

class BusyFilter;
class ComPortFactory;
class DisplayUnitDialog;
class LanguageManager;
class LinkStatusBar;
class MainMenu;
class SensorLink;
class SensorPage;

/// The frame window: page list, page area, menu and status bar. It runs the menu commands,
/// receives the completions of the link, hands them to the page they belong to, and supervises
/// the connection: it connects at start, reconnects when the port fails, and switches the
/// sensor's supply off when the program closes.
class PelorinMainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// All outlive the window.
    /// @param factory makes the display unit's port
    PelorinMainWindow(const ComPortFactory& factory, SensorLink& link, LanguageManager& languages);
    ~PelorinMainWindow() override;

    /// Leaves the shown page and shows another one, which then reads its values.
    /// @param index row of the page list
    void switchPage(int index);

    /// Index of the shown page, -1 without one.
    [[nodiscard]] int currentPage() const { return m_currentPage; }
    [[nodiscard]] bool isBusy() const;

Q_SIGNALS:
    /// The window has been closed; the program ends.
    void closed();

protected:
    void customEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What a completion of the link answers that is the window's own request.
    enum class Operation { Connect, RestoreFormat, WriteE, WriteQ, None };
    class CommandScope;

    void readSettings();
    void createPageList();
    void createRefreshButton();
    void createPages();
    void addPage(SensorPage* page, int caption, QLatin1String icon);
    void layOut();
    void translate();
    void showTitle();

    void choosePage(int index);
    [[nodiscard]] SensorPage* shownPage() const;

    void releasePage();
    void resumePage();

    void chooseCommand(int command);
    void runCommand(int command);
    [[nodiscard]] bool canRun(int command) const;
    void postCommand(int command);

    void connectSensor();
    void askForManualConnect();
    [[nodiscard]] bool isConnecting() const;
    void selectPort();
    [[nodiscard]] int openPort(int port, int showErrors);
    void runBackup(BackupProgressDialog::Mode mode);
    void writeCommand(Operation operation, char id);
    void communicateManually();
    void chooseLanguage(int code);
    void showDisplayUnit();
    void showHelp();
    void showAbout();

    void onLinkReply(RequestId request, int result);
    void onConnected(int result);
    void awaitRestore(RequestId request);
    void finishConnect(int result);
    void onBusy(bool busy);
    void onLinkLost();
    void onReconnectTimer();
    void stopReconnect();

    void showNotice(const QString& text);
    void setStatus(int stringNumber);
    [[nodiscard]] static bool isDialogOpen();
    [[nodiscard]] bool isWriting() const;
    void runDeferred();
    void shutDown();

    const ComPortFactory& m_factory;
    SensorLink& m_link;
    LanguageManager& m_languages;

    int m_manualPowerMode = 0;
    int m_displayUnitEnabled = 0;
    int m_tempCompEnabled = 0;

    MainMenu* m_menu = nullptr;
    QListWidget* m_pageList = nullptr;
    QPushButton* m_refreshButton = nullptr;
    LinkStatusBar* m_statusBar = nullptr;
    BusyFilter* m_busy = nullptr;
    QPointer<DisplayUnitDialog> m_displayUnit; ///< null while it is closed

    std::vector<SensorPage*> m_pages; ///< by page list row; owned by the page area
    std::vector<int> m_pageCaptions;
    int m_currentPage = -1;
    bool m_pageReleased = false; ///< a command has ended the shown page's use of the link
    FormatRestore m_formatRestore;

    Operation m_pendingOperation = Operation::None;
    RequestId m_pendingRequest = 0;
    int m_keepAlive = 0; ///< 1 while the user switches the supply in manual power mode

    int m_statusString = 0; ///< the window's own status text, 0 while another one is shown
    bool m_pageStatusShown = false;

    bool m_reconnectBusy = false;
    int m_reconnectAttempts = 0;
    QTimer m_reconnectTimer;

    int m_commandDepth = 0;
    bool m_connectWanted = false;     ///< a Connect waits until a dialog is closed
    bool m_closeWanted = false;       ///< a close waits until a dialog or a command has ended
    bool m_closeAfterWriting = false; ///< the close had to wait for the end of a write
    bool m_closing = false;
    QStringList m_notices; ///< wait until a command has ended
};

} // namespace pelorin
