#pragma once

#include "sensor/Settings.h"

#include <array>
#include <functional>

class QLineEdit;

namespace pelorin {

/// The edits for the lowest and the highest firmware revision of each sensor type, two hexadecimal
/// digits each; an empty one is a bound that is not set.
class RevisionFields
{
public:
    using Ranges = decltype(Settings::ranges);

    /// The edits of a type.
    struct Edits
    {
        QLineEdit* low = nullptr;
        QLineEdit* high = nullptr;
    };

    /// @param changed is called when the user has changed any of them
    void attach(const std::array<Edits, kSsiTypeCount>& edits,
                const std::function<void()>& changed);

    void show(const Ranges& ranges);
    [[nodiscard]] Ranges entered() const;
    /// Names the edits in the current language.
    void translate();

    [[nodiscard]] QLineEdit* lowest(qsizetype type) const
    {
        return m_edits[static_cast<std::size_t>(type)].low;
    }

private:
    std::array<Edits, kSsiTypeCount> m_edits{};
};

} // namespace pelorin
