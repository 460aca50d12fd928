#include "pages/SensorInfoPage.h"

#include "link/SensorLink.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <QTableWidget>

#include <algorithm>
#include <array>

namespace pelorin {

namespace {

constexpr int kListControl = 1000;

struct Row
{
    char parameter; ///< 0 for a spacer
    int unit;       ///< string number, 0 for none
    int label = 0;  ///< string number, where it is not the parameter's name
};

constexpr std::array<Row, 18> kRows = {{
    {'D', 0},
    {'D', 0, strings::kMeasurementMode},
    {'D', 0, strings::kMultiplier},
    {'A', strings::kMillimetres},
    {'L', strings::kMillimetres},
    {'D', strings::kHexadecimal, strings::kErrorSkipCount},
    {0, 0},
    {'F', 0},
    {'V', 0},
    {'U', strings::kVelocityUnit},
    {'S', strings::kHexadecimal},
    {'P', strings::kHexadecimal},
    {'Z', strings::kHexadecimal},
    {'N', strings::kHexadecimal},
    {'M', strings::kHexadecimal},
    {'J', strings::kHexadecimal},
    {'K', 0},
    {'O', strings::kHexadecimal},
}};
constexpr int kRowCount = static_cast<int>(kRows.size());

constexpr int kFormatRow = 0;
constexpr int kModeRow = 1;
constexpr int kMultiplierRow = 2;
constexpr int kSkipCountRow = 5;

int labelOf(const Row& row)
{
    return row.label != 0 ? row.label : parameterName(row.parameter);
}

/// The row of a parameter that fills only one.
int rowOf(char id)
{
    const auto isOfParameter = [id](const Row& row) { return row.parameter == id; };
    const auto found = std::find_if(kRows.begin(), kRows.end(), isOfParameter);
    return static_cast<int>(found - kRows.begin());
}

} // namespace

SensorInfoPage::SensorInfoPage() : SensorPage(QStringLiteral("DLG_PELORIN_SENSORINFO")) {}

void SensorInfoPage::setupTranslationMap()
{
    addAccessibleName(kListControl, strings::kSensorValuesName);
}

void SensorInfoPage::onInitDialog()
{
    std::array<ParameterTable::Row, kRows.size()> rows{};
    std::transform(kRows.begin(), kRows.end(), rows.begin(), [](const Row& row) {
        return ParameterTable::Row{labelOf(row), row.unit};
    });
    m_table.attach(*getControl<QTableWidget>(kListControl), rows);
}

void SensorInfoPage::translate()
{
    SensorPage::translate();
    m_table.translate();
    renderValues();
}

void SensorInfoPage::getCurrentValues()
{
    m_replies.clear();
    m_type = &sensorType(link().ssiType());
    m_allRead = false;
    renderValues();
    (void)start(readPlan(m_type->information), strings::kReading);
}

void SensorInfoPage::showReadValue(const Reply& reply)
{
    m_replies[reply.id] = reply.text;
    renderValue(reply.id);
}

void SensorInfoPage::planEnded(const Outcome& outcome)
{
    m_allRead = outcome.isDone();
    renderValues();
}

void SensorInfoPage::renderValues()
{
    for (int row = 0; row < kRowCount; ++row) {
        const char id = kRows[static_cast<std::size_t>(row)].parameter;
        const bool missing = m_allRead && id != 0 && !m_type->has(id);
        m_table.setValue(row, missing ? languageString(strings::kNotApplicable) : QString());
        m_table.mark(row, {});
    }
    for (const auto& reply : m_replies)
        renderValue(reply.first);
}

void SensorInfoPage::renderValue(char id)
{
    const QByteArray& reply = m_replies.at(id);
    if (id != 'D') {
        m_table.setValue(rowOf(id), parameterText(id, reply));
        m_table.mark(rowOf(id), {.explanation = meaningInWords(id, reply, m_replies)});
        return;
    }
    const DataFormat format = DataFormat::decode(reply);
    const QByteArray skipCount = reply.mid(2, 2);
    m_table.setValue(kFormatRow, formatText(format));
    m_table.setValue(kModeRow, modeText(format));
    m_table.setValue(kMultiplierRow, multiplierText(format));
    m_table.setValue(kSkipCountRow, QString::fromLatin1(skipCount));
    m_table.mark(
        kSkipCountRow,
        {.explanation = isHexDigits(skipCount) ? hexadecimalInWords(skipCount) : QString()});
}

} // namespace pelorin
