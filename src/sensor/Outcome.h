#pragma once

#include <QByteArray>
#include <QList>

namespace pelorin {

/// A sensor's answer to the read of a parameter.
struct Reply
{
    char id = 0;
    QByteArray text;
    bool wellFormed = false; ///< wholly a value of its parameter; from what is not nothing follows
                             ///< that may be written, kept or saved
};

/// A parameter that was written and is not what the sensor has.
struct Difference
{
    char id = 0;
    QByteArray written;
    QByteArray has;

    bool operator==(const Difference&) const = default;
};

/// How a plan has ended.
struct Outcome
{
    enum class Kind {
        Done,
        Failed,        ///< at a parameter: no answer, or none that can be used
        Lost,          ///< the link was lost on the way, or is closed
        Abandoned,     ///< its owner has given it up, or the program ends
        StreamNotEnded ///< nothing was done: the position stream before could not be ended
    };

    Kind kind = Kind::Done;
    char parameter = 0;   ///< at which it ended, unless it is done; 0 where that is none
    QByteArray written{}; ///< the parameters that had been written by then, in their order
    QList<Difference> differences{}; ///< found by its Verify steps
    QByteArray unanswered{};         ///< the parameters that these have no usable answer to

    [[nodiscard]] bool isDone() const { return kind == Kind::Done; }

    bool operator==(const Outcome&) const = default;
};

} // namespace pelorin
