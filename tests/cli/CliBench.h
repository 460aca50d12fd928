#pragma once

#include "cli/CliRun.h"
#include "sensor/KeptFormats.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedSensor.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"

namespace pelorin::test {

inline const QString kSensor = QStringLiteral("simulator:sensor");
inline const QString kFast = QStringLiteral(PELORIN_FAST_CLI); ///< for sensors that live in it

/// A sensor of type 2 on a line without RTS.
struct PtySensor
{
    explicit PtySensor(const QString& link) : server(sensor, link.toStdString())
    {
        started = server.start() == 0;
    }

    const std::shared_ptr<SimulatedSensor> sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    PtyServer server;
    bool started = false;
};

/// What calls of the program work with: settings, and a folder with the backup of a sensor and some
/// that differ from it.
class CliBench : public QObject
{
protected:
    /// @return what the backup holds; empty if it was not made
    [[nodiscard]] QByteArray prepare() const
    {
        qputenv("XDG_DATA_HOME", m_folder.path(QStringLiteral("data")).toUtf8());
        const QString file = m_folder.path(QStringLiteral("good.dat"));
        CliRun backup({QStringLiteral("backup"), QStringLiteral("--port"), kSensor, file}, kFast);
        const QByteArray text = backup.end() == 0 ? contentOf(file) : QByteArray();
        const QByteArray few = text.left(text.indexOf('\n') + 1) + "44:4A0519\r\n";
        const QByteArray other = QByteArray(text).replace("44:4A0519", "44:4A0518");
        const bool put = m_folder.put(QStringLiteral("few.dat"), few) &&
                         m_folder.put(QStringLiteral("other.dat"), other) &&
                         m_folder.put(QStringLiteral("garbage.dat"), "garbage\r\n");
        return put ? text : QByteArray();
    }

    /// A kept format of a sensor that has, as it comes from the factory, the streaming one.
    static void keepFormat(const QString& device)
    {
        const auto kept = KeptFormats().keep({device, "3A0102", "4A0518", "4A0519"});
        QVERIFY2(kept.isDone(), qPrintable(kept.message()));
    }

    const QByteArray kInstalled = kProductKey + "\"Path\"=\"C:\\\\Pelorin\"\r\n";
    const TestFolder m_folder{};
    const TestRegistry m_settings{kInstalled + kSimulatedBounds +
                                  "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                  "\"simulator:sensor?type=1\"=\"COM9\"\r\n"};
};

} // namespace pelorin::test
