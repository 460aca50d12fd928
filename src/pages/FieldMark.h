#pragma once

#include <QFont>
#include <QString>

namespace pelorin {

/// How something that the user can set stands out on its page.
struct FieldMark
{
    bool changed = false;  ///< by the user, and not applied
    bool differs = false;  ///< the sensor has not what was written
    QString explanation{}; ///< empty where there is nothing to explain

    /// The caption, bold if it is changed, with a sign behind it if it differs.
    [[nodiscard]] QFont font(QFont plain) const
    {
        plain.setBold(changed);
        return plain;
    }
    [[nodiscard]] QString caption(const QString& plain) const
    {
        return differs ? plain + QStringLiteral(" \u26A0") : plain;
    }
};

} // namespace pelorin
