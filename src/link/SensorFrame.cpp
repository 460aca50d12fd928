#include "link/SensorFrame.h"

#include "platform/core/HexText.h"

#include <QRegularExpression>

namespace pelorin {

namespace {

QString token(qsizetype index, char byte)
{
    if (index == 1 && byte == kFrameGet)
        return QStringLiteral("[Get]");
    if (index == 1 && byte == kFrameSet)
        return QStringLiteral("[Set]");
    if (index != 1 && byte == kFrameTerminator)
        return QStringLiteral("[TERM]");
    return QString::asprintf("[%02X]", static_cast<unsigned>(static_cast<unsigned char>(byte)));
}

char byteOf(const QString& token)
{
    if (token == QLatin1String("Get"))
        return kFrameGet;
    if (token == QLatin1String("Set"))
        return kFrameSet;
    return token == QLatin1String("TERM") ? kFrameTerminator : static_cast<char>(hexToInt(token));
}

} // namespace

QByteArray readFrameOf(char id)
{
    return QByteArray().append(id).append(kFrameGet).append(kFrameTerminator);
}

QByteArray writeFrameOf(char id, const QByteArray& value)
{
    return QByteArray().append(id).append(kFrameSet).append(value).append(kFrameTerminator);
}

QString frameText(QByteArrayView frame)
{
    QString text;
    for (qsizetype index = 0; index < frame.size(); ++index)
        text += token(index, frame[index]);
    return text;
}

QByteArray bytesOfFrameText(const QString& line)
{
    static const QRegularExpression kToken(QStringLiteral("\\[(\\w+)\\]"));
    QByteArray bytes;
    for (auto token = kToken.globalMatch(line); token.hasNext();)
        bytes += byteOf(token.next().captured(1));
    return bytes;
}

} // namespace pelorin
