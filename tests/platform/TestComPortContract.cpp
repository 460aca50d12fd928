#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedComPort.h"
#include "support/PseudoTerminal.h"
#include "support/Rows.h"

#include <QTest>

#include <poll.h>

#include <cerrno>
#include <future>
#include <thread>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

namespace {

/// The device that a port under test is on, and the other end of its line. One thread.
struct Peer
{
    /// One more port on the device, not yet open.
    std::function<std::unique_ptr<ComPort>()> makePort;
    /// Sends bytes to the open port, which can read them within its time limit.
    std::function<void(std::string_view bytes)> send;
    /// The next bytes that the port wrote; fewer if the rest does not come.
    std::function<std::string(std::size_t count)> receive;
    std::function<void()> vanish;
    std::function<void()> comeBack;
};

Peer pseudoTerminal()
{
    const auto terminal = std::make_shared<PseudoTerminal>();
    return {[=] { return std::make_unique<TermiosComPort>(terminal->path()); },
            [=](std::string_view bytes) { QVERIFY(terminal->send(bytes)); },
            [=](std::size_t count) { return terminal->receive(count); },
            [=] { terminal->unplug(); }, [=] { QVERIFY(terminal->plugIn()); }};
}

/// A simulated device that takes and sends bytes as they are, at any speed.
class PlainDevice final : public SimulatedDevice
{
public:
    void send(std::string_view bytes)
    {
        const std::lock_guard lock(mutex());
        transmit({}, std::string(bytes), Clock::now());
        changed();
    }

    std::string received; ///< mutex()

private:
    int ownBaud() const override { return line().baud; }
    std::string_view commandOf(std::string_view) const override { return {}; }
    void handleByte(char byte, TimePoint) override { received += byte; }
    void handleFrame(std::string_view, TimePoint) override {}
};

Peer simulatedDevice()
{
    const auto device = std::make_shared<PlainDevice>();
    const auto send = [=](std::string_view bytes) {
        device->send(bytes);
        // A purge after it must find all of them: those still on the line would outlast it.
        std::this_thread::sleep_for(SimulatedDevice::byteTime({4800}) * bytes.size());
    };
    // A write has given the device its bytes when it returns.
    const auto receive = [=](std::size_t) { return std::exchange(device->received, {}); };
    return {[=] { return std::make_unique<SimulatedComPort>(device); }, send, receive,
            [=] { device->vanish(); }, [=] { device->comeBack(); }};
}

/// An operation of a port, and the error that it ends with.
struct Operation
{
    const char* name;
    int (*run)(ComPort&);
    bool needsDevice = true;
};

const std::vector<Operation> kOperations = {
    {"read", [](ComPort& port) { return port.read().error; }},
    {"take", [](ComPort& port) { return port.take().error; }},
    {"write", [](ComPort& port) { return port.write("PROG\r").error; }},
    {"purge", [](ComPort& port) { return port.purge(ComPort::Purge::Both); }},
    {"setLine", [](ComPort& port) { return port.setLine({38400}); }},
    {"setRts", [](ComPort& port) { return port.setRts(true); }},
    {"setTimeouts", [](ComPort& port) { return port.setTimeouts({}); }, false},
    {"setQueueSizes", [](ComPort& port) { return port.setQueueSizes(128, 128); }, false},
};

/// The name of the first operation that ends otherwise; empty if none does.
std::string firstNotFailingWith(int error, ComPort& port)
{
    for (const Operation& operation : kOperations)
        if (operation.run(port) != error)
            return operation.name;
    return {};
}

/// The next bytes from a port; fewer if one does not come within the port's time limit.
std::string readBytes(ComPort& port, std::size_t count)
{
    std::string bytes;
    for (auto result = port.read(); result.received; result = port.read()) {
        bytes += result.byte;
        if (bytes.size() == count)
            break;
    }
    return bytes;
}

} // namespace

