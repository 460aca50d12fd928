#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace pelorin {

class SimulatedDevice;

/// Runs a simulated device behind a pseudo-terminal, on a thread of its own. Programs open the
/// terminal as they would a serial device. It carries no RTS: give a sensor whose supply follows
/// the line speed. A device that vanishes takes its terminal with it and comes back on a new one,
/// which a link makes reachable
/// under one path.
class PtyServer
{
public:
    /// @param link path of a symbolic link to the terminal; empty for none
    explicit PtyServer(std::shared_ptr<SimulatedDevice> device, std::string link = {});
    PtyServer(const PtyServer&) = delete;
    PtyServer& operator=(const PtyServer&) = delete;
    /// Stops, and removes the link.
    ~PtyServer();

    /// Opens the terminal and begins to serve it. Once.
    /// @return 0 or the system's error code; EEXIST if the link's path is something else's
    [[nodiscard]] int start();

    /// The terminal's path; empty while the device has vanished.
    [[nodiscard]] std::string path() const;

private:
    /// A descriptor of the system that is closed when it goes.
    class Descriptor
    {
    public:
        explicit Descriptor(int number = -1) : m_number(number) {}
        Descriptor(const Descriptor&) = delete;
        Descriptor& operator=(const Descriptor&) = delete;
        ~Descriptor() { reset(); }
        void reset(int number = -1);
        [[nodiscard]] int get() const { return m_number; }

    private:
        int m_number;
    };

    [[nodiscard]] int openTerminal();
    void closeTerminal();
    [[nodiscard]] int pointLink(const std::string& path);
    void run();
    void serve();
    void followSpeed();
    void send(std::string_view bytes);
    void waitForTraffic();

    const std::shared_ptr<SimulatedDevice> m_device;
    const std::string m_link;
    Descriptor m_master;
    Descriptor m_slave; ///< keeps the terminal alive while no program has it open
    std::atomic<bool> m_stopping = false;
    mutable std::mutex m_mutex;
    std::string m_path; ///< m_mutex
    std::thread m_thread;
};

} // namespace pelorin
