#include "pages/PortNumberList.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"

#include <QTableWidget>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kDeviceColumn = 0;
constexpr int kDescriptionColumn = 1;

QString descriptionOf(const PresentPort& port)
{
    if (port.simulated)
        return languageString(strings::kSimulated);
    QStringList details{port.shortName, port.adapter.description, port.adapter.manufacturer,
                        port.adapter.serialNumber};
    details.removeAll(QString());
    return details.join(QStringLiteral(", "));
}

void setCell(QTableWidget& list, int row, int column, const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setToolTip(text);
    if (column != PortNumberList::kNumberColumn)
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    list.setItem(row, column, item);
}

} // namespace

void PortNumberList::attach(QTableWidget& list)
{
    m_list = &list;
    list.setColumnCount(3);
    new ColumnWidths(list, {0.48, 0.32, 0.20});
}

void PortNumberList::show(const QList<PortSetting>& ports)
{
    m_rows.clear();
    for (const PortSetting& port : ports)
        m_rows.push_back({port.device, {}, port.name, true, false});
    for (const PresentPort& present : ComPortNames().presentPorts()) {
        const QString device = ComPortNames::stableName(present.device);
        auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& other) {
            return other.device == present.device || other.device == device;
        });
        if (row == m_rows.end()) {
            m_rows.push_back(
                {device,
                 {},
                 present.number == 0 ? QString() : QStringLiteral("COM%1").arg(present.number),
                 false,
                 false});
            row = std::prev(m_rows.end());
        }
        row->description = descriptionOf(present);
        row->isPresent = true;
    }
    m_list->setRowCount(static_cast<int>(m_rows.size()));
    for (int row = 0; row < m_list->rowCount(); ++row) {
        const Row& shown = m_rows[static_cast<std::size_t>(row)];
        setCell(*m_list, row, kDeviceColumn, shown.device);
        setCell(*m_list, row, kDescriptionColumn, shown.description);
        setCell(*m_list, row, kNumberColumn, shown.name);
    }
    translate();
}

QString PortNumberList::nameIn(int row) const
{
    const QString text = m_list->item(row, kNumberColumn)->text().trimmed();
    const bool isPlain = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar digit) {
        return digit.isDigit();
    });
    return isPlain ? QStringLiteral("COM") + text : text;
}

int PortNumberList::rowOf(qsizetype entered) const
{
    for (int row = 0; row < m_list->rowCount(); ++row) {
        const Row& shown = m_rows[static_cast<std::size_t>(row)];
        const QString name = nameIn(row);
        if (!name.isEmpty() && (shown.isSet || name != shown.name) && entered-- == 0)
            return row;
    }
    return -1;
}

QList<PortSetting> PortNumberList::entered() const
{
    QList<PortSetting> ports;
    for (int row = rowOf(0); row >= 0; row = rowOf(ports.size()))
        ports.append({m_rows[static_cast<std::size_t>(row)].device, nameIn(row)});
    return ports;
}

void PortNumberList::translate()
{
    m_list->setHorizontalHeaderLabels({languageString(strings::kDevicePathHeader),
                                       languageString(strings::kDescriptionHeader),
                                       languageString(strings::kComNumberHeader)});
    for (int row = 0; row < m_list->rowCount(); ++row) {
        if (!m_rows[static_cast<std::size_t>(row)].isPresent)
            m_list->item(row, kDescriptionColumn)->setText(languageString(strings::kNotPresent));
    }
}

} // namespace pelorin
