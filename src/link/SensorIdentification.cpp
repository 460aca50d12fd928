#include "link/SensorIdentification.h"

#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/Strings.h"

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kRevisionLength = 2;

} // namespace

AllRevisionBounds revisionBounds()
{
    AllRevisionBounds bounds;
    RegistryConfig config;
    if (config.setStorage(productKey(QStringLiteral("Firmware Rev Bounds"))) != 1)
        return bounds;

    const auto boundOf = [&config](const QString& name) {
        return static_cast<quint8>(config.getValue(name, qint32{0}));
    };
    for (int type = 0; type < kSsiTypeCount; ++type) {
        bounds[static_cast<std::size_t>(type)] = {boundOf(QStringLiteral("Type%1Low").arg(type)),
                                                  boundOf(QStringLiteral("Type%1High").arg(type))};
    }
    return bounds;
}

RevisionBounds RevisionBounds::widenedTo(int revision) const
{
    if (!hasAny() || low > high)
        return {revision, revision};
    return {std::min(low, revision), std::max(high, revision)};
}

bool canWiden(const AllRevisionBounds& bounds, int type, int revision)
{
    const RevisionBounds wide = bounds[static_cast<std::size_t>(type)].widenedTo(revision);
    for (int other = 0; other < kSsiTypeCount; ++other) {
        const RevisionBounds& range = bounds[static_cast<std::size_t>(other)];
        if (other != type && range.hasAny() && range.low <= wide.high && wide.low <= range.high)
            return false;
    }
    return true;
}

int revisionOf(const QByteArray& versionText)
{
    return static_cast<quint8>(hexToLong(versionText.left(kRevisionLength)));
}

QString revisionText(const QByteArray& versionText)
{
    return QString::fromLatin1(versionText.left(kRevisionLength));
}

QString revisionText(int revision)
{
    return QString::asprintf("%02X", static_cast<unsigned>(revision));
}

int ssiTypeOfVersion(const QByteArray& versionText)
{
    const int revision = revisionOf(versionText);
    const auto bounds = revisionBounds();
    for (int type = 0; type < kSsiTypeCount; ++type) {
        const auto& range = bounds[static_cast<std::size_t>(type)];
        if (range.low <= revision && revision <= range.high)
            return type;
    }
    return kSsiTypeUnknown;
}

QString unidentifiedText(const QByteArray& versionText)
{
    const auto bounds = revisionBounds();
    const bool configured =
        std::any_of(bounds.begin(), bounds.end(), [](const auto& range) { return range.hasAny(); });
    return configured ? languageString(strings::kOutsideBounds).arg(revisionText(versionText))
                      : languageString(strings::kNoBounds);
}

} // namespace pelorin
