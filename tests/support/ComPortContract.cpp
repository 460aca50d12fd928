#include "support/ComPortContract.h"

#include "platform/core/Pacing.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTest>

#include <cerrno>
#include <future>
#include <map>
#include <thread>

namespace pelorin {

namespace {

using namespace std::chrono_literals;

constexpr LineSettings kParameterLine = {4800, 'N', 8, 1};
constexpr LineSettings kStreamLine = {38400, 'N', 8, 1};

/// Longer than any test may take, on the faster clock too.
constexpr ComPort::Timeouts kLongTimeouts = {100, 1, 300'000, 1, 300'000};

QByteArray receive(ComPortPeer& peer, std::size_t count)
{
    return QByteArray::fromStdString(peer.receive(count));
}

/// Every operation of an open port, by name, and the error that it ends with.
const std::map<std::string, int (*)(ComPort&)>& operations()
{
    static const std::map<std::string, int (*)(ComPort&)> table = {
        {"read", [](ComPort& port) { return port.read().error; }},
        {"write", [](ComPort& port) { return port.write("PROG\r").error; }},
        {"purge", [](ComPort& port) { return port.purge(ComPort::Purge::Both); }},
        {"setLine", [](ComPort& port) { return port.setLine(kStreamLine); }},
        {"setRts", [](ComPort& port) { return port.setRts(true); }},
    };
    return table;
}

/// The name of the first operation that ends otherwise; empty if none does.
std::string firstNotFailingWith(int error, ComPort& port)
{
    for (const auto& [name, operation] : operations()) {
        if (operation(port) != error)
            return name;
    }
    if (port.setTimeouts({}) != error)
        return "setTimeouts";
    if (port.setQueueSizes(128, 128) != error)
        return "setQueueSizes";
    return {};
}

} // namespace

QByteArray readBytes(ComPort& port, int count)
{
    const QDeadlineTimer deadline(5s);
    QByteArray bytes;
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
}

void ComPortContract::cleanupTestCase()
{
    Pacing::setSpeeds({});
}

void ComPortContract::everyByteValuePassesUnchangedBothWays()
{
    QByteArray allValues;
    for (int value = 0; value < 256; ++value)
        allValues += static_cast<char>(value);
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);

    peer->send(allValues.toStdString());
    QCOMPARE(readBytes(*port, 256), allValues);

    const auto result = port->write(allValues.toStdString());
    QCOMPARE(result.error, 0);
    QCOMPARE(result.written, 256);
    QCOMPARE(receive(*peer, 256), allValues);
}

void ComPortContract::bytesPassAfterEveryChangeOfSpeed()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->setTimeouts({}), 0);
    QCOMPARE(port->setQueueSizes(128, 128), 0);

    for (const auto& line : {kParameterLine, kStreamLine, kParameterLine}) {
        QCOMPARE(port->setLine(line), 0);
        peer->send("0000A5F0\r");
        QCOMPARE(readBytes(*port, 9), QByteArray("0000A5F0\r"));
        QCOMPARE(port->write("VA\r").written, 3);
        QCOMPARE(receive(*peer, 3), QByteArray("VA\r"));
    }
}

void ComPortContract::silentReadGivesNothingInTime()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);

    // A loaded machine may be late now and then, but never early.
    qint64 shortest = 1000;
    for (int attempt = 0; attempt < 5 && shortest > 150; ++attempt) {
        QElapsedTimer timer;
        timer.start();
        const auto result = port->read();
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
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->setTimeouts(kLongTimeouts), 0);

    auto reading = std::async(std::launch::async, [&port] { return port->read(); });
    std::this_thread::sleep_for(10ms);
    peer->send("\r");

    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    const auto result = reading.get();
    QVERIFY(result.received);
    QCOMPARE(result.byte, '\r');
}

void ComPortContract::interruptEndsARunningRead()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    for (const auto delay : {0ms, 1ms, 20ms}) {
        QCOMPARE(port->open(), 0);
        QCOMPARE(port->setTimeouts(kLongTimeouts), 0);

        auto reading = std::async(std::launch::async, [&port] { return port->read(); });
        std::this_thread::sleep_for(delay); // before, into and within the wait
        port->interrupt();

        QCOMPARE(reading.wait_for(10s), std::future_status::ready);
        const auto result = reading.get();
        QCOMPARE(result.error, ECANCELED);
        QVERIFY(!result.received);
        port->close();
    }
}

