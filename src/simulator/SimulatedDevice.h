#pragma once

#include "platform/core/LineSettings.h"
#include "simulator/SimulatedFault.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pelorin {

/// A device at the end of a serial line: bytes and RTS in, bytes out. It has no thread and reads
/// no clock; whoever carries its bytes tells it the time, which never runs backwards. Every
/// operation may be called from any thread.
///
/// What it sends arrives byte by byte in the time that the line takes. At a line speed that is
/// not its own it hears nothing, and what it sends arrives as garbage.
class SimulatedDevice
{
public:
    using Clock = std::chrono::steady_clock;
    using TimePoint = Clock::time_point;

    SimulatedDevice() = default;
    SimulatedDevice(const SimulatedDevice&) = delete;
    SimulatedDevice& operator=(const SimulatedDevice&) = delete;
    virtual ~SimulatedDevice() = default;

    // What the other end of the line does.

    /// Takes the device for one user, who is known by an address.
    /// @param lost called when the device vanishes before it is released; with the lock held
    /// @return 0, EBUSY if somebody else has it, ENOENT if it has vanished
    [[nodiscard]] int claim(const void* owner, TimePoint now, std::function<void()> lost = {});
    /// Whether the user still has the device: it is lost once the device has vanished.
    [[nodiscard]] bool isClaimedBy(const void* owner, TimePoint now);
    void release(const void* owner);

    void setLine(const LineSettings& line, TimePoint now);
    void setRts(bool set, TimePoint now);
    /// Gives the device what has arrived there.
    /// @return how many of the bytes came before the device vanished
    int receive(std::string_view bytes, TimePoint now);
    /// What has arrived from the device since the last call.
    [[nodiscard]] std::string take(TimePoint now);
    /// The earliest time at which there may be something to take.
    [[nodiscard]] std::optional<TimePoint> nextDue(TimePoint now);
    [[nodiscard]] bool isPresent(TimePoint now);

    /// Counts what happens to the device. Read it first, then look at the device, then wait: what
    /// happens in between ends the wait at once.
    [[nodiscard]] std::uint64_t changes() const;
    void waitForChange(std::uint64_t seen, TimePoint limit) const;
    /// Ends every running wait.
    void wake();

    // How the device fails, at run time.

    /// Sets the fault of all commands that begin with a text: a parameter's identifier ("V", "VA"
    /// reads only, "VN" writes only), a command of the display unit ("RD"), "stream" for position
    /// frames; empty for all. The longest text that fits a command decides.
    void setFault(const SimulatedFault& fault, std::string_view command = {});
    void clearFaults();
    void vanish(TimePoint now = Clock::now());
    void comeBack(TimePoint now = Clock::now());

    /// The last frames that the device has understood, without their CR; the list is emptied.
    [[nodiscard]] std::vector<std::string> takeReceivedFrames();

    /// The time that a byte takes on a line.
    [[nodiscard]] static std::chrono::nanoseconds byteTime(const LineSettings& line);

protected:
    // All of these are called with the lock held.

    /// Takes a byte that has arrived. Devices talk in frames that end with CR: the byte completes
    /// one or is kept for it.
    virtual void handleByte(char byte, TimePoint now);
    /// The speed at which the device talks at present; 0 while it is off.
    [[nodiscard]] virtual int ownBaud() const = 0;
    /// What the faults are told to strike, in a frame without its CR.
    [[nodiscard]] virtual std::string_view commandOf(std::string_view frame) const = 0;
    /// Acts on a frame without its CR.
    virtual void handleFrame(std::string_view frame, TimePoint now) = 0;
    virtual void lineChanged(TimePoint /*now*/) {}
    virtual void rtsChanged(bool /*set*/, TimePoint /*now*/) {}
    virtual void presenceChanged(bool /*present*/, TimePoint /*now*/) {}
    /// Transmits what the device sends unasked up to a time.
    virtual void produce(TimePoint /*now*/) {}
    [[nodiscard]] virtual std::optional<TimePoint> nextProduction() const { return std::nullopt; }

    /// Sends the answer to a command, its faults applied, no earlier than a time.
    void transmit(std::string_view command, std::string text, TimePoint due);
    /// Forgets half a frame received and all bytes not yet sent, as when the supply fails.
    void forgetTraffic();
    void logFrame(std::string_view frame);
    /// Ends the waits; after every change that the other end must see.
    void changed();
    [[nodiscard]] const LineSettings& line() const { return m_line; }
    [[nodiscard]] std::mutex& mutex() const { return m_mutex; }

private:
    struct TimedByte
    {
        TimePoint arrival;
        char byte;
    };

    void bringUpTo(TimePoint now);
    void receiveByte(char byte, TimePoint now);
    void handleReceived(const std::string& frame, TimePoint now);
    void disappear(std::optional<TimePoint> backAt, TimePoint now);
    void reappear(TimePoint now);
    [[nodiscard]] std::optional<SimulatedFault> takeFault(std::string_view command, bool received);
    [[nodiscard]] bool isInTune() const;

    mutable std::mutex m_mutex; ///< guards everything below, and the fields of derived classes
    mutable std::condition_variable m_changed;
    std::uint64_t m_changes = 0;
    const void* m_owner = nullptr;
    std::function<void()> m_lost; ///< the owner's; may be empty
    bool m_present = true;
    std::optional<TimePoint> m_backAt;
    LineSettings m_line{9600};
    std::string m_frame; ///< received so far, without CR
    std::deque<TimedByte> m_sent;
    TimePoint m_lineFree; ///< when the last byte of m_sent has arrived
    std::map<std::string, SimulatedFault, std::less<>> m_faults;
    std::deque<std::string> m_frames;
};

} // namespace pelorin
