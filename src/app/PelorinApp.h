#pragma once

#include "app/PortOpener.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/Profile.h"
#include "sensor/FormatRestore.h"
#include "sensor/KeptFormats.h"
#include "sensor/SequenceRunner.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

namespace pelorin {

class ComPortFactory;
class PelorinMainWindow;

/// The application: reads the settings, loads the language, opens the sensor's port, creates the
/// main window, and stores the settings at exit. It owns the one link to the sensor, and closes
/// when the desktop session ends. User-interface thread only.
class PelorinApp final : public QObject
{
    Q_OBJECT

public:
    /// @param factory makes the ports; outlives the application
    explicit PelorinApp(const ComPortFactory& factory);
    ~PelorinApp() override;

    /// Starts up; shows the user what goes wrong.
    /// @param commandLine the text after the program's name
    /// @return false to end the program at once; else the port is being opened, and the main
    ///         window or closed follows
    [[nodiscard]] bool initInstance(const QString& commandLine);

    /// Stores the port and the language in the profile; shows the user why it cannot, unless the
    /// program was asked to end.
    void exitInstance();

    /// Ends the program in an orderly way, at any time: as if the user had closed its windows.
    void requestClose();

    [[nodiscard]] PelorinMainWindow* mainWindow() const { return m_mainWindow.get(); }
    [[nodiscard]] SensorLink& link() { return m_link; }

Q_SIGNALS:
    /// The main window has been closed, or there is none since the user has given up opening a
    /// port: the program ends.
    void closed();
    /// The user wants a demonstration instead: this run ends, and leaves the profile as it is.
    void demonstrationWanted();
    /// The sensor's port is closed for good.
    void portLeft();

private:
    void showError(const QString& text) const;
    void reportUnusableSettings(int languageCode);
    [[nodiscard]] bool loadLanguage(int code);
    void loadHelpFiles();
    void connectToPort(int port);
    void askForPort(int port);
    void selectPort(int port);
    void showMainWindow();
    void leavePort();
    void giveUp();

    const ComPortFactory& m_factory;
    QString m_installPath; ///< ends in "\" when not empty
    Profile m_profile;
    int m_savePortOnExit = 1; ///< 0 after a port was given on the command line
    bool m_profileStays = false;
    bool m_closeRequested = false;
    bool m_portLeft = false;
    LanguageManager m_languages;
    SensorLink m_link;
    SequenceRunner m_runner;
    PortOpener m_opener{m_runner};
    KeptFormats m_formats;
    FormatRestore m_restore;
    std::unique_ptr<PelorinMainWindow> m_mainWindow; ///< destroyed before the runner
};

} // namespace pelorin
