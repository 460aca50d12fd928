#include "simulator/SimulatedFault.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace pelorin {

namespace {

using Kind = SimulatedFault::Kind;

struct KindName
{
    std::string_view name;
    Kind kind;
    int usualAmount;
};

// A read gives up after 501 ms and takes 10 bytes at most: the usual amounts go just beyond.
constexpr std::array kKindNames{
    KindName{"silent", Kind::Silent, 0},
    KindName{"late", Kind::Late, 700},
    KindName{"short", Kind::Short, 3},
    KindName{"long", Kind::Long, 10},
    KindName{"wrong-byte", Kind::WrongByte, 0},
    KindName{"no-cr", Kind::NoTerminator, 0},
    KindName{"deaf", Kind::Deaf, 0},
    KindName{"vanish", Kind::Vanish, 3000},
};

} // namespace

std::string SimulatedFault::spoil(std::string answer) const
{
    const auto count = static_cast<std::size_t>(std::max(amount, 0));
    const bool terminated = answer.ends_with('\r');
    switch (kind) {
    case Kind::Short:
        answer.resize(std::min(count, answer.size()));
        break;
    case Kind::Long:
        if (terminated)
            answer.pop_back();
        answer.resize(count, '0');
        break;
    case Kind::WrongByte:
        if (count < answer.size())
            answer[count] = static_cast<char>(answer[count] ^ 0x80);
        break;
    case Kind::NoTerminator:
        if (terminated)
            answer.pop_back();
        break;
    case Kind::None:
    case Kind::Silent:
    case Kind::Late:
    case Kind::Deaf:
    case Kind::Vanish:
        break;
    }
    return answer;
}

std::optional<SimulatedFaultRule> SimulatedFaultRule::parse(std::string_view text)
{
    SimulatedFaultRule rule;
    if (const auto at = text.find('@'); at != std::string_view::npos) {
        rule.command = text.substr(at + 1);
        text = text.substr(0, at);
        if (rule.command.empty())
            return std::nullopt;
    }

    const auto colon = text.find(':');
    const auto* known = std::ranges::find(kKindNames, text.substr(0, colon), &KindName::name);
    if (known == kKindNames.end())
        return std::nullopt;
    rule.fault.kind = known->kind;
    rule.fault.amount = known->usualAmount;

    if (colon != std::string_view::npos) {
        const auto digits = text.substr(colon + 1);
        const auto* const last = digits.data() + digits.size();
        const auto [end, error] = std::from_chars(digits.data(), last, rule.fault.amount);
        if (error != std::errc() || end != last || rule.fault.amount < 0)
            return std::nullopt;
    }
    return rule;
}

} // namespace pelorin
