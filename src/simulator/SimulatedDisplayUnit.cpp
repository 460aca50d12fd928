#include "simulator/SimulatedDisplayUnit.h"

#include <array>
#include <charconv>

namespace pelorin {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 19200;
constexpr auto kAnswerDelay = 2ms;

/// What set-up sends and has nothing to show for.
constexpr std::array<std::string_view, 5> kSetUpCommands{"SdP3", "SPUMM", "SXAOFF", "SXE00000000",
                                                         "SXeFFFFFFFF"};

/// Keeps what follows a command's first letters.
bool keep(std::string_view command, std::string_view name, std::string& value)
{
    if (!command.starts_with(name) || command.size() == name.size())
        return false;
    value = command.substr(name.size());
    return true;
}

} // namespace

SimulatedDisplayUnit::Settings SimulatedDisplayUnit::settings() const
{
    const std::lock_guard lock(mutex());
    return m_settings;
}

void SimulatedDisplayUnit::setReading(std::string_view text)
{
    const std::lock_guard lock(mutex());
    m_reading = text;
}

int SimulatedDisplayUnit::ownBaud() const
{
    return kBaud;
}

std::string_view SimulatedDisplayUnit::commandOf(std::string_view frame) const
{
    constexpr std::size_t kHeader = 2; // "$" and the node
    return frame.size() > kHeader ? frame.substr(kHeader) : std::string_view();
}

void SimulatedDisplayUnit::handleFrame(std::string_view frame, TimePoint now)
{
    const std::string_view command = commandOf(frame);
    if (command.empty() || frame[0] != '$' || frame[1] != '0' + m_node)
        return;
    logFrame(frame);
    if (command == "RD")
        transmit(command, '*' + readingAt(now) + '\r', now + kAnswerDelay);
    else
        transmit(command, obey(command) ? "*\r" : "?\r", now + kAnswerDelay);
}

void SimulatedDisplayUnit::presenceChanged(bool present, TimePoint /*now*/)
{
    if (present)
        m_writable = false;
}

bool SimulatedDisplayUnit::obey(std::string_view command)
{
    if (command == "WE") {
        m_writable = true;
        return true;
    }
    if (!m_writable)
        return false;
    for (const std::string_view known : kSetUpCommands)
        if (command == known)
            return true;
    return keep(command, "SXT", m_settings.mode) || keep(command, "SXB", m_settings.dataBits) ||
           keep(command, "SPR", m_settings.resolution);
}

std::string SimulatedDisplayUnit::readingAt(TimePoint now) const
{
    if (!m_reading.empty())
        return m_reading;
    // Up and down between 100 and 200 mm, a millimetre in a tenth of a second.
    const auto step = now.time_since_epoch() / 1ms % 20000;
    const auto thousandths = 100000 + 10 * (step < 10000 ? step : 20000 - step);
    std::array<char, 16> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(),
                      static_cast<double>(thousandths) / 1000.0, std::chars_format::fixed, 3);
    return {text.data(), end.ptr};
}

} // namespace pelorin
