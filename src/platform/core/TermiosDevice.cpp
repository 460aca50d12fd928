#include "platform/core/TermiosDevice.h"

#include "platform/core/LineSpeeds.h"

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <utility>

namespace pelorin {

namespace {

/// What makes up the shape of a byte on the line.
constexpr tcflag_t kByteShape = CSIZE | PARENB | PARODD | CSTOPB;

/// Makes a call again for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// The error code of a call that has just returned. However a driver puts it, a device that was
/// unplugged has gone.
int errorAfter(ssize_t result)
{
    if (result >= 0)
        return 0;
    return errno == EIO || errno == ENXIO ? ENODEV : errno;
}

/// Every byte passes as it is, and nothing but the program moves RTS: it switches a supply, so
/// neither flow control nor closing may touch it.
void makeRaw(termios& settings)
{
    cfmakeraw(&settings);
    settings.c_iflag = 0;
    settings.c_cflag |= CREAD | CLOCAL;
    settings.c_cflag &= ~tcflag_t{HUPCL | CRTSCTS | CMSPAR};
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
}

void setByteShape(termios& settings, const LineSettings& line)
{
    settings.c_cflag &= ~kByteShape;
    settings.c_cflag |= line.dataBits == 7 ? CS7 : CS8;
    if (line.parity != 'N')
        settings.c_cflag |= line.parity == 'O' ? PARENB | PARODD : PARENB;
    settings.c_cflag |= line.stopBits == 2 ? CSTOPB : 0;
}

bool isSameLine(const termios& one, const termios& other)
{
    return cfgetospeed(&one) == cfgetospeed(&other) && cfgetispeed(&one) == cfgetispeed(&other) &&
           (one.c_cflag & kByteShape) == (other.c_cflag & kByteShape);
}

} // namespace

TermiosDevice::TermiosDevice(const PosixCalls& calls) : m_calls(calls) {}

TermiosDevice::~TermiosDevice()
{
    // Nothing can be done about a failure here, and a device that has gone makes most of it fail.
    if (m_fd >= 0) {
        (void)discardPendingOutput(); // with stuck output closing would block for half a minute
        if (m_exclusive)
            (void)m_calls.ioctl(m_fd, TIOCNXCL, nullptr);
        (void)m_calls.close(m_fd);
    }
    if (m_wake >= 0)
        (void)m_calls.close(m_wake);
}

int TermiosDevice::open(const std::string& path, const LineSettings& line)
{
    int error = openDescriptor(path);
    if (error == 0)
        error = claim();
    if (error == 0) {
        (void)setLine(line); // who opens a port sets its line next, and is told then
        error = raiseModemLines();
    }
    if (error == 0)
        error = discardInput(); // what was sent while nobody listened
    return error;
}

int TermiosDevice::openDescriptor(const std::string& path)
{
    m_wake = uninterrupted([this] { return m_calls.eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK); });
    if (m_wake < 0)
        return errorAfter(m_wake);
    constexpr int kFlags = O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC;
    m_fd = uninterrupted([&] { return m_calls.open(path.c_str(), kFlags); });
    return errorAfter(m_fd);
}

/// Keeps everybody else out before anything of the device is changed.
int TermiosDevice::claim()
{
    termios settings{}; // only a terminal has any: a plain file ends here
    int error = errorAfter(uninterrupted([&] { return m_calls.tcgetattr(m_fd, &settings); }));
    if (error != 0)
        return error;
    error = errorAfter(uninterrupted([this] { return m_calls.flock(m_fd, LOCK_EX | LOCK_NB); }));
    if (error != 0)
        return error == EWOULDBLOCK ? EBUSY : error;
    error = errorAfter(uninterrupted([this] { return m_calls.ioctl(m_fd, TIOCEXCL, nullptr); }));
    m_exclusive = error == 0;
    return error;
}

int TermiosDevice::raiseModemLines()
{
    const int error = setModemLines(true, TIOCM_DTR | TIOCM_RTS);
    const bool hasNoLines = error == ENOTTY || error == EINVAL;
    return hasNoLines ? 0 : error;
}

