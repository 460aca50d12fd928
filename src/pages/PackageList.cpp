#include "pages/PackageList.h"

#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"

#include <QLocale>
#include <QTableWidget>

#include <cmath>

namespace pelorin {

namespace {

/// What the file gets for a distance.
QString distanceOf(const QString& typed, const QString& before)
{
    const double distance = intlAtof(typed);
    if (typed == before || std::isnan(distance))
        return typed;
    return QLocale::c().toString(distance, 'f', QLocale::FloatingPointShortest);
}

} // namespace

void PackageList::attach(QTableWidget& list)
{
    m_list = &list;
    list.setColumnCount(kColumnCount);
    new ColumnWidths(list, {0.5, 0.25, 0.25});
}

void PackageList::show(const QList<PackageSetting>& packages)
{
    m_list->setRowCount(0);
    m_rows.clear();
    for (const PackageSetting& package : packages)
        add(package);
    m_list->setCurrentCell(0, 0);
}

void PackageList::add(const PackageSetting& package)
{
    const int row = m_list->rowCount();
    m_list->insertRow(row);
    m_rows.push_back(package);
    for (int column = 0; column < kColumnCount; ++column)
        m_list->setItem(row, column, new QTableWidgetItem);
    setRow(row, package);
    m_list->setCurrentCell(row, kNameColumn);
}

void PackageList::setRow(int row, const PackageSetting& package)
{
    m_list->item(row, kNameColumn)->setText(package.name);
    m_list->item(row, kSeDistanceColumn)->setText(package.seDistance);
    m_list->item(row, kInactiveZoneColumn)->setText(package.inactiveZone);
}

QList<PackageSetting> PackageList::entered() const
{
    QList<PackageSetting> packages;
    for (int row = 0; row < m_list->rowCount(); ++row) {
        const PackageSetting& before = m_rows[static_cast<std::size_t>(row)];
        const auto text = [&](Column column) { return m_list->item(row, column)->text(); };
        packages.append({.name = text(kNameColumn),
                         .seDistance = distanceOf(text(kSeDistanceColumn), before.seDistance),
                         .inactiveZone = distanceOf(text(kInactiveZoneColumn), before.inactiveZone),
                         .number = before.number});
    }
    return packages;
}

void PackageList::import(const QList<PackageSetting>& packages)
{
    for (PackageSetting package : packages) {
        package.number = -1;
        int row = 0;
        while (row < m_list->rowCount() && m_list->item(row, kNameColumn)->text() != package.name)
            ++row;
        if (row == m_list->rowCount()) {
            add(package);
        } else {
            setRow(row, package);
        }
    }
}

void PackageList::removeCurrent()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    m_rows.erase(m_rows.begin() + row);
    m_list->removeRow(row);
}

void PackageList::translate()
{
    const auto inMillimetres = [](int distance) {
        return QStringLiteral("%1 (%2)").arg(languageString(distance),
                                             languageString(strings::kMillimetres));
    };
    m_list->setHorizontalHeaderLabels({languageString(strings::kNameHeader),
                                       inMillimetres(strings::kSeDistance),
                                       inMillimetres(strings::kDeadZone)});
}

} // namespace pelorin
