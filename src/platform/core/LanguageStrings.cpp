#include "platform/core/LanguageStrings.h"

#include <QByteArray>
#include <QtGlobal>

namespace pelorin {

QString languageString(int number)
{
    const QByteArray id = QByteArray::number(number);
    const QString text = qtTrId(id.constData());
    // An unknown id comes back as it is.
    return text == QLatin1String(id) ? QString() : text;
}

} // namespace pelorin
