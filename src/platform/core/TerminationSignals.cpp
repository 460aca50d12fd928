#include "platform/core/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pelorin {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1}; // a signal handler can reach nothing but globals

void handle(int /*number*/)
{
    const int error = errno; // of whatever the thread was doing
    const char byte = 1;
    (void)!::write(pipeEnds[1], &byte, 1); // a full pipe already says it
    errno = error;
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then end the program at once, as if this were not here
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::array<char, 256> bytes = {};
        while (::read(pipeEnds[0], bytes.data(), bytes.size()) > 0) {
        }
        Q_EMIT received();
    });
    struct sigaction action = {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    for (const int number : kSignals) { // cannot fail for these
        auto& former = m_former.emplace_back();
        (void)::sigaction(number, nullptr, &former);
        if (number != SIGHUP || former.sa_handler != SIG_IGN) // as nohup has it
            (void)::sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (!m_notifier)
        return;
    for (std::size_t index = 0; index < kSignals.size(); ++index)
        (void)::sigaction(kSignals[index], &m_former[index], nullptr);
    m_notifier.reset();
    for (int& end : pipeEnds) {
        (void)::close(end); // nothing is lost with it
        end = -1;
    }
}

} // namespace pelorin
