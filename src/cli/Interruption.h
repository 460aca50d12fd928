#pragma once

#include "platform/core/TerminationSignals.h"

#include <utility>

namespace pelorin::cli {

/// Whether somebody has asked the program to end. A second signal changes nothing.
class Interruption final : public QObject
{
    Q_OBJECT

public:
    Interruption()
    {
        connect(&m_signals, &TerminationSignals::received, this, [this] {
            if (!std::exchange(m_hasCome, true))
                Q_EMIT came();
        });
    }

    [[nodiscard]] bool hasCome() const { return m_hasCome; }

Q_SIGNALS:
    void came(); ///< once

private:
    TerminationSignals m_signals;
    bool m_hasCome = false;
};

} // namespace pelorin::cli
