#include "simulator/SimulatedSensor.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <type_traits>

namespace pelorin {

namespace {

using namespace std::chrono_literals;

constexpr int kParameterBaud = 4800;
constexpr int kStreamBaud = 38400;
constexpr std::string_view kProg = "PROG";
constexpr int kEntryFrames = 5;   ///< PROG frames that open the programming mode
constexpr auto kEntryWindow = 3s; ///< after the supply came
constexpr auto kAnswerDelay = 2ms;
constexpr auto kBootTime = 53ms; ///< until the first position frame
constexpr auto kLongestBacklog = 1s;
constexpr double kNoise = 0.01;   ///< of a moving magnet's position, in millimetres
constexpr auto kTravelTime = 20s; ///< of a moving magnet, there and back
constexpr std::size_t kLongestFrame = 11;
constexpr unsigned kReverse = 0x01; ///< in the first byte of 'D'
constexpr unsigned kStream = 0x04;

/// The number at the start of a text, 0 if there is none.
template <class Number>
Number numberIn(std::string_view text, [[maybe_unused]] int base = 10)
{
    Number number{};
    const auto* const last = text.data() + text.size();
    if constexpr (std::is_floating_point_v<Number>) {
        (void)std::from_chars(text.data(), last, number); // stays 0
    } else {
        (void)std::from_chars(text.data(), last, number, base); // stays 0
    }
    return number;
}

/// The bytes of a text of hexadecimal digits from one digit on; 0 where there are none.
unsigned hexByte(const std::string& text, std::size_t first)
{
    return first < text.size() ? numberIn<unsigned>(std::string_view(text).substr(first, 2), 16)
                               : 0;
}

/// The value of six hexadecimal digits in two's complement.
std::int32_t signed24(const std::string& text)
{
    const auto value = numberIn<std::uint32_t>(text, 16);
    return static_cast<std::int32_t>(value << 8) >> 8;
}

std::string hexFrame(std::uint32_t word)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string frame;
    for (int shift = 28; shift >= 0; shift -= 4)
        frame += kDigits[(word >> shift) & 0xFU];
    return frame + '\r';
}

} // namespace

SimulatedSensor::SimulatedSensor(const Options& options)
    : m_options(options), m_parameters(options.type)
{
}

SimulatedSensor::Mode SimulatedSensor::mode() const
{
    const std::lock_guard lock(mutex());
    return m_mode;
}

void SimulatedSensor::restart(TimePoint now)
{
    const std::lock_guard lock(mutex());
    switchOn(now);
    changed();
}

std::string SimulatedSensor::parameter(char id) const
{
    const std::lock_guard lock(mutex());
    return m_parameters.stored(id);
}

void SimulatedSensor::setParameter(char id, std::string_view text)
{
    const std::lock_guard lock(mutex());
    m_parameters.store(id, text);
}

void SimulatedSensor::setMagnetPosition(double millimetres)
{
    const std::lock_guard lock(mutex());
    m_options.magnetPosition = millimetres;
    m_options.moving = false;
}

int SimulatedSensor::progFrames() const
{
    const std::lock_guard lock(mutex());
    return m_progFrames;
}

int SimulatedSensor::positionFrames() const
{
    const std::lock_guard lock(mutex());
    return m_positionFrames;
}

int SimulatedSensor::ownBaud() const
{
    switch (m_mode) {
    case Mode::Off:
        return 0;
    case Mode::Listening:
    case Mode::Programming:
        break;
    case Mode::Streaming:
        return kStreamBaud;
    }
    return kParameterBaud;
}

std::string_view SimulatedSensor::commandOf(std::string_view frame) const
{
    // In words of its own: a fault of parameter 'P' does not strike PROG frames.
    return frame == kProg ? std::string_view("prog") : frame;
}

void SimulatedSensor::handleFrame(std::string_view frame, TimePoint now)
{
    if (m_mode == Mode::Streaming)
        return;
    if (frame == kProg) {
        handleProg(now);
        return;
    }
    logFrame(frame);
    if (m_mode != Mode::Programming) {
        m_progFrames = 0;
        return;
    }
    if (frame.size() < 2 || frame.size() > kLongestFrame)
        return;

    const char id = frame[0];
    if (frame[1] == 'N') {
        handleWrite(id, frame.substr(2));
    } else if (frame[1] == 'A' && frame.size() == 2 && m_parameters.has(id)) {
        transmit(frame, m_parameters.value(id) + '\r', now + kAnswerDelay);
    }
}

void SimulatedSensor::handleProg(TimePoint now)
{
    ++m_progFrames;
    const bool heard =
        m_options.supply == Supply::ByLineSpeed || now - m_switchedOn <= kEntryWindow;
    if (m_mode == Mode::Listening && heard && m_progFrames >= kEntryFrames)
        m_mode = Mode::Programming;
}

