#pragma once

#include "platform/core/ComPort.h"

#include <QByteArray>
#include <QObject>

#include <future>
#include <memory>
#include <string>
#include <string_view>

namespace pelorin {

/// The device that a port under test is on, and the other end of its line. One thread.
class ComPortPeer
{
public:
    virtual ~ComPortPeer() = default;

    /// One more port on the device, not yet open.
    virtual std::unique_ptr<ComPort> makePort() = 0;

    /// Sends bytes to the open port, which can read them within its time limit.
    virtual void send(std::string_view bytes) = 0;

    /// The next bytes that the port wrote; fewer if the rest does not come within some seconds.
    virtual std::string receive(std::size_t count) = 0;

    /// The device goes, and a new one comes in its place.
    virtual void vanish() = 0;
    virtual void comeBack() = 0;
};

/// The next bytes from a port; fewer if the rest does not come within some seconds, however short
/// the port's own time limit is.
[[nodiscard]] std::string readBytes(ComPort& port, std::size_t count);

/// What every port must do, whatever is behind it. A test class derives from this one, gives it a
/// peer, and may add slots of its own:
///
///     class TestSomePort : public ComPortContract
///     {
///         Q_OBJECT
///         std::unique_ptr<ComPortPeer> makePeer() override;
///     };
///     QTEST_GUILESS_MAIN(TestSomePort)
///
/// The port's time limits run ten times as fast here, and its bytes a hundred times.
class ComPortContract : public QObject
{
    Q_OBJECT

protected:
    /// A device that is there.
    virtual std::unique_ptr<ComPortPeer> makePeer() = 0;

private Q_SLOTS:
    void init();
    void cleanup();

    void everyByteValuePassesUnchangedAtEverySpeed();
    void silentReadGivesNothingInTime();
    void byteThatComesWhileAReadWaitsIsReadAtOnce();
    void interruptEndsARunningRead();
    void interruptedPortTransfersNothingUntilItIsClosed();
    void cutShortEndsTheRunningReadAndWrite();
    void cutShortTouchesOneExchangeAndKeepsItsBytes_data();
    void cutShortTouchesOneExchangeAndKeepsItsBytes();
    void purgeDiscardsWhatWasReceived_data();
    void purgeDiscardsWhatWasReceived();
    void completedWriteSurvivesAPurge();
    void everythingOnAClosedPortFails();
    void openPortKeepsEveryOtherOut();
    void vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows_data();
    void vanishedDeviceIsReportedByWhatNoticesAndByAllThatFollows();
    void vanishingEndsARunningRead();
    void watchWakesWhenTheDeviceVanishesAndNotForBytes();

private:
    [[nodiscard]] std::future<ComPort::ReadResult> startReading();

    std::unique_ptr<ComPortPeer> m_peer;
    std::unique_ptr<ComPort> m_port; ///< open at the start of each test
};

} // namespace pelorin
