#pragma once

#include <mutex>
#include <optional>

namespace pelorin {

/// The sensor type that the user has chosen for a firmware revision which the settings do not know.
/// Any thread.
class TypeChoice
{
public:
    void choose(int revision, int type);
    void takeOver(const TypeChoice& other);

    /// The type chosen for a revision that has answered. What was chosen for another one is
    /// forgotten.
    /// @param known whether the settings know the revision: they come first, and end the choice
    [[nodiscard]] std::optional<int> typeFor(int revision, bool known);

private:
    struct Choice
    {
        int revision;
        int type;
    };

    mutable std::mutex m_mutex;
    std::optional<Choice> m_choice; ///< m_mutex
};

} // namespace pelorin
