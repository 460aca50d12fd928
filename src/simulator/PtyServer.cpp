#include "simulator/PtyServer.h"

#include "platform/core/LineSpeeds.h"
#include "simulator/SimulatedDevice.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace pelorin {

namespace {

using namespace std::chrono_literals;
using Clock = SimulatedDevice::Clock;

/// After which a change of the line speed, a vanished device or the end is noticed.
constexpr auto kLongestWait = 10ms;
constexpr speed_t kFirstSpeed = B4800;

int baudOf(speed_t speed)
{
    const auto* known = std::ranges::find(kLineSpeeds, speed, &std::pair<int, speed_t>::second);
    return known == kLineSpeeds.end() ? 0 : known->first;
}

LineSettings lineOf(const termios& settings)
{
    LineSettings line{baudOf(cfgetospeed(&settings))};
    const char parity = settings.c_cflag & PARODD ? 'O' : 'E';
    line.parity = settings.c_cflag & PARENB ? parity : 'N';
    line.dataBits = (settings.c_cflag & CSIZE) == CS7 ? 7 : 8;
    line.stopBits = settings.c_cflag & CSTOPB ? 2 : 1;
    return line;
}

/// Sets a fresh terminal to plain bytes: without it they would be echoed and translated.
int makePlain(int terminal)
{
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0)
        return errno;
    cfmakeraw(&settings);
    (void)cfsetspeed(&settings, kFirstSpeed); // a known constant
    return tcsetattr(terminal, TCSANOW, &settings) == 0 ? 0 : errno;
}

} // namespace

void PtyServer::Descriptor::reset(int number)
{
    if (m_number >= 0)
        (void)::close(m_number); // nothing is pending on it that a failure could lose
    m_number = number;
}

PtyServer::PtyServer(std::shared_ptr<SimulatedDevice> device, std::string link)
    : m_device(std::move(device)), m_link(std::move(link))
{
}

PtyServer::~PtyServer()
{
    m_stopping = true;
    if (m_thread.joinable())
        m_thread.join(); // its waits are short
    closeTerminal();
}

int PtyServer::start()
{
    if (const int error = openTerminal())
        return error;
    m_thread = std::thread([this] { run(); });
    return 0;
}

std::string PtyServer::path() const
{
    const std::lock_guard lock(m_mutex);
    return m_path;
}

int PtyServer::openTerminal()
{
    m_master.reset(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 64> name{};
    if (m_master.get() < 0 || ::grantpt(m_master.get()) != 0 || ::unlockpt(m_master.get()) != 0)
        return errno;
    int error = ::ptsname_r(m_master.get(), name.data(), name.size());
    if (error == 0) {
        m_slave.reset(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        error = m_slave.get() < 0 ? errno : makePlain(m_slave.get());
    }
    if (error == 0)
        error = pointLink(name.data());
    if (error != 0)
        return error;
    const std::lock_guard lock(m_mutex);
    m_path = name.data();
    return 0;
}

void PtyServer::closeTerminal()
{
    const std::string path = this->path();
    std::error_code error;
    // Only a link of ours goes; whatever else has taken its place stays.
    if (!m_link.empty() && !path.empty() && std::filesystem::read_symlink(m_link, error) == path)
        (void)std::filesystem::remove(m_link, error); // nothing more can be done about it
    {
        const std::lock_guard lock(m_mutex);
        m_path.clear();
    }
    m_slave.reset();
    m_master.reset();
}

/// Makes the link point to a path, in one step if it is left over from another run.
int PtyServer::pointLink(const std::string& path)
{
    if (m_link.empty())
        return 0;
    std::error_code error;
    const auto status = std::filesystem::symlink_status(m_link, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_symlink(status))
        return EEXIST;
    const std::string fresh = m_link + ".new";
    (void)std::filesystem::remove(fresh, error); // left over at most
    std::filesystem::create_symlink(path, fresh, error);
    if (!error)
        std::filesystem::rename(fresh, m_link, error);
    return error.value();
}

void PtyServer::run()
{
    while (!m_stopping) {
        const bool present = m_device->isPresent(Clock::now());
        if (!present && m_master.get() >= 0)
            closeTerminal();
        if (present && m_master.get() < 0 && openTerminal() != 0)
            closeTerminal(); // tried again after the wait
        if (m_master.get() >= 0)
            serve();
        waitForTraffic();
    }
}

void PtyServer::serve()
{
    // A program that ends without giving up its exclusive use would lock out the next one,
    // because our own descriptor keeps the terminal alive.
    (void)::ioctl(m_slave.get(), TIOCNXCL); // cannot fail on a terminal
    followSpeed();
    std::array<char, 256> bytes{};
    const auto count = ::read(m_master.get(), bytes.data(), bytes.size());
    if (count > 0) {
        followSpeed(); // which may have changed just before they were sent
        (void)m_device->receive({bytes.data(), static_cast<std::size_t>(count)}, Clock::now());
    }
    send(m_device->take(Clock::now()));
}

void PtyServer::followSpeed()
{
    termios settings{};
    if (tcgetattr(m_master.get(), &settings) == 0) // of the other side
        m_device->setLine(lineOf(settings), Clock::now());
}

void PtyServer::send(std::string_view bytes)
{
    // What does not fit is lost, as on a line whose reader is too slow.
    if (!bytes.empty())
        (void)!::write(m_master.get(), bytes.data(), bytes.size());
}

void PtyServer::waitForTraffic()
{
    const auto now = Clock::now();
    const auto due = m_device->nextDue(now).value_or(now + kLongestWait);
    const auto wait = std::clamp<std::chrono::nanoseconds>(due - now, 0ns, kLongestWait);
    const timespec limit{0, static_cast<long>(wait.count())};
    pollfd master{m_master.get(), POLLIN, 0};
    (void)::ppoll(&master, 1, &limit, nullptr); // the terminal is looked at in any case
}

} // namespace pelorin
