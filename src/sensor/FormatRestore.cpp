#include "sensor/FormatRestore.h"

#include "link/SensorLink.h"
#include "platform/core/Pacing.h"
#include "sensor/ClosingCommand.h"
#include "sensor/ParameterCodec.h"

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kWriteTime = 250ms;
constexpr auto kStoreTime = 2500ms;

/// The group of all formats kept for one sensor.
QString sensorGroup(int port, const QByteArray& version)
{
    return QStringLiteral("COM%1/%2")
        .arg(QString::number(port), QString::fromLatin1(version.toHex()));
}

QString keyOf(int port, const QByteArray& version, const QByteArray& streaming)
{
    return sensorGroup(port, version) + QLatin1Char('/') + QString::fromLatin1(streaming);
}

QString keyOf(const SavedFormat& format)
{
    return keyOf(format.port, format.version, format.streaming);
}

} // namespace

std::optional<QByteArray> formatDigits(const QByteArray& reply)
{
    if (!isWellFormed('D', reply))
        return std::nullopt;
    return reply.toUpper();
}

QByteArray streamingFormat(const QByteArray& digits)
{
    DataFormat format = DataFormat::decode(digits);
    format.flags |= DataFormat::kStream;
    return format.encode();
}

FormatRestore::FormatRestore(const QString& fileName) : m_kept(fileName, QSettings::IniFormat) {}

QString FormatRestore::usersFile()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Korvex Systems"),
                     QStringLiteral("PelorinFormats"))
        .fileName();
}

void FormatRestore::keep(const SavedFormat& format)
{
    m_kept.setValue(keyOf(format), QString::fromLatin1(format.own));
    m_kept.sync(); // where it cannot be stored it is kept for this run
}

void FormatRestore::drop(const SavedFormat& format)
{
    m_kept.remove(keyOf(format));
    m_kept.sync();
}

bool FormatRestore::isKept(const SavedFormat& format) const
{
    return m_kept.contains(keyOf(format));
}

/// What is kept for the sensor that is connected and has answered this format; nothing also if the
/// file was changed by somebody else.
std::optional<QByteArray> FormatRestore::keptFor(const SensorLink& link,
                                                 const QByteArray& digits) const
{
    const QString key = keyOf(link.portNumber(), link.versionText(), digits);
    auto own = formatDigits(m_kept.value(key).toString().toLatin1());
    return own && streamingFormat(*own) == digits ? own : std::nullopt;
}

QByteArray FormatRestore::ownFormat(const SensorLink& link, const QByteArray& digits) const
{
    return keptFor(link, digits).value_or(digits);
}

RequestId FormatRestore::begin(SensorLink& link)
{
    m_kept.beginGroup(sensorGroup(link.portNumber(), link.versionText()));
    const bool concerned = !m_kept.childKeys().isEmpty();
    m_kept.endGroup();
    if (!concerned || !link.isIdentified())
        return 0;
    m_step = Step::ReadFormat;
    m_lossesAtStart = link.lossCount();
    return link.requestRead('D');
}

RequestId FormatRestore::next(SensorLink& link, int result)
{
    const Step done = std::exchange(m_step, Step::Idle);
    if (result != 1 || link.lossCount() != m_lossesAtStart)
        return 0; // what was not written back stays kept

    if (done == Step::ReadFormat) {
        const QByteArray found = formatDigits(link.lastReply()).value_or(QByteArray());
        const auto own = keptFor(link, found);
        if (!own)
            return 0;
        m_current = {link.portNumber(), link.versionText(), *own, found};
        m_step = Step::WriteFormat;
        return link.requestWrite('D', m_current.own);
    }
    if (done == Step::WriteFormat) {
        Pacing::sleep(kWriteTime);
        m_step = Step::Close;
        return requestClosingCommand(link);
    }
    if (done == Step::Close) {
        Pacing::sleep(kStoreTime);
        drop(m_current);
    }
    return 0;
}

} // namespace pelorin
