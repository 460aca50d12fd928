#include "link/SensorIdentification.h"

#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/Strings.h"

#include <algorithm>
#include <array>

namespace pelorin {

namespace {

/// An inclusive range of firmware revisions; only revision 0 while nothing is configured.
struct RevisionBounds
{
    quint8 low = 0;
    quint8 high = 0;
};

std::array<RevisionBounds, kSsiTypeCount> configuredBounds()
{
    std::array<RevisionBounds, kSsiTypeCount> bounds;
    RegistryConfig config;
    if (config.setStorage(productKey(QStringLiteral("Firmware Rev Bounds"))) != 1)
        return bounds;

    for (int type = 0; type < kSsiTypeCount; ++type) {
        auto& range = bounds[static_cast<std::size_t>(type)];
        range.low =
            static_cast<quint8>(config.getValue(QStringLiteral("Type%1Low").arg(type), qint32{0}));
        range.high =
            static_cast<quint8>(config.getValue(QStringLiteral("Type%1High").arg(type), qint32{0}));
    }
    return bounds;
}

} // namespace

int ssiTypeOfVersion(const QByteArray& versionText)
{
    const auto revision = static_cast<quint8>(hexToLong(versionText.left(2)));
    const auto bounds = configuredBounds();
    for (int type = 0; type < kSsiTypeCount; ++type) {
        const auto& range = bounds[static_cast<std::size_t>(type)];
        if (range.low <= revision && revision <= range.high)
            return type;
    }
    return kSsiTypeUnknown;
}

QString unidentifiedText(const QByteArray& versionText)
{
    const auto bounds = configuredBounds();
    const bool configured = std::any_of(bounds.begin(), bounds.end(), [](const auto& range) {
        return range.low != 0 || range.high != 0;
    });
    return configured ? languageString(strings::kOutsideBounds)
                            .arg(QString::fromLatin1(versionText.left(2)))
                      : languageString(strings::kNoBounds);
}

} // namespace pelorin
