#include "platform/core/Demonstration.h"

#include "platform/core/SettingsLocation.h"
#include "platform/core/UserFolders.h"
#include "platform/core/WholeFile.h"

#include <QFile>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{16} * 1024 * 1024;

/// @return the copy; what cannot be copied is used itself
QString copyOf(const QString& path, const QString& name)
{
    WholeFile copy(demonstrationFolder() + QLatin1Char('/') + name);
    const auto [outcome, content] = WholeFile(path).read(kLargestFile);
    const bool copied =
        outcome.isDone() && copy.makeFolder().isDone() && copy.save(content).isDone();
    return copied ? copy.path() : path;
}

} // namespace

void useDemonstration()
{
    const QString settings =
        copyOf(programFolder() + QStringLiteral("/demo.reg"), QStringLiteral("pelorin.reg"));
    const QString former = profilePath();
    const QString own = demonstrationFolder() + QStringLiteral("/Pelorin.ini");
    if (copyOf(former, QStringLiteral("Pelorin.ini")) != own)
        (void)WholeFile(own).remove(); // there is no profile yet: that of an earlier demonstration
    nameRegistryFile(settings);
    qputenv("PELORIN_PROFILE", QFile::encodeName(own));
}

} // namespace pelorin