void SimulatedSensor::handleWrite(char id, std::string_view text)
{
    constexpr char kVersion = 'V';
    // Type 1 knows one closing command, the others both.
    if (text.empty() && (id == 'E' || (id == 'C' && m_options.type != 1))) {
        m_parameters.commit();
    } else if (id != kVersion) {
        m_parameters.write(id, text);
    }
}

void SimulatedSensor::lineChanged(TimePoint now)
{
    if (m_options.supply == Supply::ByLineSpeed)
        switchOn(now);
}

void SimulatedSensor::rtsChanged(bool set, TimePoint now)
{
    if (m_options.supply != Supply::ByRts)
        return;
    if (set) {
        switchOff();
    } else if (m_mode == Mode::Off) {
        switchOn(now);
    }
}

void SimulatedSensor::presenceChanged(bool present, TimePoint now)
{
    if (!present) {
        switchOff();
    } else if (m_options.supply == Supply::ByLineSpeed) {
        switchOn(now);
    }
}

void SimulatedSensor::produce(TimePoint now)
{
    if (const auto begin = streamBegin(); begin && *begin <= now) {
        m_mode = Mode::Streaming;
        m_nextFrame = *begin;
    }
    if (m_mode != Mode::Streaming)
        return;
    const auto period = Clock::duration(1s) / m_options.framesPerSecond;
    // Nobody has looked for a while: what was sent in the meantime is gone.
    if (const auto lag = now - m_nextFrame; lag > kLongestBacklog)
        m_nextFrame += (lag - kLongestBacklog) / period * period;
    for (; m_nextFrame <= now; m_nextFrame += period) {
        transmit("stream", positionFrame(m_nextFrame), m_nextFrame);
        ++m_positionFrames;
    }
}

std::optional<SimulatedDevice::TimePoint> SimulatedSensor::nextProduction() const
{
    return m_mode == Mode::Streaming ? std::optional(m_nextFrame) : streamBegin();
}

/// When it stops listening; nothing if it does not, or has already. Too few PROG frames only
/// delay it.
std::optional<SimulatedDevice::TimePoint> SimulatedSensor::streamBegin() const
{
    if (m_mode != Mode::Listening || !wantsToStream())
        return std::nullopt;
    return m_switchedOn + (m_progFrames == 0 ? Clock::duration(kBootTime) : kEntryWindow);
}

void SimulatedSensor::switchOn(TimePoint now)
{
    switchOff();
    m_switchedOn = now;
    m_mode = Mode::Listening;
}

void SimulatedSensor::switchOff()
{
    m_mode = Mode::Off;
    m_progFrames = 0;
    m_positionFrames = 0;
    m_parameters.discard();
    forgetTraffic();
}

bool SimulatedSensor::wantsToStream() const
{
    const bool mayStream = m_options.supply == Supply::ByRts || line().baud == kStreamBaud;
    return mayStream && (hexByte(m_parameters.stored('D'), 0) & kStream) != 0;
}

std::string SimulatedSensor::positionFrame(TimePoint now)
{
    const std::string format = m_parameters.stored('D');
    const auto resolution = numberIn<long>(m_parameters.stored('A')); // micrometres
    const auto bits = hexByte(format, 4);
    if (resolution <= 0 || bits < 1 || bits > 32)
        return hexFrame(0);

    const bool reverse = (hexByte(format, 0) & kReverse) != 0;
    std::normal_distribution<double> noise(0.0, kNoise);
    const double position = positionAt(now) + (m_options.moving ? noise(m_noise) : 0.0);
    const auto counts = std::llround(position * 1000.0 / static_cast<double>(resolution));
    const auto word = signed24(m_parameters.stored('N')) + (reverse ? -counts : counts);
    // The word is left-aligned: what does not fit its bits is lost at the top.
    return hexFrame(static_cast<std::uint32_t>(word) << (32 - bits));
}

double SimulatedSensor::positionAt(TimePoint now) const
{
    if (!m_options.moving)
        return m_options.magnetPosition;
    const std::string length = m_parameters.stored('L'); // two characters, then the stroke in mm
    const double stroke = length.size() > 2 ? numberIn<double>(length.substr(2)) : 0.0;
    const auto part = now.time_since_epoch() % Clock::duration(kTravelTime);
    const double turn =
        std::chrono::duration<double>(part) / std::chrono::duration<double>(kTravelTime);
    return stroke / 2.0 * (1.0 - std::cos(2.0 * std::numbers::pi * turn));
}

} // namespace pelorin
