#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace pelorin {

/// A program that uses a serial device.
class SerialClient
{
public:
    explicit SerialClient(const QString& path)
        : m_device(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
    }
    SerialClient(const SerialClient&) = delete;
    SerialClient& operator=(const SerialClient&) = delete;
    ~SerialClient()
    {
        if (isOpen())
            (void)::close(m_device); // nothing is pending that a failure could lose
    }

    [[nodiscard]] bool isOpen() const { return m_device >= 0; }

    [[nodiscard]] bool setSpeed(speed_t speed)
    {
        termios settings{};
        if (::tcgetattr(m_device, &settings) != 0)
            return false;
        ::cfmakeraw(&settings);
        return ::cfsetspeed(&settings, speed) == 0 &&
               ::tcsetattr(m_device, TCSANOW, &settings) == 0;
    }

    [[nodiscard]] bool send(const QByteArray& bytes)
    {
        return ::write(m_device, bytes.constData(), static_cast<std::size_t>(bytes.size())) ==
               bytes.size();
    }

    /// The bytes up to the next CR; fewer if the rest does not come within some seconds.
    [[nodiscard]] QByteArray readFrame()
    {
        QByteArray frame;
        char byte = 0;
        while (!frame.endsWith('\r') && waitForInput() && ::read(m_device, &byte, 1) == 1)
            frame += byte;
        return frame;
    }

    [[nodiscard]] bool discardInput() { return ::tcflush(m_device, TCIFLUSH) == 0; }

    /// Whether the device is no longer there.
    [[nodiscard]] bool isGone()
    {
        char byte = 0;
        const auto count = ::read(m_device, &byte, 1);
        return count == 0 || (count < 0 && errno == EIO);
    }

private:
    [[nodiscard]] bool waitForInput()
    {
        pollfd source{m_device, POLLIN, 0};
        return ::poll(&source, 1, 5000) == 1;
    }

    int m_device;
};

/// Puts the sensor into programming mode and reads its version.
inline QByteArray readVersion(SerialClient& client)
{
    if (!client.send(QByteArray("PROG\r").repeated(10)) || !client.send("VA\r"))
        return "not sent";
    return client.readFrame();
}

} // namespace pelorin
