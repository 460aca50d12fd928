#pragma once

#include <QTemporaryDir>

#include <termios.h>

#include <chrono>
#include <string>
#include <string_view>

namespace pelorin {

/// A device file for a serial port, with the test at the other end of the line. It can be unplugged
/// and plugged in again, and always has the same path. One thread.
class PseudoTerminal
{
public:
    enum class State {
        Raw,  ///< passes bytes as they are, also while no port is open
        Fresh ///< as the system makes it: echoes, and rewrites line ends, until a port sets it up
    };

    /// What was discarded at the port's side, since it was last asked for.
    struct Purges
    {
        bool input = false;
        bool output = false;

        bool operator==(const Purges&) const = default;
    };

    /// Plugged in.
    explicit PseudoTerminal(State state = State::Raw);
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    /// The device file; there is none while it is unplugged.
    [[nodiscard]] const std::string& path() const { return m_path; }

    [[nodiscard]] bool isPluggedIn() const { return m_master >= 0; }
    [[nodiscard]] bool plugIn();
    void unplug();

    /// Sends all of the bytes to the port. @return false if they were not taken in time
    [[nodiscard]] bool send(std::string_view bytes);

    /// The next bytes from the port; fewer if the rest does not come in time.
    [[nodiscard]] std::string receive(std::size_t count,
                                      std::chrono::milliseconds limit = std::chrono::seconds(5));

    /// The settings at the port's side.
    [[nodiscard]] termios settings() const;

    /// Their speed in bits per second; 0 if it is none of the usual ones.
    [[nodiscard]] int speed() const;

    /// True while a port keeps other users' programs out. Only of State::Raw.
    [[nodiscard]] bool isExclusive() const;

    /// Makes the system report purges from now on. @return false if it cannot
    [[nodiscard]] bool reportPurges();
    [[nodiscard]] Purges takePurges();

private:
    [[nodiscard]] bool openMaster();
    [[nodiscard]] bool holdSlave(const char* slavePath);
    void take(std::chrono::steady_clock::time_point deadline);

    const State m_state;
    QTemporaryDir m_folder;
    const std::string m_path;
    int m_master = -1;
    int m_slave = -1; ///< keeps the settings while no port is open
    bool m_reportsPurges = false;
    Purges m_purges;
    std::string m_received;
};

} // namespace pelorin
