#include "platform/core/RequestWorker.h"

#include "platform/core/ComPort.h"
#include "platform/core/EventDescriptor.h"
#include "platform/core/Pacing.h"
#include "platform/core/PosixCalls.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

namespace pelorin {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto kStopLimit = 1000ms;
constexpr auto kNoLimit = Clock::time_point::max();

/// Waits for one of the entries' events, until a time; a signal only wakes it.
void pollUntil(std::span<pollfd> entries, Clock::time_point limit)
{
    (void)pollFor(entries.data(), entries.size(),
                  std::max<std::chrono::nanoseconds>(limit - Clock::now(), 0ns));
}

} // namespace

/// One run of the worker: what its thread and the user-interface thread share.
class RequestWorker::Run final : public Context
{
public:
    struct Request
    {
        RequestId id = 0; ///< 0: nobody waits for it
        Job job;
        bool isCut = false;
    };

    /// @param opening the number of the first request
    Run(std::unique_ptr<ComPort> port, MessageTarget::Poster replies, RequestId opening)
        : m_port(std::move(port)), m_replies(std::move(replies))
    {
        const std::lock_guard lock(m_mutex);
        begin({opening, {}});
    }

    // The worker's thread.

    void perform(const Job& opening, const Job& gone)
    {
        const int opened = opening(*this);
        if (opened != 0) {
            answer(opened);
            while (const Job job = next(gone))
                answer(job(*this));
        }
        end(opened != 0);
    }

    [[nodiscard]] ComPort& port() override { return *m_port; }

    [[nodiscard]] bool pause(std::chrono::milliseconds duration) override
    {
        const auto limit = Clock::now() + duration;
        for (;;) {
            {
                const std::lock_guard lock(m_mutex);
                if (m_stopping || m_current.isCut)
                    return false;
            }
            if (Clock::now() >= limit)
                return true;
            (void)waitForWake(limit, {});
        }
    }

    void follow(Follower follower) override
    {
        m_follower = std::move(follower);
        m_followTimes = {};
    }

    [[nodiscard]] bool isLeft() const override { return m_left; }

    // Any thread.

    /// Gets what the worker is woken with. Before the thread starts.
    /// @return 0 or the system's error code
    [[nodiscard]] int prepare() { return m_wake.open(); }

    /// @return false if the worker takes no more requests
    [[nodiscard]] bool put(int kind, Request request)
    {
        const std::lock_guard lock(m_mutex);
        if (m_stopping || m_ended)
            return false;
        const Request replaced = std::exchange(m_requests[kind], std::move(request));
        post(replaced.id, 0);
        m_wake.signal();
        return true;
    }

    void cutShort(RequestId id)
    {
        const std::lock_guard lock(m_mutex);
        if (m_current.id == id)
            cutCurrent();
        for (auto& [kind, request] : m_requests)
            request.isCut = request.isCut || request.id == id;
    }

    /// @return false if the worker has ended already
    [[nodiscard]] bool stop(RequestId id, Job last)
    {
        const std::lock_guard lock(m_mutex);
        if (m_ended)
            return false;
        m_stopping = true;
        m_stopRequests.push_back(id);
        if (last)
            m_last = std::move(last);
        cutCurrent(); // holds for a port that is yet to be opened, too
        m_port->interrupt();
        return true;
    }

    /// From here on nothing of this run is posted.
    void leave()
    {
        const std::lock_guard lock(m_mutex);
        m_left = true;
    }

    /// Leaves a worker that does not end: all that was requested of it has failed.
    /// @return false if it has ended
    [[nodiscard]] bool giveUp()
    {
        const std::lock_guard lock(m_mutex);
        if (m_ended)
            return false;
        failRequests();
        answerStops(0);
        m_left = true;
        return true;
    }

    [[nodiscard]] bool waitForEnd(std::chrono::milliseconds limit)
    {
        std::unique_lock lock(m_mutex);
        return m_hasEnded.wait_for(lock, limit, [this] { return m_ended; });
    }

    [[nodiscard]] bool hasEnded() const
    {
        const std::lock_guard lock(m_mutex);
        return m_ended;
    }

private:
    /// Answers the request that was performed.
    void answer(int result)
    {
        m_followTimes = {Clock::now(), Clock::now()}; // what the request has taken, too
        const std::lock_guard lock(m_mutex);
        post(m_current.id, result);
        begin({}); // what is taken between requests is no part of one that was cut short
    }

    /// Waits for the next request. @return nothing when the worker is to stop
    [[nodiscard]] Job next(const Job& gone)
    {
        for (;;) {
            {
                const std::lock_guard lock(m_mutex);
                if (m_stopping)
                    return {};
                if (!m_requests.empty()) {
                    begin(std::move(m_requests.extract(m_requests.begin()).mapped()));
                    return std::move(m_current.job);
                }
            }
            if (m_hasGone) {
                (void)waitForWake(kNoLimit, {});
            } else if (!m_port->isOpen() || idle()) {
                m_hasGone = true; // a job has found it so, or it has gone just now
                (void)gone(*this);
            }
        }
    }

    /// Waits between requests, until there may be one. @return whether the device has gone
    [[nodiscard]] bool idle()
    {
        if (!m_follower)
            return waitForWake(kNoLimit, m_port->watch());
        if (Clock::now() < m_followTimes.bytesFrom)
            return waitForWake(m_followTimes.bytesFrom, m_port->watch());
        const bool gone =
            waitForWake(m_followTimes.atLatest, m_port->watch(), m_port->watchBytes());
        if (!gone)
            m_followTimes = m_follower(*this);
        return gone;
    }

