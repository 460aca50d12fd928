#pragma once

#include "link/CommLog.h"

#include <QStringList>

namespace pelorin::test {

/// The lines of a communications log, oldest first.
inline QStringList logLines(const CommLog& log)
{
    QStringList lines;
    const auto snapshot = log.snapshot();
    for (int index = 0; index < snapshot.size(); ++index)
        lines << snapshot.line(index);
    return lines;
}

} // namespace pelorin::test
