#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pelorin {

/// A way in which a simulated device fails.
struct SimulatedFault
{
    enum class Kind {
        None,
        Silent,       ///< no answer
        Late,         ///< the answer begins amount milliseconds later
        Short,        ///< only the first amount bytes of the answer come
        Long,         ///< amount bytes without a CR come instead of the answer
        WrongByte,    ///< the byte at position amount of the answer is disturbed
        NoTerminator, ///< the answer comes without its CR
        Deaf,         ///< the command does not reach it
        Vanish        ///< the port vanishes; it is back after amount milliseconds, 0: not by itself
    };

    Kind kind = Kind::None;
    int amount = 0;
    int times = 0; ///< how often it strikes before it is gone; 0 means always

    bool operator==(const SimulatedFault&) const = default;

    /// Whether it strikes the command, not the answer.
    [[nodiscard]] bool strikesCommand() const { return kind == Kind::Deaf || kind == Kind::Vanish; }
    /// What the fault makes of an answer. Silent, Late and what strikes commands leave it as it is.
    [[nodiscard]] std::string spoil(std::string answer) const;
};

/// A fault and what it strikes.
struct SimulatedFaultRule
{
    SimulatedFault fault;
    std::string command; ///< how the commands begin that it strikes; empty: all

    bool operator==(const SimulatedFaultRule&) const = default;

    /// Reads "kind", "kind:amount", either with "@command" behind it: "silent", "late:800",
    /// "short:5@V". Kinds: silent, late, short, long, wrong-byte, no-cr, deaf, vanish. Nothing if
    /// the text is none of these.
    [[nodiscard]] static std::optional<SimulatedFaultRule> parse(std::string_view text);
};

} // namespace pelorin