    /// @return whether the watched device has gone
    [[nodiscard]] bool waitForWake(Clock::time_point limit, ComPort::Watch watch,
                                   ComPort::Watch bytes = {})
    {
        pollfd entries[] = {{m_wake.descriptor(), POLLIN, 0},
                            {watch.descriptor, watch.events, 0},
                            {bytes.descriptor, bytes.events, 0}};
        pollUntil(entries, std::min(limit, bytes.due));
        if (entries[0].revents != 0)
            m_wake.reset();
        return entries[1].revents != 0;
    }

    void end(bool opened)
    {
        Job last;
        {
            const std::lock_guard lock(m_mutex);
            last = std::move(m_last);
        }
        if (last && opened)
            (void)last(*this);
        m_port->close();

        const std::lock_guard lock(m_mutex);
        m_ended = true;
        failRequests();
        answerStops(1);
        m_hasEnded.notify_all();
    }

    // With m_mutex held: what is answered is decided together with who answers it.

    /// The port's exchanges have numbers of their own: requests are not performed in the order of
    /// theirs.
    void begin(Request request)
    {
        m_current = std::move(request);
        m_port->beginExchange(++m_exchange);
        if (m_current.isCut)
            cutCurrent();
    }

    void cutCurrent()
    {
        m_current.isCut = true;
        m_port->cutShort(m_exchange);
        m_wake.signal();
    }

    void post(RequestId id, int result)
    {
        if (id != 0 && !m_left)
            m_replies.post(static_cast<std::uintptr_t>(result), id);
    }

    void failRequests()
    {
        post(m_current.id, 0);
        m_current.id = 0;
        for (const auto& [kind, request] : m_requests)
            post(request.id, 0);
        m_requests.clear();
    }

    void answerStops(int result)
    {
        for (const RequestId id : m_stopRequests)
            post(id, result);
    }

    const std::unique_ptr<ComPort> m_port;
    const MessageTarget::Poster m_replies;
    EventDescriptor m_wake;
    bool m_hasGone = false; ///< the worker's, as the next
    Follower m_follower;
    FollowTimes m_followTimes;
    std::atomic<bool> m_left = false;

    mutable std::mutex m_mutex; ///< guards all below
    std::condition_variable m_hasEnded;
    std::map<int, Request> m_requests; ///< by kind
    Request m_current;
    std::uint64_t m_exchange = 0;
    std::vector<RequestId> m_stopRequests;
    Job m_last;
    bool m_stopping = false;
    bool m_ended = false;
};

RequestWorker::RequestWorker()
{
    m_stopLimit.setSingleShot(true);
    QObject::connect(&m_stopLimit, &QTimer::timeout, &m_stopLimit, [this] {
        if (m_run && m_run->giveUp())
            leave();
    });
}

RequestWorker::~RequestWorker()
{
    if (!m_run)
        return;
    m_run->leave();
    if (m_run->stop(0, {}) && !m_run->waitForEnd(kStopLimit))
        leave();
    if (m_thread.joinable())
        m_thread.join();
}

RequestId RequestWorker::start(std::unique_ptr<ComPort> port, Job opening, Job gone, int& error)
{
    m_stopLimit.stop(); // it was the former run's
    if (m_thread.joinable())
        m_thread.join(); // it has ended
    const RequestId id = ++m_lastRequest;
    m_run = std::make_shared<Run>(std::move(port), m_replies.poster(), id);
    error = m_run->prepare();
    if (error == 0)
        error = startThread(std::move(opening), std::move(gone));
    if (error != 0) {
        m_run.reset();
        m_replies.poster().post(0, id);
    }
    return id;
}

/// @return 0 or the system's error code
int RequestWorker::startThread(Job opening, Job gone)
{
    try {
        m_thread = std::thread([run = m_run, opening = std::move(opening), gone = std::move(gone)] {
            run->perform(opening, gone);
        });
    } catch (const std::system_error& failure) {
        return failure.code().value();
    }
    return 0;
}

RequestId RequestWorker::submit(int kind, Job job)
{
    const RequestId id = ++m_lastRequest;
    if (!m_run || !m_run->put(kind, {id, std::move(job)}))
        m_replies.poster().post(0, id);
    return id;
}

void RequestWorker::tick(int kind, Job job)
{
    if (const auto run = m_run)
        (void)run->put(kind, {0, std::move(job)});
}

void RequestWorker::cutShort(RequestId request)
{
    if (m_run && request != 0)
        m_run->cutShort(request);
}

RequestId RequestWorker::stop(Job last)
{
    const RequestId id = ++m_lastRequest;
    if (m_run && m_run->stop(id, std::move(last))) {
        if (!m_stopLimit.isActive())
            m_stopLimit.start(Pacing::timeout(kStopLimit));
    } else {
        m_replies.poster().post(1, id);
    }
    return id;
}

bool RequestWorker::isRunning() const
{
    return m_run && !m_run->hasEnded();
}

/// The thread goes on alone, with all that it needs.
void RequestWorker::leave()
{
    m_thread.detach();
    m_run.reset();
}

} // namespace pelorin