void ComPortContract::interruptedPortTransfersNothingUntilItIsClosed()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    peer->send("A");
    QCOMPARE(readBytes(*port, 1), QByteArray("A"));

    port->interrupt();
    peer->send("B");
    for (int attempt = 0; attempt < 3; ++attempt) {
        QCOMPARE(port->read().error, ECANCELED);
        const auto result = port->write("lost");
        QCOMPARE(result.error, ECANCELED);
        QCOMPARE(result.written, 0);
    }
    QVERIFY(port->isOpen());

    port->close();
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->write("kept").written, 4);
    QCOMPARE(receive(*peer, 4), QByteArray("kept"));
}

void ComPortContract::interruptOfAClosedPortDoesNothing()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    port->interrupt();

    QCOMPARE(port->open(), 0);
    peer->send("V");
    QCOMPARE(readBytes(*port, 1), QByteArray("V"));
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
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    peer->send("stale\r");
    QCOMPARE(readBytes(*port, 1), QByteArray("s"));

    QCOMPARE(port->purge(both ? ComPort::Purge::Both : ComPort::Purge::Receive), 0);
    QVERIFY(!port->read().received);

    peer->send("fresh\r");
    QCOMPARE(readBytes(*port, 6), QByteArray("fresh\r"));
}

void ComPortContract::completedWriteSurvivesAPurge()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);

    QByteArray sent;
    for (int frame = 0; frame < 20; ++frame) {
        const QByteArray bytes = "N" + QByteArray::number(10 + frame) + '\r';
        QCOMPARE(port->write(bytes.toStdString()).written, 4);
        QCOMPARE(port->purge(ComPort::Purge::Both), 0);
        sent += bytes;
    }
    QCOMPARE(receive(*peer, 80), sent);
}

void ComPortContract::everythingOnAClosedPortFails()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QVERIFY(!port->isOpen());
    QCOMPARE(firstNotFailingWith(EBADF, *port), std::string());

    QCOMPARE(port->open(), 0);
    QVERIFY(port->isOpen());
    port->close();
    QVERIFY(!port->isOpen());
    QCOMPARE(firstNotFailingWith(EBADF, *port), std::string());
    port->close();
}

void ComPortContract::closedPortCanBeOpenedAgain()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(port->open(), 0);
        peer->send("0A1234\r");
        QCOMPARE(readBytes(*port, 7), QByteArray("0A1234\r"));
        port->close();
    }
}

void ComPortContract::openPortKeepsEveryOtherOut()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    const auto other = peer->makePort();
    QCOMPARE(port->open(), 0);

    QCOMPARE(other->open(), EBUSY);
    QVERIFY(!other->isOpen());
    QCOMPARE(port->open(), EBUSY);
    QVERIFY(port->isOpen());
    QCOMPARE(port->write("VA\r").written, 3);
    QCOMPARE(receive(*peer, 3), QByteArray("VA\r"));

    port->close();
    QCOMPARE(other->open(), 0);
}

void ComPortContract::vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows_data()
{
    QTest::addColumn<QByteArray>("noticing");
    for (const auto& [name, operation] : operations())
        QTest::addRow("noticed by %s", name.c_str()) << QByteArray::fromStdString(name);
}

void ComPortContract::vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows()
{
    QFETCH(QByteArray, noticing);
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);

    peer->vanish();
    QCOMPARE(operations().at(noticing.toStdString())(*port), ENODEV);
    QVERIFY(!port->isOpen());
    QCOMPARE(firstNotFailingWith(ENODEV, *port), std::string());
    QVERIFY(port->open() != 0);
    QCOMPARE(firstNotFailingWith(ENODEV, *port), std::string());

    peer->comeBack();
    QCOMPARE(port->read().error, ENODEV);
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->write("VA\r").written, 3);
    QCOMPARE(receive(*peer, 3), QByteArray("VA\r"));

    peer->vanish();
    port->close();
    QCOMPARE(firstNotFailingWith(EBADF, *port), std::string());
}

void ComPortContract::vanishingEndsARunningRead()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->setTimeouts(kLongTimeouts), 0);

    auto reading = std::async(std::launch::async, [&port] { return port->read(); });
    std::this_thread::sleep_for(10ms);
    peer->vanish();

    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    QCOMPARE(reading.get().error, ENODEV);
    QVERIFY(!port->isOpen());
}

void ComPortContract::lineCanBeSetWhileAReadWaits()
{
    const auto peer = makePeer();
    const auto port = peer->makePort();
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->setTimeouts(kLongTimeouts), 0);

    auto reading = std::async(std::launch::async, [&port] { return port->read(); });
    for (int change = 0; change < 20; ++change) {
        QCOMPARE(port->setLine(change % 2 == 0 ? kStreamLine : kParameterLine), 0);
        QVERIFY(port->setRts(false) != ENODEV);
    }
    peer->send("4");

    QCOMPARE(reading.wait_for(10s), std::future_status::ready);
    QCOMPARE(reading.get().byte, '4');
}

} // namespace pelorin
