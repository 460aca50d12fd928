#include "link/SensorFrame.h"

namespace pelorin {

namespace {

constexpr char kGet = 'A';
constexpr char kSet = 'N';

/// The second byte of a frame says what it asks for.
QString token(qsizetype index, char byte)
{
    if (index == 1 && byte == kGet)
        return QStringLiteral("[Get]");
    if (index == 1 && byte == kSet)
        return QStringLiteral("[Set]");
    if (index != 1 && byte == kFrameTerminator)
        return QStringLiteral("[TERM]");
    return QString::asprintf("[%02X]", static_cast<unsigned>(static_cast<unsigned char>(byte)));
}

} // namespace

QByteArray readFrameOf(char id)
{
    return QByteArray().append(id).append(kGet).append(kFrameTerminator);
}

QByteArray writeFrameOf(char id, const QByteArray& value)
{
    return QByteArray().append(id).append(kSet).append(value).append(kFrameTerminator);
}

QString frameText(QByteArrayView frame)
{
    QString text;
    for (qsizetype index = 0; index < frame.size(); ++index)
        text += token(index, frame[index]);
    return text;
}

} // namespace pelorin
