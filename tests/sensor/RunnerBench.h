#pragma once

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "sensor/SequenceRunner.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <atomic>
#include <chrono>
#include <thread>

namespace pelorin::test {

/// The conversation with a simulated sensor, without a window; the clock runs fast.
class RunnerBench final : public QObject
{
public:
    using Clock = std::chrono::steady_clock;

    RunnerBench()
    {
        Pacing::setSpeeds({100, 200, 5});
        link.setLossTarget(this);
    }

    [[nodiscard]] bool openPort(int number = 7)
    {
        int result = -1;
        runner.openPort(number, [&result](bool opened) { result = opened ? 1 : 0; });
        return QTest::qWaitFor([&result] { return result >= 0; }) && result == 1;
    }

    /// Runs a plan of nobody else's. @return whether it is done
    [[nodiscard]] bool run(Plan plan)
    {
        std::optional<Outcome> ended;
        const bool begun = runner.start(*this, std::move(plan),
                                        {.ended = [&ended](auto& outcome) { ended = outcome; }});
        return begun && QTest::qWaitFor([&ended] { return ended.has_value(); }) && ended->isDone();
    }

    [[nodiscard]] bool connectSensor()
    {
        const bool connected = openPort() && run(connectPlan());
        (void)frames();
        return connected;
    }

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames()
    {
        QStringList texts;
        for (const std::string& frame : sensor->takeReceivedFrames())
            texts << QString::fromStdString(frame);
        return texts.join(QLatin1Char(' '));
    }

    /// Lets the port go while nothing is requested, until the link has noticed.
    void loseLink()
    {
        const int losses = link.lossCount();
        sensor->vanish();
        while (link.lossCount() == losses)
            std::this_thread::yield();
    }

    const TestRegistry settings{kSimulatedBounds};
    const std::shared_ptr<SimulatedSensor> sensor =
        std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    std::string swallowed; ///< frames that begin so never arrive; change it while nothing runs
    bool cut = false;      ///< these are reported as cut
    std::string last;      ///< with the frame that begins so the sensor vanishes, once it has left
    std::atomic<Clock::duration> supplyKept{Clock::duration::max()}; ///< least time from a frame on
    bool deaf = false;                                               ///< to losses of the link

private:
    /// What reaches the sensor, and when.
    class Port final : public PortDecorator
    {
    public:
        explicit Port(RunnerBench& bench)
            : PortDecorator(std::make_unique<SimulatedComPort>(bench.sensor)), m_bench(bench)
        {
        }
        int open() override
        {
            noteSupplyOff();
            return PortDecorator::open();
        }
        int setRts(bool on) override
        {
            if (on)
                noteSupplyOff();
            return PortDecorator::setRts(on);
        }
        WriteResult write(std::string_view bytes) override
        {
            if (!m_bench.swallowed.empty() && bytes.starts_with(m_bench.swallowed))
                return {0, m_bench.cut ? 1 : static_cast<int>(bytes.size())};
            const WriteResult result = PortDecorator::write(bytes);
            if (!bytes.starts_with("PROG"))
                m_bench.m_lastFrame = Clock::now();
            if (!m_bench.last.empty() && bytes.starts_with(m_bench.last))
                m_bench.sensor->vanish();
            return result;
        }

    private:
        void noteSupplyOff()
        {
            const Clock::duration kept = Clock::now() - m_bench.m_lastFrame.load();
            m_bench.supplyKept = std::min(m_bench.supplyKept.load(), kept);
        }

        RunnerBench& m_bench;
    };

    void customEvent(QEvent* /*lost*/) override
    {
        if (!deaf)
            runner.linkLost();
    }

    std::atomic<Clock::time_point> m_lastFrame{Clock::time_point()};

public:
    const ComPortFactory factory{[this](const QString&) { return std::make_unique<Port>(*this); }};
    SensorLink link{factory};
    SequenceRunner runner{link};
};

} // namespace pelorin::test
