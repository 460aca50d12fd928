#include "support/ComPortContract.h"

#include "platform/core/Pacing.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTest>

#include <poll.h>

#include <cerrno>
#include <map>
#include <thread>

namespace pelorin {

namespace {

using namespace std::chrono_literals;

constexpr LineSettings kParameterLine = {4800, 'N', 8, 1};
constexpr LineSettings kStreamLine = {38400, 'N', 8, 1};

/// Every operation of an open port that needs its device, and the error that it ends with.
const std::map<std::string, int (*)(ComPort&)> kOperations = {
    {"read", [](ComPort& port) { return port.read().error; }},
    {"write", [](ComPort& port) { return port.write("PROG\r").error; }},
    {"purge", [](ComPort& port) { return port.purge(ComPort::Purge::Both); }},
    {"setLine", [](ComPort& port) { return port.setLine(kStreamLine); }},
    {"setRts", [](ComPort& port) { return port.setRts(true); }},
};

/// The name of the first operation that ends otherwise; empty if none does.
std::string firstNotFailingWith(int error, ComPort& port)
{
    for (const auto& [name, operation] : kOperations) {
        if (operation(port) != error)
            return name;
    }
    if (port.setTimeouts({}) != error)
        return "setTimeouts";
    return port.setQueueSizes(128, 128) != error ? "setQueueSizes" : std::string();
}

} // namespace

std::string readBytes(ComPort& port, std::size_t count)
{
    const QDeadlineTimer deadline(5s);
    std::string bytes;
    ComPort::ReadResult result;
    while (bytes.size() < count && result.error == 0 && !deadline.hasExpired()) {
        result = port.read();
        if (result.received)
            bytes += result.byte;
    }
    return bytes;
}

void ComPortContract::init()
{
    Pacing::setSpeeds({1.0, 100.0, 10.0});
    m_peer = makePeer();
    m_port = m_peer->makePort();
    QCOMPARE(m_port->open(), 0);
}

void ComPortContract::cleanup()
{
    m_port.reset();
    m_peer.reset();
}

/// Reads a byte on another thread, for longer than any test may take.
std::future<ComPort::ReadResult> ComPortContract::startReading()
{
    if (m_port->setTimeouts({100, 1, 300'000, 1, 300'000}) != 0)
        qWarning("The time limits were refused");
    return std::async(std::launch::async, [this] { return m_port->read(); });
}

void ComPortContract::everyByteValuePassesUnchangedAtEverySpeed()
{
    std::string allValues;
    for (int value = 0; value < 256; ++value)
        allValues += static_cast<char>(value);
    QCOMPARE(m_port->setTimeouts({}), 0);
    QCOMPARE(m_port->setQueueSizes(128, 128), 0);

    for (const auto& line : {kParameterLine, kStreamLine, kParameterLine}) {
        QCOMPARE(m_port->setLine(line), 0);
        m_peer->send(allValues);
        QCOMPARE(readBytes(*m_port, 256), allValues);
        const auto result = m_port->write(allValues);
        QCOMPARE(result.error, 0);
        QCOMPARE(result.written, 256);
        QCOMPARE(m_peer->receive(256), allValues);
    }
}

void ComPortContract::silentReadGivesNothingInTime()
{
    // A loaded machine may be late now and then, but never early.
    qint64 shortest = 1000;
    for (int attempt = 0; attempt < 5 && shortest > 150; ++attempt) {
        QElapsedTimer timer;
        timer.start();
        const auto result = m_port->read();
        const qint64 elapsed = timer.elapsed();
        QCOMPARE(result.error, 0);
        QVERIFY(!result.received);
        QVERIFY2(elapsed >= 50, qPrintable(QString::number(elapsed)));
        shortest = std::min(shortest, elapsed);
    }
    QVERIFY2(shortest <= 150, qPrintable(QString::number(shortest)));
}

void ComPortContract::byteThatComesWhileAReadWaitsIsReadAtOnce()
{
    auto reading = startReading();
    std::this_thread::sleep_for(10ms);
    m_peer->send("\r");

    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    const auto result = reading.get();
    QVERIFY(result.received);
    QCOMPARE(result.byte, '\r');
}

void ComPortContract::interruptEndsARunningRead()
{
    for (const auto delay : {0ms, 1ms, 20ms}) {
        auto reading = startReading();
        std::this_thread::sleep_for(delay); // before, into and within the wait
        m_port->interrupt();

        QCOMPARE(reading.wait_for(10s), std::future_status::ready);
        const auto result = reading.get();
        QCOMPARE(result.error, ECANCELED);
        QVERIFY(!result.received);
        m_port->close();
        QCOMPARE(m_port->open(), 0);
    }
}

void ComPortContract::interruptedPortTransfersNothingUntilItIsClosed()
{
    m_port->interrupt();
    m_peer->send("B");
    for (int attempt = 0; attempt < 3; ++attempt) {
        m_port->beginExchange(1U + static_cast<unsigned int>(attempt));
        QCOMPARE(m_port->read().error, ECANCELED);
        const auto result = m_port->write("lost");
        QCOMPARE(result.error, ECANCELED);
        QCOMPARE(result.written, 0);
    }
    QVERIFY(m_port->isOpen());

    m_port->close();
    m_port->interrupt(); // of a closed port: nothing
    QCOMPARE(m_port->open(), 0);
    QCOMPARE(m_port->write("kept").written, 4);
    QCOMPARE(m_peer->receive(4), std::string("kept"));
}

void ComPortContract::cutShortEndsTheRunningReadAndWrite()
{
    Pacing::setSpeeds({1.0, 1.0, 10.0}); // the write takes seconds
    m_port->beginExchange(7);
    auto reading = startReading();
    std::this_thread::sleep_for(20ms);
    m_port->cutShort(7);
    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    QCOMPARE(reading.get().error, ECANCELED);

    m_port->beginExchange(8);
    auto writing = std::async(std::launch::async,
                              [this] { return m_port->write(std::string(2000, 'N')).error; });
    std::this_thread::sleep_for(20ms);
    m_port->cutShort(8);
    QCOMPARE(writing.wait_for(2s), std::future_status::ready);
    QCOMPARE(writing.get(), ECANCELED);
}

void ComPortContract::cutShortTouchesOneExchangeAndKeepsItsBytes_data()
{
    QTest::addColumn<quint64>("before");
    QTest::addColumn<quint64>("after");
    QTest::addColumn<int>("error");
    QTest::newRow("before it begins") << quint64{7} << quint64{8} << ECANCELED;
    QTest::newRow("after it began") << quint64{9} << quint64{7} << ECANCELED;
    QTest::newRow("another, that has ended") << quint64{6} << quint64{5} << 0;
    QTest::newRow("another, still to come") << quint64{9} << quint64{8} << 0;
}

void ComPortContract::cutShortTouchesOneExchangeAndKeepsItsBytes()
{
    QFETCH(quint64, before);
    QFETCH(quint64, after);
    QFETCH(int, error);
    m_peer->send("VA");
    m_port->beginExchange(6);
    m_port->cutShort(before);
    m_port->beginExchange(7);
    m_port->cutShort(after);
    const auto result = m_port->read();
    QCOMPARE(result.error, error);
    QCOMPARE(m_port->write("N").error, error);

    m_port->beginExchange(10);
    QCOMPARE(readBytes(*m_port, result.received ? 1 : 2),
             std::string(result.received ? "A" : "VA"));
    QCOMPARE(m_port->write("kept").written, 4);
}

void ComPortContract::purgeDiscardsWhatWasReceived_data()
{
    QTest::addColumn<bool>("both");
    QTest::newRow("receive only") << false;
    QTest::newRow("both directions") << true;
}

void ComPortContract::purgeDiscardsWhatWasReceived()
{
    QFETCH(bool, both);
    m_peer->send("stale\r");
    QCOMPARE(readBytes(*m_port, 1), std::string("s"));

    QCOMPARE(m_port->purge(both ? ComPort::Purge::Both : ComPort::Purge::Receive), 0);
    QVERIFY(!m_port->read().received);

    m_peer->send("fresh\r");
    QCOMPARE(readBytes(*m_port, 6), std::string("fresh\r"));
}

void ComPortContract::completedWriteSurvivesAPurge()
{
    std::string sent;
    for (int frame = 0; frame < 20; ++frame) {
        const std::string bytes = "N" + std::to_string(10 + frame) + '\r';
        QCOMPARE(m_port->write(bytes).written, 4);
        QCOMPARE(m_port->purge(ComPort::Purge::Both), 0);
        sent += bytes;
    }
    QCOMPARE(m_peer->receive(80), sent);
}

void ComPortContract::everythingOnAClosedPortFails()
{
    const auto other = m_peer->makePort();
    QVERIFY(!other->isOpen());
    QCOMPARE(firstNotFailingWith(EBADF, *other), std::string());

    QVERIFY(m_port->isOpen());
    m_port->close();
    QVERIFY(!m_port->isOpen());
    QCOMPARE(firstNotFailingWith(EBADF, *m_port), std::string());
    m_port->close();
}

void ComPortContract::openPortKeepsEveryOtherOut()
{
    const auto other = m_peer->makePort();
    QCOMPARE(other->open(), EBUSY);
    QVERIFY(!other->isOpen());
    QCOMPARE(m_port->open(), EBUSY);
    QVERIFY(m_port->isOpen());
    QCOMPARE(m_port->write("VA\r").written, 3);
    QCOMPARE(m_peer->receive(3), std::string("VA\r"));

    m_port->close();
    QCOMPARE(other->open(), 0);
}

void ComPortContract::vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows_data()
{
    QTest::addColumn<QByteArray>("noticing");
    for (const auto& [name, operation] : kOperations)
        QTest::addRow("noticed by %s", name.c_str()) << QByteArray::fromStdString(name);
}

void ComPortContract::vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows()
{
    QFETCH(QByteArray, noticing);
    m_peer->vanish();
    QCOMPARE(kOperations.at(noticing.toStdString())(*m_port), ENODEV);
    QVERIFY(!m_port->isOpen());
    QVERIFY(m_port->open() != 0);
    QCOMPARE(firstNotFailingWith(ENODEV, *m_port), std::string());

    m_peer->comeBack();
    QCOMPARE(m_port->read().error, ENODEV);
    QCOMPARE(m_port->open(), 0);
    QCOMPARE(m_port->write("VA\r").written, 3);
    QCOMPARE(m_peer->receive(3), std::string("VA\r"));

    m_peer->vanish();
    m_port->close();
    QCOMPARE(firstNotFailingWith(EBADF, *m_port), std::string());
}

void ComPortContract::vanishingEndsARunningRead()
{
    auto reading = startReading();
    std::this_thread::sleep_for(10ms);
    m_peer->vanish();

    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    QCOMPARE(reading.get().error, ENODEV);
    QVERIFY(!m_port->isOpen());
}

void ComPortContract::watchWakesWhenTheDeviceVanishesAndNotForBytes()
{
    const auto [descriptor, events] = m_port->watch();
    pollfd entry = {descriptor, events, 0};
    m_peer->send("V");
    QCOMPARE(poll(&entry, 1, 20), 0);

    m_peer->vanish();
    QCOMPARE(poll(&entry, 1, 10'000), 1);
    QCOMPARE(m_port->purge(ComPort::Purge::Receive), ENODEV);
    QCOMPARE(m_port->watch().descriptor, -1);

    m_peer->comeBack();
    QCOMPARE(m_port->open(), 0);
    const auto reopened = m_port->watch();
    entry = {reopened.descriptor, reopened.events, 0};
    QCOMPARE(poll(&entry, 1, 0), 0);
    m_port->close();
    QCOMPARE(m_port->watch().descriptor, -1);
}

} // namespace pelorin