int TermiosDevice::setLine(const LineSettings& line)
{
    const auto* speed = std::ranges::find(kLineSpeeds, line.baud, &std::pair<int, speed_t>::first);
    if (speed == kLineSpeeds.end())
        return EINVAL;
    termios former{};
    int error = errorAfter(uninterrupted([&] { return m_calls.tcgetattr(m_fd, &former); }));
    if (error != 0)
        return error;

    termios wanted = former;
    makeRaw(wanted);
    setByteShape(wanted, line);
    (void)cfsetspeed(&wanted, speed->second); // cannot fail with a constant
    error = errorAfter(uninterrupted([&] { return m_calls.tcsetattr(m_fd, TCSANOW, &wanted); }));

    // Success only means that something of it was taken.
    termios found{};
    if (error == 0)
        error = errorAfter(uninterrupted([&] { return m_calls.tcgetattr(m_fd, &found); }));
    if (error == 0 && !isSameLine(wanted, found))
        error = EINVAL;
    if (error != 0)
        (void)uninterrupted([&] { return m_calls.tcsetattr(m_fd, TCSANOW, &former); });
    return error;
}

int TermiosDevice::setRts(bool on)
{
    return setModemLines(on, TIOCM_RTS);
}

int TermiosDevice::setModemLines(bool on, int lines)
{
    return errorAfter(
        uninterrupted([&] { return m_calls.ioctl(m_fd, on ? TIOCMBIS : TIOCMBIC, &lines); }));
}

int TermiosDevice::discardInput()
{
    return errorAfter(uninterrupted([this] { return m_calls.tcflush(m_fd, TCIFLUSH); }));
}

int TermiosDevice::discardPendingOutput()
{
    if (!m_outputPending)
        return 0;
    const int error = errorAfter(uninterrupted([this] { return m_calls.tcflush(m_fd, TCOFLUSH); }));
    m_outputPending = error != 0;
    return error;
}

int TermiosDevice::wait(short events, TimePoint deadline)
{
    for (;;) {
        pollfd entries[] = {{m_fd, events, 0}, {m_wake, POLLIN, 0}};
        const auto left = std::max(deadline - m_calls.now(), std::chrono::nanoseconds(0));
        if (m_calls.poll(entries, std::size(entries), left) < 0) {
            if (errno == EINTR)
                continue;
            return errorAfter(-1);
        }
        if ((entries[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0)
            return ENODEV;
        if (entries[1].revents != 0)
            return ECANCELED;
        return entries[0].revents != 0 ? 0 : ETIMEDOUT;
    }
}

void TermiosDevice::cancel(bool on)
{
    if (on == m_cancelled)
        return;
    m_cancelled = on;
    std::uint64_t one = 1; // neither fails: the event is never full, and never empty when reset
    (void)uninterrupted([&] {
        return on ? m_calls.write(m_wake, &one, sizeof one)
                  : m_calls.read(m_wake, &one, sizeof one);
    });
}

int TermiosDevice::read(std::span<char> room, std::size_t& count)
{
    const auto result = uninterrupted([&] { return m_calls.read(m_fd, room.data(), room.size()); });
    count = result > 0 ? static_cast<std::size_t>(result) : 0;
    return result == 0 ? ENODEV : errorAfter(result);
}

int TermiosDevice::write(std::string_view bytes, std::size_t& taken)
{
    const auto count =
        uninterrupted([&] { return m_calls.write(m_fd, bytes.data(), bytes.size()); });
    taken = count > 0 ? static_cast<std::size_t>(count) : 0;
    m_outputPending = m_outputPending || taken > 0;
    return count == 0 ? EAGAIN : errorAfter(count);
}

int TermiosDevice::countQueued(int& count)
{
    return errorAfter(uninterrupted([&] { return m_calls.ioctl(m_fd, TIOCOUTQ, &count); }));
}

int TermiosDevice::drain()
{
    int queued = 0;
    int error = countQueued(queued);
    if (error == 0)
        error = queued > 0 ? EAGAIN : errorAfter(m_calls.tcdrain(m_fd));
    m_outputPending = m_outputPending && error != 0;
    return error == EINTR ? EAGAIN : error;
}

} // namespace pelorin
