#include "pages/PortNumberList.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColumnWidths.h"
#include "platform/ui/TableCells.h"

#include <QTableWidget>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kDeviceColumn = 0;
constexpr int kDescriptionColumn = 1;

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
            m_rows.push_back({device, {}, ComPortNames::nameOf(present.number), false, false});
            row = std::prev(m_rows.end());
        }
        row->description =
            present.simulated ? languageString(strings::kSimulated) : present.details();
        row->isPresent = true;
    }
    m_list->setRowCount(static_cast<int>(m_rows.size()));
    for (int row = 0; row < m_list->rowCount(); ++row) {
        const Row& shown = m_rows[static_cast<std::size_t>(row)];
        setReadOnlyCell(*m_list, row, kDeviceColumn, shown.device);
        setReadOnlyCell(*m_list, row, kDescriptionColumn, shown.description);
        QTableWidgetItem& number = setReadOnlyCell(*m_list, row, kNumberColumn, shown.name);
        number.setFlags(number.flags() | Qt::ItemIsEditable);
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
