#pragma once

#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/Profile.h"

#include <QObject>
#include <QString>

#include <memory>

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
    /// @return false to end the program at once; with true and no main window the user gave up
    ///         opening a port
    [[nodiscard]] bool initInstance(const QString& commandLine);

    /// Stores the port and the language in the profile.
    void exitInstance();

    /// Ends the program in an orderly way, at any time: as if the user had closed its windows.
    void requestClose();

    [[nodiscard]] PelorinMainWindow* mainWindow() const { return m_mainWindow.get(); }
    [[nodiscard]] SensorLink& link() { return m_link; }

Q_SIGNALS:
    /// The main window has been closed: the program ends.
    void closed();

private:
    void showError(const QString& text) const;
    void reportDamagedSettings(int languageCode);
    [[nodiscard]] bool loadLanguage(int code);
    void loadHelpFiles();
    [[nodiscard]] bool connectToPort(int port);

    const ComPortFactory& m_factory;
    QString m_installPath; ///< ends in "\" when not empty
    Profile m_profile;
    int m_savePortOnExit = 1; ///< 0 after a port was given on the command line
    bool m_closeRequested = false;
    LanguageManager m_languages;
    SensorLink m_link;
    std::unique_ptr<PelorinMainWindow> m_mainWindow; ///< destroyed before the link
};

} // namespace pelorin
