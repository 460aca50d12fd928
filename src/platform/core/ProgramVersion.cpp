#include "platform/core/ProgramVersion.h"

namespace pelorin {

QString programVersion()
{
    return programRelease().section(u'.', 0, 1);
}

QString programRelease()
{
    return QStringLiteral(PELORIN_RELEASE);
}

} // namespace pelorin
