#include "support/PseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pelorin {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

bool waitFor(int fd, short events, Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd entry = {fd, events, 0};
    return poll(&entry, 1, static_cast<int>(std::max(left, 0ms).count())) > 0 &&
           (entry.revents & events) != 0;
}

void closeDescriptor(int& fd)
{
    if (fd >= 0)
        close(fd);
    fd = -1;
}

} // namespace

PseudoTerminal::PseudoTerminal(State state)
    : m_state(state), m_path(m_folder.filePath(QStringLiteral("ttyRig")).toStdString())
{
    (void)plugIn(); // whoever uses it sees isPluggedIn
}

PseudoTerminal::~PseudoTerminal()
{
    unplug();
}

bool PseudoTerminal::plugIn()
{
    if (isPluggedIn())
        return true;
    if (!openMaster())
        unplug();
    return isPluggedIn();
}

bool PseudoTerminal::openMaster()
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    char slavePath[64];
    return m_master >= 0 && grantpt(m_master) == 0 && unlockpt(m_master) == 0 &&
           ptsname_r(m_master, slavePath, sizeof slavePath) == 0 &&
           (m_state == State::Fresh || holdSlave(slavePath)) &&
           symlink(slavePath, m_path.c_str()) == 0;
}

bool PseudoTerminal::holdSlave(const char* slavePath)
{
    m_slave = open(slavePath, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings;
    if (m_slave < 0 || tcgetattr(m_slave, &settings) != 0)
        return false;
    cfmakeraw(&settings);
    return tcsetattr(m_slave, TCSANOW, &settings) == 0;
}

void PseudoTerminal::unplug()
{
    (void)unlink(m_path.c_str());
    closeDescriptor(m_master);
    closeDescriptor(m_slave);
    m_reportsPurges = false;
    m_purges = {};
    m_received.clear();
}

bool PseudoTerminal::send(std::string_view bytes)
{
    const auto deadline = Clock::now() + 5s;
    while (!bytes.empty() && waitFor(m_master, POLLOUT, deadline)) {
        const auto count = write(m_master, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return bytes.empty();
}

std::string PseudoTerminal::receive(std::size_t count, std::chrono::milliseconds limit)
{
    const auto deadline = Clock::now() + limit;
    while (m_received.size() < count && Clock::now() < deadline)
        take(deadline);

    std::string bytes = m_received.substr(0, count);
    m_received.erase(0, bytes.size());
    return bytes;
}

/// Takes what the system has for the master: bytes, or a report in front of them.
void PseudoTerminal::take(Clock::time_point deadline)
{
    if (!waitFor(m_master, POLLIN, deadline))
        return;
    char buffer[1024];
    const auto size = read(m_master, buffer, sizeof buffer);
    if (size <= 0)
        return;
    std::string_view bytes(buffer, static_cast<std::size_t>(size));
    if (m_reportsPurges) {
        m_purges.input |= (bytes.front() & TIOCPKT_FLUSHREAD) != 0;
        m_purges.output |= (bytes.front() & TIOCPKT_FLUSHWRITE) != 0;
        bytes.remove_prefix(1);
    }
    m_received += bytes;
}

termios PseudoTerminal::settings() const
{
    termios settings{};
    (void)tcgetattr(m_master, &settings); // unplugged it has none
    return settings;
}

int PseudoTerminal::speed() const
{
    const termios found = settings();
    switch (cfgetospeed(&found)) {
    case B4800:
        return 4800;
    case B38400:
        return 38400;
    case B115200:
        return 115200;
    default:
        return 0;
    }
}

bool PseudoTerminal::isExclusive() const
{
    int exclusive = 0;
    return ioctl(m_slave, TIOCGEXCL, &exclusive) == 0 && exclusive != 0;
}

bool PseudoTerminal::reportPurges()
{
    const int on = 1;
    m_reportsPurges = ioctl(m_master, TIOCPKT, &on) == 0;
    return m_reportsPurges;
}

PseudoTerminal::Purges PseudoTerminal::takePurges()
{
    while (waitFor(m_master, POLLIN, Clock::now()))
        take(Clock::now());
    return std::exchange(m_purges, {});
}

} // namespace pelorin
