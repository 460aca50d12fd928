#pragma once

#include "app/CommandGate.h"
#include "backup/BackupProgressDialog.h"
#include "platform/core/WindowMessage.h"

#include <QMainWindow>
#include <QPointer>

namespace pelorin {

class BusyFilter;
class ComPortFactory;
class ConnectionSupervisor;
class DisplayUnitDialog;
class HelpWindow;
class LanguageManager;
class LinkStatusBar;
class MainMenu;
class PageArea;
class SensorLink;

/// The frame window: menu, pages and status bar. It runs the commands, one at a time, hands the
/// completions of the link to whom they belong, holds back what must wait for the end of a command
/// or a dialog, and closes in an orderly way.
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
    [[nodiscard]] int currentPage() const;
    [[nodiscard]] bool isBusy() const;

Q_SIGNALS:
    /// The window has been closed; the program ends.
    void closed();

protected:
    void customEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void connectParts();
    void translate();
    void showTitle();

    void choosePage(int index);
    void chooseCommand(int command);
    void postCommand(int command);
    void runCommand(int command);

    void refresh();
    void connectSensor();
    void selectPort();
    void runBackup(BackupProgressDialog::Mode mode);
    void writeCommand(char id);
    void communicateManually();
    void showDisplayUnit();
    void showHelp();

    [[nodiscard]] bool releasePage();
    void resumePage();

    void onLinkReply(RequestId request, int result);
    void onConnected(bool success);
    void showPageStatus(const QString& text);

    void runDeferred();
    void endDialogs();
    [[nodiscard]] bool isWriting() const;
    void shutDown();

    const ComPortFactory& m_factory;
    SensorLink& m_link;
    LanguageManager& m_languages;

    CommandGate m_gate;
    BusyFilter* m_busy;
    LinkStatusBar* m_statusBar;
    MainMenu* m_menu = nullptr;
    ConnectionSupervisor* m_connection = nullptr;
    PageArea* m_pages = nullptr;
    HelpWindow* m_help = nullptr;              ///< null until it is asked for
    QPointer<DisplayUnitDialog> m_displayUnit; ///< null while it is closed
    QString m_pageStatus;                      ///< the last status text of a page

    bool m_connectWanted = false;     ///< a Connect waits
    bool m_closeAfterWriting = false; ///< the close had to wait for the end of a write
    bool m_closing = false;
};

} // namespace pelorin
