#include "display/DisplayProtocol.h"

#include "platform/core/ComPort.h"

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

constexpr char kAcknowledged = '*';
constexpr char kTerminator = '\r';
constexpr int kAcknowledgement = 2; ///< bytes of an answer that only acknowledges
constexpr int kLongestReading = 16; ///< bytes of an answer with the display's text
constexpr int kDecimals = 3;

const QList<QByteArray>& setUpCommands()
{
    static const QList<QByteArray> kCommands{"WE",     "SdP3",        "SPUMM",
                                             "SXAOFF", "SXE00000000", "SXeFFFFFFFF"};
    return kCommands;
}

QList<QByteArray> applyCommands(const DisplaySettings& settings)
{
    const bool binary = settings.mode == DisplaySettings::kBinary;
    return {"WE", binary ? "SXTSSIBIN" : "SXTSSIGRAY",
            "SXB" + QByteArray::number(settings.dataBits),
            "SPR" + QByteArray::number(settings.resolution * 0.001, 'f', kDecimals)};
}

} // namespace

DisplayProtocol::DisplayProtocol(ComPort& port, std::uint8_t nodeId)
    : m_port(port), m_nodeId(nodeId)
{
}

bool DisplayProtocol::setUp()
{
    return runSequence(setUpCommands());
}

bool DisplayProtocol::apply(const DisplaySettings& settings)
{
    return runSequence(applyCommands(settings));
}

std::optional<QByteArray> DisplayProtocol::readDisplay()
{
    send("RD");
    const QByteArray answer = readAnswer(kLongestReading);
    if (answer.size() < 2 || answer.front() != kAcknowledged)
        return std::nullopt;
    return answer.mid(1, answer.size() - 2);
}

std::vector<std::string> DisplayProtocol::takeErrors()
{
    return std::exchange(m_errors, {});
}

bool DisplayProtocol::runSequence(const QList<QByteArray>& commands)
{
    for (const QByteArray& command : commands) {
        send(command);
        const QByteArray answer = readAnswer(kAcknowledgement);
        if (answer.size() != kAcknowledgement || answer.front() != kAcknowledged)
            return false;
    }
    return true;
}

void DisplayProtocol::send(const QByteArray& command)
{
    if (const int error = m_port.purge(ComPort::Purge::Both); error != 0)
        note("Error in PurgeComm. Error = " + std::to_string(error));

    const QByteArray frame =
        '$' + QByteArray(1, static_cast<char>('0' + m_nodeId)) + command + kTerminator;
    const int size = static_cast<int>(frame.size());
    const auto [error, written] = m_port.write({frame.constData(), static_cast<std::size_t>(size)});
    if (error != 0) {
        note("Error in WriteFile. Error = " + std::to_string(error));
    } else if (written != size) {
        note("Byte count mismatch in WriteFile. Wrote = " + std::to_string(written) +
             ", Correct = " + std::to_string(size) + ",Error = " + std::to_string(error));
    }
}

/// Reads up to a CR, which stays part of the answer, at most so many bytes, and not beyond a byte
/// that does not come in time.
QByteArray DisplayProtocol::readAnswer(int limit)
{
    QByteArray answer;
    while (answer.size() < limit && !answer.endsWith(kTerminator)) {
        const auto [error, received, byte] = m_port.read();
        if (error != 0)
            note("Error in ReadFile. Error = " + std::to_string(error));
        if (!received)
            break;
        answer.append(byte);
    }
    return answer;
}

void DisplayProtocol::note(const std::string& error)
{
    if (std::find(m_errors.begin(), m_errors.end(), error) == m_errors.end())
        m_errors.push_back(error);
}

} // namespace pelorin
