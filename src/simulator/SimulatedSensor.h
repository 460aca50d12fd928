#pragma once

#include "simulator/SensorParameters.h"
#include "simulator/SimulatedDevice.h"

#include <random>

namespace pelorin {

/// A position sensor at its programming line.
///
/// With its supply it listens at 4800 baud. PROG frames that reach it soon after put it into
/// programming mode, in which it answers reads and takes writes; these last once the closing
/// command has come. If its data format asks for the position stream it streams positions at 38400
/// baud instead, unless a PROG frame has reached it by then.
class SimulatedSensor final : public SimulatedDevice
{
public:
    /// What switches the sensor's supply.
    enum class Supply {
        ByRts,       ///< RTS set is off, cleared is on
        ByLineSpeed, ///< every change of the line speed restarts it, PROG frames are heard at any
                     ///< time, and it streams only on a line of 38400 baud: for a line without
                     ///< RTS, and for a supply switched by hand
    };

    enum class Mode { Off, Listening, Programming, Streaming };

    struct Options
    {
        int type = 2; ///< 0, 1 or 2
        Supply supply = Supply::ByRts;
        bool moving = false;         ///< the magnet moves by itself, and is measured with noise
        double magnetPosition = 100; ///< where it is, in millimetres, if it does not
        int framesPerSecond = 100;   ///< of the position stream
    };

    explicit SimulatedSensor(const Options& options);

    [[nodiscard]] Mode mode() const;

    /// Switches the supply off and on as somebody does it by hand.
    void restart(TimePoint now = Clock::now());

    /// A parameter as it outlasts the loss of the supply; empty for one that does not exist.
    [[nodiscard]] std::string parameter(char id) const;
    /// Changes a parameter for good; does nothing for one that does not exist.
    void setParameter(char id, std::string_view text);

    /// Puts the magnet somewhere, where it stays.
    void setMagnetPosition(double millimetres);

    /// PROG frames heard since the supply came.
    [[nodiscard]] int progFrames() const;
    /// Position frames sent since the supply came.
    [[nodiscard]] int positionFrames() const;

private:
    [[nodiscard]] int ownBaud() const override;
    [[nodiscard]] std::string_view commandOf(std::string_view frame) const override;
    void handleFrame(std::string_view frame, TimePoint now) override;
    void lineChanged(TimePoint now) override;
    void rtsChanged(bool set, TimePoint now) override;
    void presenceChanged(bool present, TimePoint now) override;
    void produce(TimePoint now) override;
    [[nodiscard]] std::optional<TimePoint> nextProduction() const override;

    void switchOn(TimePoint now);
    void switchOff();
    void handleProg(TimePoint now);
    void handleWrite(char id, std::string_view text);
    [[nodiscard]] bool wantsToStream() const;
    [[nodiscard]] std::optional<TimePoint> streamBegin() const;
    [[nodiscard]] std::string positionFrame(TimePoint now);
    [[nodiscard]] double positionAt(TimePoint now) const;

    // Guarded by mutex(), as everything a device holds.
    Options m_options;
    SensorParameters m_parameters;
    Mode m_mode = Mode::Off;
    TimePoint m_switchedOn;
    int m_progFrames = 0;
    TimePoint m_nextFrame; ///< of the position stream
    int m_positionFrames = 0;
    std::minstd_rand m_noise;
};

} // namespace pelorin
