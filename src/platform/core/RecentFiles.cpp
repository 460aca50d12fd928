#include "platform/core/RecentFiles.h"

#include "platform/core/Profile.h"

#include <QFileInfo>

namespace pelorin {

namespace {

QString nameOf(int place)
{
    return QStringLiteral("%1").arg(place, 2, 10, QLatin1Char('0'));
}

} // namespace

QString RecentFiles::section() const
{
    return QStringLiteral("Recent ") + m_kind;
}

QString RecentFiles::folder() const
{
    const QString last = Profile().readTexts(section()).value(nameOf(1));
    const QString path = QFileInfo(last).absolutePath();
    return last.isEmpty() || !QFileInfo::exists(path) ? QString() : path;
}

QStringList RecentFiles::files() const
{
    QStringList files = Profile().readTexts(section()).values().mid(0, kLimit); // by their names
    files.removeIf([](const QString& path) { return !QFileInfo::exists(path); });
    return files;
}

WholeFile::Outcome RecentFiles::add(const QString& path) const
{
    Profile profile;
    QStringList files = profile.readTexts(section()).values();
    files.removeAll(path);
    files.prepend(path);
    QMap<QString, QString> texts;
    for (int place = 1; place <= kLimit; ++place)
        texts[nameOf(place)] = files.value(place - 1);
    return profile.writeTexts(section(), texts);
}

} // namespace pelorin
