#pragma once

#include "platform/core/MessageTarget.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

class QObject;

namespace pelorin {

class ComPort;

/// The thread that talks to one serial device: it opens its port, performs one request at a time,
/// notices a device that goes while nothing is requested, and closes the port as its last act.
///
/// All operations are called on the user-interface thread, but tick. A request returns at once
/// with its number; when it has been performed its result is posted to the reply target with this
/// number. Every request is answered exactly once: with 0 if it could not be performed, since no
/// worker runs, another of its kind replaced it, or the worker ends.
class RequestWorker
{
public:
    class Context;

    /// When a follower is called again.
    struct FollowTimes
    {
        using TimePoint = std::chrono::steady_clock::time_point;

        TimePoint bytesFrom{};                 ///< once bytes have come, but not before this
        TimePoint atLatest = TimePoint::max(); ///< without any, too
    };

    /// Takes what comes over the port unasked.
    using Follower = std::function<FollowTimes(Context&)>;

    /// What the jobs of one run of the worker have: called on its thread only.
    class Context
    {
    public:
        [[nodiscard]] virtual ComPort& port() = 0;
        /// Waits. @return false at once when the request is cut short or the worker is to stop
        [[nodiscard]] virtual bool pause(std::chrono::milliseconds duration) = 0;
        /// Has everything that comes between the requests of this run taken by a follower from now
        /// on, or by nobody.
        virtual void follow(Follower follower) = 0;
        /// Whether nobody waits for this worker any more; what it notices concerns nobody then.
        [[nodiscard]] virtual bool isLeft() const = 0;

    protected:
        ~Context() = default;
    };

    /// Performs a request on the worker's thread. @return the result that is posted
    using Job = std::function<int(Context&)>;

    RequestWorker();
    RequestWorker(const RequestWorker&) = delete;
    RequestWorker& operator=(const RequestWorker&) = delete;
    /// Stops the worker without a completion; one that is stuck is left to itself.
    ~RequestWorker();

    /// Where completions go; no window stops them.
    void setReplyTarget(QObject* window, int message) { m_replies.aim(window, message); }

    /// Starts the worker, which must not run.
    /// @param opening the first request; a result of 0 ends the worker
    /// @param gone called on the worker's thread, once, when the device goes while nothing is
    ///        requested
    /// @param error 0, or the system's error code if it gives no thread: the request is answered
    ///        with 0 then
    RequestId start(std::unique_ptr<ComPort> port, Job opening, Job gone, int& error);

    /// @param kind not negative; of several requests the lowest kind is performed first
    RequestId submit(int kind, Job job);

    /// Has a job performed that nobody waits for; once if it was asked for several times before
    /// the worker came to it. Any thread, but not while start or stop are called.
    void tick(int kind, Job job);

    /// Cuts a request short, whether it runs or is still to begin.
    void cutShort(RequestId request);

    /// Ends the worker, which cuts short what it is doing.
    /// @param last performed before the port is closed, if the port was opened; the last that was
    ///        given of several stops
    /// @return the request that is answered when the port has been closed: with 1, or with 0 if
    ///         that takes too long; worker and port are left to themselves then, and what was
    ///         requested before is answered with 0
    RequestId stop(Job last = {});

    /// From start until it has ended or is left. The port may not be open yet, or be gone.
    [[nodiscard]] bool isRunning() const;

private:
    class Run;

    [[nodiscard]] int startThread(Job opening, Job gone);
    void leave();

    MessageTarget m_replies;
    RequestId m_lastRequest = 0;
    QTimer m_stopLimit;
    std::shared_ptr<Run> m_run; ///< shared with the thread
    std::thread m_thread;
};

} // namespace pelorin
