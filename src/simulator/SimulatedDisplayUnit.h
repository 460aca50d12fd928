#pragma once

#include "simulator/SimulatedDevice.h"

namespace pelorin {

/// A display unit: it acknowledges its set-up and output commands with "*" and CR and tells the
/// position that it shows. Settings are taken once "WE" has allowed writing; what it does not
/// take it answers with "?" and CR. It talks at 19200 baud and has a supply of its own.
class SimulatedDisplayUnit final : public SimulatedDevice
{
public:
    /// The output settings that it holds, each as it was sent.
    struct Settings
    {
        std::string mode = "SSIBIN";
        std::string dataBits = "24";
        std::string resolution = "0.001";

        bool operator==(const Settings&) const = default;
    };

    /// @param node the unit's number, 0 to 9
    explicit SimulatedDisplayUnit(int node = 1) : m_node(node) {}

    [[nodiscard]] Settings settings() const;
    /// Makes the unit show a text instead of its slowly moving value; empty ends that.
    void setReading(std::string_view text);

private:
    [[nodiscard]] int ownBaud() const override;
    [[nodiscard]] std::string_view commandOf(std::string_view frame) const override;
    void handleFrame(std::string_view frame, TimePoint now) override;
    void presenceChanged(bool present, TimePoint now) override;

    [[nodiscard]] bool obey(std::string_view command);
    [[nodiscard]] std::string readingAt(TimePoint now) const;

    // Guarded by mutex(), as everything a device holds.
    const int m_node;
    bool m_writable = false;
    Settings m_settings;
    std::string m_reading;
};

} // namespace pelorin
