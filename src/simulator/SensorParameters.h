#pragma once

#include <map>
#include <string>
#include <string_view>

namespace pelorin {

/// The parameters that a sensor of a type holds, each a text under a one-byte identifier. What is
/// written is read back at once but lasts only once it has been committed.
class SensorParameters
{
public:
    /// A sensor as it comes from the factory. Types 1 and 2 have more parameters than type 0.
    explicit SensorParameters(int type);

    [[nodiscard]] bool has(char id) const { return m_stored.contains(id); }
    /// What a read gives; empty for a parameter that does not exist.
    [[nodiscard]] std::string value(char id) const;
    /// What outlasts the loss of the supply.
    [[nodiscard]] std::string stored(char id) const;

    void write(char id, std::string_view text);
    void store(char id, std::string_view text);
    void commit();
    void discard() { m_pending.clear(); }

private:
    std::map<char, std::string> m_stored;
    std::map<char, std::string> m_pending; ///< written and not committed
};

} // namespace pelorin
