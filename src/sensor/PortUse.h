#pragma once

#include "platform/core/WindowMessage.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace pelorin {

class SensorLink;

/// What is being done with the link's port. Every use of it begins with closing it, which may
/// switch the sensor's supply off, as opening one does, which raises RTS: neither comes before the
/// sensor has stored what was written to it. A use that is still under way when the next is asked
/// for has failed. User-interface thread.
class PortUse final : public QObject
{
    Q_OBJECT

public:
    /// Gets whether a port is open; else the link tells why.
    using Done = std::function<void(bool)>;

    /// @param link outlives this, and whoever gets its replies hands them on to takeResult
    explicit PortUse(SensorLink& link);

    /// A frame that may change the sensor leaves, or has left.
    void noteWrite() { m_sinceWrite.start(); }
    /// How long the sensor still needs its supply to store what was written to it.
    [[nodiscard]] std::chrono::milliseconds storeWait() const;

    /// Opens another port, or the same again.
    void open(int number, Done done);
    void open(int number, const QString& device, Done done);
    void reopen(Done done);
    /// @param supplyOff whether the sensor's supply is switched off before
    void close(bool supplyOff, Done done);

    /// Whether another port is being opened: nothing begins meanwhile.
    [[nodiscard]] bool isChanging() const { return m_use && m_use->changes; }

    /// @return whether the request was one of the port
    [[nodiscard]] bool takeResult(RequestId answered, int result);

Q_SIGNALS:
    /// A port is not given back by its device. It is left alone: nobody can open it until then.
    /// @param name of the port for the user
    void stuck(const QString& name);

private:
    struct Use
    {
        std::function<RequestId()> open{}; ///< none: it stays closed
        QString name{};                    ///< of the port to be opened
        bool supplyOff = false;
        Done done{};
        bool changes = false; ///< to another port
        bool opening = false;
    };

    void begin(Use use);

    SensorLink& m_link;
    RequestId m_request = 0; ///< outstanding
    QString m_name;          ///< of the port that is closed next
    std::optional<Use> m_use;
    QElapsedTimer m_sinceWrite; ///< invalid before the first
    QTimer m_wait;              ///< for the sensor to have stored
};

} // namespace pelorin