/// What every port must do, whatever is behind it. Its time limits run ten times as fast here, and
/// its bytes a hundred times.
class TestComPortContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("simulated");
        QTest::newRow("system") << false;
        QTest::newRow("simulated") << true;
    }

    void init()
    {
        QFETCH_GLOBAL(bool, simulated);
        Pacing::setSpeeds({1, 100, 10});
        m_peer = simulated ? simulatedDevice() : pseudoTerminal();
        m_port = m_peer.makePort();
        QCOMPARE(m_port->open(), 0);
    }

    void everyByteValuePassesUnchangedAtEverySpeed()
    {
        std::string allValues;
        for (int value = 0; value < 256; ++value)
            allValues += static_cast<char>(value);
        QCOMPARE(m_port->setTimeouts({100, 1, 300'000}), 0);
        QCOMPARE(m_port->setQueueSizes(128, 128), 0);
        for (const auto& [in, out] : {std::pair{128, 5000}, {5000, 128}, {-1, 128}})
            QCOMPARE(m_port->setQueueSizes(in, out), EINVAL);
        for (const int baud : {4800, 38400, 4800}) {
            QCOMPARE(m_port->setLine({baud}), 0);
            m_peer.send(allValues);
            QCOMPARE(readBytes(*m_port, 256), allValues);
            QCOMPARE(whatArrivesOf(allValues), allValues);
        }
    }

    void runningTransferEndsAtOnce()
    {
        struct Row
        {
            const char* name;
            int (*transfer)(ComPort&);
            std::function<void()> action;
            int error;
        };
        const auto send = [this] { m_peer.send("\r"); };
        const auto interrupt = [this] { m_port->interrupt(); };
        const auto cutShort = [this] { m_port->cutShort(7); };
        const auto vanish = [this] { m_peer.vanish(); };
        const auto readCr = [](ComPort& port) { return readBytes(port, 1) == "\r" ? 0 : -1; };
        const auto read = [](ComPort& port) { return port.read().error; };
        const auto write = [](ComPort& port) { return port.write(std::string(4000, 'N')).error; };
        const std::vector<Row> rows = {{"byte comes for a read", readCr, send, 0},
                                       {"read interrupted", read, interrupt, ECANCELED},
                                       {"read cut short", read, cutShort, ECANCELED},
                                       {"write cut short", write, cutShort, ECANCELED},
                                       {"device gone in a read", read, vanish, ENODEV}};
        forEachRow(rows, [this](const Row& row) {
            init();
            Pacing::setSpeeds({1, 1, 10});
            QCOMPARE(m_port->setLine({1200}), 0); // the write takes half a minute
            QCOMPARE(m_port->setTimeouts({100, 1, 300'000, 1, 300'000}), 0);
            m_port->beginExchange(7);
            auto transfer = std::async(std::launch::async, row.transfer, std::ref(*m_port));
            std::this_thread::sleep_for(20ms); // it waits
            row.action();
            QCOMPARE(transfer.wait_for(20s), std::future_status::ready);
            QCOMPARE(transfer.get(), row.error);
            QCOMPARE(m_port->isOpen(), row.error != ENODEV);
        });
    }

    void cutShortTouchesOneExchangeAndInterruptAllUntilTheClose()
    {
        m_peer.send("VA");
        m_port->beginExchange(6);
        m_port->cutShort(8); // one that is still to come
        QCOMPARE(readBytes(*m_port, 1), std::string("V"));
        m_port->beginExchange(7);
        m_port->cutShort(6); // one that has ended
        QCOMPARE(whatArrivesOf("N"), std::string("N"));
        m_port->cutShort(7);
        QVERIFY(isCancelled());
        m_port->beginExchange(8);
        QVERIFY(isCancelled());
        m_port->beginExchange(9);
        QCOMPARE(readBytes(*m_port, 1), std::string("A"));
        QCOMPARE(whatArrivesOf("kept"), std::string("kept"));

        m_port->interrupt();
        m_peer.send("B");
        QVERIFY(isCancelled());
        m_port->beginExchange(10);
        QVERIFY(isCancelled());
        m_port->close();
        m_port->interrupt(); // of a closed port: nothing
        QCOMPARE(m_port->open(), 0);
        QCOMPARE(readBytes(*m_port, 1), std::string()); // what came before
        QCOMPARE(whatArrivesOf("kept"), std::string("kept"));
    }

    void whatHasComeIsTakenAtOnce()
    {
        QCOMPARE(m_port->take().bytes + std::to_string(m_port->take().error), std::string("0"));
        m_peer.send("00000100\r");
        std::string taken;
        for (int waits = 0; taken.size() < 9 && waits < 1000; ++waits) { // else it does not wait
            const auto [descriptor, events, due] = m_port->watchBytes();
            const auto limit = std::min(due, std::chrono::steady_clock::now() + 30s);
            const auto rest = (limit - std::chrono::steady_clock::now()) / 1ms;
            pollfd entry = {descriptor, events, 0};
            QVERIFY(poll(&entry, 1, static_cast<int>(rest)) > 0 || due == limit);
            taken += m_port->take().bytes;
        }
        QCOMPARE(taken, std::string("00000100\r"));
    }

    void purgeDiscardsWhatWasReceivedAndNotWhatWasWritten()
    {
        for (const auto what : {ComPort::Purge::Receive, ComPort::Purge::Both}) {
            m_peer.send("stale\r");
            QCOMPARE(readBytes(*m_port, 1), std::string("s"));
            QCOMPARE(m_port->write("VA\r").written, 3);
            QCOMPARE(m_port->purge(what), 0);
            const auto start = std::chrono::steady_clock::now();
            QCOMPARE(readBytes(*m_port, 1), std::string());
            QVERIFY(std::chrono::steady_clock::now() - start >= 50ms);
            QCOMPARE(m_peer.receive(3), std::string("VA\r"));

            m_peer.send("fresh\r");
            QCOMPARE(readBytes(*m_port, 6), std::string("fresh\r"));
        }
    }

    void closedPortFailsAndAnOpenOneKeepsEveryOtherOut()
    {
        const auto other = m_peer.makePort();
        QCOMPARE(firstNotFailingWith(EBADF, *other), std::string());
        QCOMPARE(other->open(), EBUSY);
        QVERIFY(!other->isOpen());
        QCOMPARE(m_port->open(), EBUSY);
        QCOMPARE(whatArrivesOf("VA\r"), std::string("VA\r"));

        m_port->close();
        QVERIFY(!m_port->isOpen());
        QCOMPARE(watch(0), 0);
        QCOMPARE(firstNotFailingWith(EBADF, *m_port), std::string());
        QCOMPARE(other->open(), 0);
    }

    void vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows()
    {
        forEachRow(kOperations, [this](const Operation& noticing) {
            if (!noticing.needsDevice)
                return;
            init();
            m_peer.send("V");
            QCOMPARE(watch(20), 0); // its bytes are no reason to look after it
            m_peer.vanish();
            QCOMPARE(watch(30'000), 1);
            QCOMPARE(noticing.run(*m_port), ENODEV);
            QVERIFY(!m_port->isOpen());
            QCOMPARE(m_port->watch().descriptor, -1);
            QVERIFY(m_port->open() != 0);
            QCOMPARE(firstNotFailingWith(ENODEV, *m_port), std::string());

            m_peer.comeBack();
            QCOMPARE(m_port->read().error, ENODEV);
            QCOMPARE(m_port->open(), 0);
            QCOMPARE(watch(0), 0);
            QCOMPARE(whatArrivesOf("VA\r"), std::string("VA\r"));

            m_peer.vanish();
            m_port->close();
            QCOMPARE(firstNotFailingWith(EBADF, *m_port), std::string());
        });
    }

private:
    /// Writes to the port. @return what the other end receives
    std::string whatArrivesOf(std::string_view bytes)
    {
        return m_peer.receive(static_cast<std::size_t>(m_port->write(bytes).written));
    }

    /// Whether the port is open and transfers nothing.
    bool isCancelled()
    {
        const auto result = m_port->write("lost");
        return m_port->isOpen() && m_port->read().error == ECANCELED &&
               m_port->take().error == ECANCELED && result.error == ECANCELED &&
               result.written == 0;
    }

    /// Waits for the device to go. @return 1 if the wait ended early, 0 if the time passed
    [[nodiscard]] int watch(int milliseconds) const
    {
        const ComPort::Watch watched = m_port->watch();
        pollfd entry = {watched.descriptor, watched.events, 0};
        return poll(&entry, 1, milliseconds);
    }

    Peer m_peer;
    std::unique_ptr<ComPort> m_port; ///< open at the start of each test
};

QTEST_GUILESS_MAIN(TestComPortContract)
#include "TestComPortContract.moc"
