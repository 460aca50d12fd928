#pragma once

#include "sensor/OffsetChoice.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <array>
#include <optional>

namespace pelorin {

/// The factory parameters between the sensor's texts and the rows in which the user sees and
/// edits them. A row shows a parameter or a part of one; some parameters that are written follow
/// from several rows. Independent of the locale, except that typed numbers may have its decimal
/// separator.
class FactoryParameters
{
public:
    enum Row : int {
        FactoryText,
        SensorKind, ///< two characters in front of the stroke in 'L'
        Stroke,     ///< millimetres
        Gradient,   ///< 'U'
        Multiplier, ///< 0, 2, 4 or 8, from the two top bits of 'D'
        FactoryTextP,
        Offset,      ///< millimetres
        CycleSuffix, ///< the last two characters of 'M'
        FactoryJ,
        FactoryO
    };
    static constexpr int kRowCount = FactoryO + 1;
    using Texts = std::array<QString, kRowCount>; ///< by row

    /// The parameter that fills a row.
    [[nodiscard]] static char parameterOf(int row);

    void clear() { m_replies.clear(); }
    /// Takes the answer to the read of a parameter. 'A' has to come before 'N'.
    void take(char id, const QByteArray& reply) { m_replies.insert(id, reply); }

    /// The answer to the read of a parameter; empty if it was not read.
    [[nodiscard]] QByteArray reply(char id) const { return m_replies.value(id); }

    /// A row as it was read; empty if it was not.
    [[nodiscard]] QString text(int row) const;

    /// Why the rows cannot be written.
    struct Fault
    {
        QString message; ///< null if they can
        int row = -1;    ///< where the fault is, -1 if it is in no row
    };

    /// Looks for what keeps the rows from being written: a reply that cannot be written back as
    /// it was, a row without a value, a value that its parameter cannot hold.
    /// @param rowCount rows that the sensor has
    [[nodiscard]] Fault findFault(const Texts& entries, int rowCount) const;

    /// What the offset can become, if it is as it was read.
    [[nodiscard]] std::optional<OffsetChoice> offsetToChoose(const Texts& entries) const;

    /// The data text that is written for a parameter; of rows without a fault, and not for an
    /// offset that is to be chosen.
    [[nodiscard]] QByteArray composeWriteValue(char id, const Texts& entries) const;

private:
    [[nodiscard]] QString faultOf(int row, const Texts& entries) const;
    [[nodiscard]] QByteArray composeFormat(const QString& multiplier) const;
    [[nodiscard]] double resolutionMm() const;

    QHash<char, QByteArray> m_replies;
};

} // namespace pelorin
