#include "cli/StandardStream.h"

#include <algorithm>
#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace pelorin::cli {

namespace {

constexpr qsizetype kLargestRest = qsizetype{16} * 1024 * 1024; ///< about an hour of positions
constexpr qsizetype kLargestPiece = PIPE_BUF; ///< a pipe that has room takes it at once

/// A terminal that has room for a part of a line would be waited for. It is opened once more, since
/// whoever shares the descriptor expects that.
/// @return -1 for what is no terminal
int openTerminal(int descriptor)
{
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(descriptor);
    return ::isatty(descriptor) == 1
               ? ::open(path.constData(), O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)
               : -1;
}

} // namespace

StandardStream::StandardStream(int descriptor)
    : m_terminal(openTerminal(descriptor)), m_descriptor(m_terminal < 0 ? descriptor : m_terminal),
      m_room(m_descriptor, QSocketNotifier::Write)
{
    m_room.setEnabled(false);
    QObject::connect(&m_room, &QSocketNotifier::activated, &m_room, [this] { writeRest(); });
}

StandardStream::~StandardStream()
{
    m_room.setEnabled(false);
    (void)::close(m_terminal); // fails where there is none
}

void StandardStream::write(const QByteArray& bytes)
{
    if (m_error != 0)
        return;
    m_rest += bytes;
    writeRest();
    if (m_rest.size() > kLargestRest)
        fail(ENOBUFS);
}

void StandardStream::giveUp()
{
    if (!isWritten())
        fail(ECANCELED);
}

void StandardStream::writeRest()
{
    pollfd stream{.fd = m_descriptor, .events = POLLOUT, .revents = 0};
    ssize_t count = 1;
    while (!isWritten() && count > 0 && ::poll(&stream, 1, 0) == 1) {
        const auto size = std::size_t(std::min(m_rest.size(), kLargestPiece));
        count = ::write(m_descriptor, m_rest.constData(), size);
        if (count < 0 && errno != EAGAIN && errno != EINTR)
            return fail(errno);
        m_rest.remove(0, qsizetype(std::max(count, ssize_t{0})));
    }
    m_room.setEnabled(!isWritten());
}

void StandardStream::fail(int error)
{
    m_error = error;
    m_rest.clear();
    m_room.setEnabled(false);
}

} // namespace pelorin::cli
