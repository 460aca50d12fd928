#include "platform/ui/Pictures.h"

namespace pelorin {

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/pelorin/bitmaps/119_PELORIN_%1.png").arg(size));
    return icon;
}

QIcon picture(QLatin1String name)
{
    QIcon icon;
    for (const char* scale : {"", "@2x"})
        icon.addFile(QStringLiteral(":/pelorin/bitmaps/%1%2.png").arg(name, QLatin1String(scale)));
    return icon;
}

} // namespace pelorin
