#pragma once

#include <QTemporaryDir>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace pelorin {

/// A device file for a serial port, with the test at the other end of the line. It can be unplugged
/// and plugged in again, and always has the same path. Until a port sets it up it echoes, and
/// rewrites line ends. One thread.
class PseudoTerminal
{
public:
    PseudoTerminal() { (void)plugIn(); } // whoever uses it sees isPluggedIn
    ~PseudoTerminal() { unplug(); }

    /// The device file; there is none while it is unplugged.
    [[nodiscard]] const std::string& path() const { return m_path; }

    [[nodiscard]] bool isPluggedIn() const { return m_master >= 0; }

    [[nodiscard]] bool plugIn()
    {
        char slavePath[64] = "";
        m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (grantpt(m_master) == 0 && unlockpt(m_master) == 0 &&
            ptsname_r(m_master, slavePath, sizeof slavePath) == 0)
            m_slave = open(slavePath, O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (m_slave < 0 || symlink(slavePath, m_path.c_str()) != 0)
            unplug();
        return isPluggedIn();
    }

    void unplug()
    {
        (void)unlink(m_path.c_str());
        (void)close(std::exchange(m_master, -1)); // they may be closed already
        (void)close(std::exchange(m_slave, -1));
    }

    /// Sends all of the bytes to the port. @return false if they are not taken
    [[nodiscard]] bool send(std::string_view bytes) const
    {
        while (!bytes.empty() && isReady(POLLOUT, kLimit)) {
            const auto count = write(m_master, bytes.data(), bytes.size());
            bytes.remove_prefix(static_cast<std::size_t>(std::max(count, ssize_t{0})));
        }
        return bytes.empty();
    }

    /// The next bytes from the port; fewer if nothing comes for a time.
    [[nodiscard]] std::string receive(std::size_t count,
                                      std::chrono::milliseconds limit = kLimit) const
    {
        std::string bytes(count, '\0');
        std::size_t size = 0;
        while (size < count && isReady(POLLIN, limit)) {
            const auto taken = read(m_master, bytes.data() + size, count - size);
            size += static_cast<std::size_t>(std::max(taken, ssize_t{0}));
        }
        bytes.resize(size);
        return bytes;
    }

    /// The other side, as another program has it.
    [[nodiscard]] int slave() const { return m_slave; }

    /// The settings at the port's side.
    [[nodiscard]] termios settings() const
    {
        termios settings{};
        (void)tcgetattr(m_slave, &settings); // unplugged it has none
        return settings;
    }

    /// Whether a port keeps other users' programs out.
    [[nodiscard]] bool isExclusive() const
    {
        int exclusive = 0;
        return ioctl(m_slave, TIOCGEXCL, &exclusive) == 0 && exclusive != 0;
    }

private:
    static constexpr auto kLimit = std::chrono::milliseconds(30'000);

    [[nodiscard]] bool isReady(short events, std::chrono::milliseconds limit) const
    {
        pollfd entry = {m_master, events, 0};
        return poll(&entry, 1, static_cast<int>(limit.count())) > 0 &&
               (entry.revents & events) != 0;
    }

    QTemporaryDir m_folder;
    const std::string m_path = m_folder.filePath(QStringLiteral("ttyRig")).toStdString();
    int m_master = -1;
    int m_slave = -1; ///< keeps the settings while no port is open
};

} // namespace pelorin
