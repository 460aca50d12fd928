#pragma once

#include "display/DisplaySettings.h"

#include <QByteArray>
#include <QList>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pelorin {

class ComPort;

/// The display unit's commands: each is sent in a frame with the unit's node and answered before
/// the next one is sent. An error of the port does not end an exchange, only its answer counts.
class DisplayProtocol
{
public:
    /// @param port open; outlives the object
    /// @param nodeId of the unit, 0 to 9
    DisplayProtocol(ComPort& port, std::uint8_t nodeId);

    /// Puts the unit into the state that readings and settings build on.
    /// @return whether it acknowledged every command; the first that it does not ends the sequence
    [[nodiscard]] bool setUp();

    /// Sends an output setting. The same holds for the result.
    [[nodiscard]] bool apply(const DisplaySettings& settings);

    /// The text that the unit displays; nothing if it does not answer with one.
    [[nodiscard]] std::optional<QByteArray> readDisplay();

    /// The errors of the port since the last call, each once, in fixed English words.
    [[nodiscard]] std::vector<std::string> takeErrors();

private:
    [[nodiscard]] bool runSequence(const QList<QByteArray>& commands);
    void send(const QByteArray& command);
    [[nodiscard]] QByteArray readAnswer(int limit);
    void note(const std::string& error);

    ComPort& m_port;
    const std::uint8_t m_nodeId;
    std::vector<std::string> m_errors;
};

} // namespace pelorin
