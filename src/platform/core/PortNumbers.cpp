#include "platform/core/PortNumbers.h"

#include "platform/core/Profile.h"

namespace pelorin {

namespace {

QString section()
{
    return QStringLiteral("Ports");
}

QString nameOf(int number)
{
    return QStringLiteral("COM%1").arg(number);
}

} // namespace

QMap<int, QString> keptPortNumbers()
{
    QMap<int, QString> numbers;
    const auto texts = Profile().readTexts(section());
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const int number = it.key().mid(3).toInt();
        if (number > 0 && it.key() == nameOf(number))
            numbers[number] = it.value();
    }
    return numbers;
}

WholeFile::Outcome keepPortNumber(int number, const QString& device)
{
    return Profile().writeTexts(section(), {{nameOf(number), device}});
}

} // namespace pelorin
