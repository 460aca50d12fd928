#pragma once

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "sensor/SequenceRunner.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QTest>

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
        std::optional<bool> result;
        runner.openPort(number, [&result](bool opened) { result = opened; });
        return waitFor([&result] { return result.has_value(); }) && *result;
    }

    /// Runs a plan of nobody else's. @return whether it is done
    [[nodiscard]] bool run(Plan plan, const std::function<void(const Reply&)>& reply = {})
    {
        std::optional<Outcome> ended;
        const bool begun =
            runner.start(*this, std::move(plan),
                         {.reply = reply, .ended = [&ended](auto& outcome) { ended = outcome; }});
        return begun && waitFor([&ended] { return ended.has_value(); }) && ended->isDone();
    }

    [[nodiscard]] bool connectSensor(int number = 7)
    {
        const bool connected = openPort(number) && run(connectPlan());
        (void)frames();
        return connected;
    }

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames()
    {
        QString texts;
        for (const std::string& frame : sensor->takeReceivedFrames())
            texts += QString::fromStdString(frame) + QLatin1Char(' ');
        return texts.trimmed();
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
    std::shared_ptr<SimulatedSensor> sensor =
        std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    std::function<std::unique_ptr<ComPort>()> makePort = [this] {
        return std::make_unique<SimulatedComPort>(sensor);
    };
    bool deaf = false;   ///< to losses of the link
    int lossReports = 0; ///< of the link

    // Not to be used while the port is.
    QStringList devices;   ///< that ports were made of
    int lineError = 0;     ///< of the line settings
    std::string swallowed; ///< frames that begin so never arrive
    std::string cut;       ///< this frame is reported as cut
    std::string last;      ///< once this frame has left the sensor vanishes
    int skipped = 0;       ///< how often that frame leaves before
    Clock::duration supplyKept = Clock::duration::max(); ///< least time from a frame on

private:
    /// What reaches the sensor, and when.
    class Port final : public PortDecorator
    {
    public:
        explicit Port(RunnerBench& bench) : PortDecorator(bench.makePort()), m_bench(bench) {}
        int open() override { return portWithoutSupply().open(); }
        int setLine(const LineSettings& line) override
        {
            return m_bench.lineError != 0 ? m_bench.lineError : port().setLine(line);
        }
        int setRts(bool on) override { return (on ? portWithoutSupply() : port()).setRts(on); }
        WriteResult write(std::string_view bytes) override
        {
            if (!m_bench.swallowed.empty() && bytes.starts_with(m_bench.swallowed))
                return {0, static_cast<int>(bytes.size())};
            const auto result = port().write(bytes);
            if (!bytes.starts_with("PROG"))
                m_bench.m_lastFrame = Clock::now();
            if (bytes == m_bench.cut)
                return {0, 1};
            if (bytes == m_bench.last && m_bench.skipped-- == 0)
                m_bench.sensor->vanish();
            return result;
        }

    private:
        [[nodiscard]] ComPort& portWithoutSupply()
        {
            const auto kept = Clock::now() - m_bench.m_lastFrame;
            m_bench.supplyKept = std::min(m_bench.supplyKept, kept);
            return port();
        }

        RunnerBench& m_bench;
    };

    void customEvent(QEvent* /*lost*/) override
    {
        ++lossReports;
        if (!deaf)
            runner.linkLost();
    }

    Clock::time_point m_lastFrame; ///< the port's, as supplyKept

public:
    const ComPortFactory factory{[this](const QString& device) {
        devices << device;
        return std::make_unique<Port>(*this);
    }};
    SensorLink link{factory};
    SequenceRunner runner{link};
};

} // namespace pelorin::test
