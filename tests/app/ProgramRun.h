#pragma once

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/TerminationSignals.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedPorts.h"
#include "support/ModalAnswer.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

namespace pelorin::test {

using Answer = std::function<void(QDialog&)>;
using Answers = QList<Answer>;

/// Answers what comes up, one after the other, and keeps what was said: of a box the text up to
/// the first empty line, of a dialog the title. What comes up beyond the answers is closed.
class User
{
public:
    explicit User(Answers answers) : m_answers(std::move(answers)) { awaitNext(); }

    [[nodiscard]] const QStringList& heard() const { return m_heard; }

private:
    void awaitNext()
    {
        m_waiting.push_back(std::make_unique<ModalAnswer<QDialog>>([this](QDialog& dialog) {
            const auto* box = qobject_cast<QMessageBox*>(&dialog);
            m_heard
                << (box ? box->text() : dialog.windowTitle()).section(QStringLiteral("\n\n"), 0, 0);
            if (m_answers.isEmpty())
                dialog.close();
            else
                m_answers.takeFirst()(dialog);
            awaitNext();
        }));
    }

    Answers m_answers;
    QStringList m_heard;
    std::vector<std::unique_ptr<ModalAnswer<QDialog>>> m_waiting; ///< the last one for the next
};

/// One run of the program on settings and a profile of its own.
class Run
{
public:
    Run(const QByteArray& settings, const QByteArray& profile, Answers answers)
        : user(std::move(answers)), m_settings(settings)
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        if (!profile.isEmpty()) {
            QFile file(profilePath());
            if (!QDir(m_folder.path()).mkpath(QStringLiteral("Korvex Systems")) ||
                !file.open(QIODevice::WriteOnly) || file.write(profile) != profile.size())
                qWarning("The profile could not be written");
        }
        m_factory.addScheme(QStringLiteral("simulator:"), [this](const QString& name) {
            auto port = ports.makePort(name);
            return wrapper ? wrapper(std::move(port)) : std::move(port);
        });
        restart();
    }

    /// Makes the application anew, which reads the settings.
    void restart() { app = std::make_unique<PelorinApp>(m_factory); }

    /// As the program does it. Returns when the port is open, or the user has given up.
    [[nodiscard]] bool start(const QString& commandLine = {})
    {
        TerminationSignals signals;
        QObject::connect(&signals, &TerminationSignals::received, app.get(),
                         &PelorinApp::requestClose);
        const QSignalSpy closed(app.get(), &PelorinApp::closed);
        return app->initInstance(commandLine) &&
               QTest::qWaitFor([&] { return app->mainWindow() || !closed.isEmpty(); });
    }

    /// Ends the program. @return whether it has ended
    [[nodiscard]] bool end()
    {
        bool ended = true;
        if (app->mainWindow()) {
            const QSignalSpy closed(app.get(), &PelorinApp::closed);
            app->requestClose();
            ended = QTest::qWaitFor([&closed] { return closed.size() == 1; });
        }
        app->exitInstance();
        app.reset();
        return ended;
    }

    /// The port of the main window, 0 without one.
    [[nodiscard]] int port() const { return app->mainWindow() ? app->link().portNumber() : 0; }

    [[nodiscard]] QString profilePath() const
    {
        return m_folder.filePath(QStringLiteral("Korvex Systems/Pelorin.ini"));
    }
    [[nodiscard]] QString settingsPath() const { return m_settings.path(); }

    User user;
    SimulatedPorts ports;
    std::function<std::unique_ptr<ComPort>(std::unique_ptr<ComPort>)> wrapper; ///< of these
    std::unique_ptr<PelorinApp> app;

private:
    QTemporaryDir m_folder;
    TestRegistry m_settings;
    ComPortFactory m_factory{[](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    }};
};

} // namespace pelorin::test
