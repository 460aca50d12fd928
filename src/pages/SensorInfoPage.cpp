#include "pages/SensorInfoPage.h"

#include "link/SensorLink.h"
#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"

#include <QTableWidget>

#include <algorithm>
#include <array>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kListControl = 1000;

constexpr int kReadingText = 121;
constexpr int kReadFailedText = 123;
constexpr int kReadyText = 126;
constexpr int kNotApplicableText = 152;
constexpr int kListNameText = 1020;

constexpr auto kPauseBetweenReads = 100ms;

struct Row
{
    char parameter; ///< 0 for a spacer
    int unit;       ///< string number, 0 for none
    int label = 0;  ///< string number, where it is not the parameter's name
};

constexpr std::array<Row, 18> kRows = {{
    {'D', 0},
    {'D', 0, 127}, // measurement direction and mode
    {'D', 0, 133}, // multiplier
    {'A', 141},    // mm
    {'L', 141},
    {'D', 146, 176}, // error skip count
    {0, 0},
    {'F', 0},
    {'V', 0},
    {'U', 144},
    {'S', 146},
    {'P', 146},
    {'Z', 146},
    {'N', 146},
    {'M', 146},
    {'J', 146},
    {'K', 0},
    {'O', 146},
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

QString formatText(const DataFormat& format)
{
    return languageString(format.has(DataFormat::kGray) ? 124 : 125).arg(format.dataBits);
}

QString modeText(const DataFormat& format)
{
    const int direction = format.has(DataFormat::kReverse) ? 128 : 129;
    const int mode = format.has(DataFormat::kModeOne)  ? 130
                     : format.has(DataFormat::kStream) ? 131
                                                       : 132;
    return languageString(direction) + QStringLiteral(", ") + languageString(mode);
}

QString multiplierText(const DataFormat& format)
{
    constexpr std::array kTexts = {137, 135, 136, 134};
    return languageString(kTexts[(format.flags & DataFormat::kMultiplierMask) / std::size_t{0x40}]);
}

QString gradientText(const QByteArray& reply)
{
    const double gradient = decodeGradient(reply);
    QString text = QString::asprintf("%01.02f", gradient);
    if (gradient > 0)
        text += QString::asprintf(" (%01.05f)", 25400 / gradient);
    return text;
}

/// The text of a value 0, 1 or 2, or the one for any other.
QString choiceText(qint32 value, const std::array<int, 3>& texts, int otherText)
{
    const bool known = value >= 0 && value < static_cast<qint32>(texts.size());
    return languageString(known ? texts[static_cast<std::size_t>(value)] : otherText);
}

QString extensionText(const QByteArray& reply)
{
    const Extension extension = Extension::decode(reply);
    return QStringList{choiceText(extension.magnets, {160, 155, 156}, 160),
                       choiceText(extension.mode, {157, 158, 159}, 161),
                       choiceText(extension.extension, {162, 163, 164}, 165)}
        .join(QStringLiteral(", "));
}

/// The value shown for a parameter that fills one row.
QString valueText(char id, const QByteArray& reply)
{
    switch (id) {
    case 'A':
        return QString::asprintf("%01.03f", decodeResolutionMm(reply));
    case 'L':
        return QString::asprintf("%01.0f", decodeStrokeMm(reply));
    case 'F':
        return QString::fromLatin1(reply);
    case 'V':
        return QString::number(hexToLong(reply));
    case 'U':
        return gradientText(reply);
    case 'K':
        return extensionText(reply);
    case 'Z':
    case 'M':
        return QString::fromLatin1(reply.left(4).toUpper());
    default:
        return QString::fromLatin1(reply.toUpper());
    }
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
    addAccessibleName(kListControl, kListNameText);
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
    showBusy(1);
    m_replies.clear();
    m_type = &sensorType(link().ssiType());
    m_allRead = false;
    renderValues();
    m_readStep = 0;
    setStatusText(kReadingText);
    beginSequence();
    requestRead(readParameterId());
}

char SensorInfoPage::readParameterId() const
{
    return m_type->information[m_readStep];
}

void SensorInfoPage::onLinkReply(int result)
{
    const char id = readParameterId();
    if (result == 1) {
        m_replies.insert(id, link().lastReply());
        renderValue(id);
        if (++m_readStep < m_type->information.size()) {
            Pacing::sleep(kPauseBetweenReads);
            requestRead(readParameterId());
        } else {
            m_allRead = true;
            renderValues();
            setStatusText(kReadyText);
            showBusy(0);
        }
    } else {
        showBusy(0);
        setStatusText(kReadFailedText, {parameterArgument(id)});
    }
    postLinkResult(result);
}

void SensorInfoPage::renderValues()
{
    for (int row = 0; row < kRowCount; ++row) {
        const char id = kRows[static_cast<std::size_t>(row)].parameter;
        const bool missing = m_allRead && id != 0 && !m_type->has(id);
        m_table.setValue(row, missing ? languageString(kNotApplicableText) : QString());
    }
    for (auto reply = m_replies.keyBegin(); reply != m_replies.keyEnd(); ++reply)
        renderValue(*reply);
}

void SensorInfoPage::renderValue(char id)
{
    const QByteArray reply = m_replies.value(id);
    if (id != 'D') {
        m_table.setValue(rowOf(id), valueText(id, reply));
        return;
    }
    const DataFormat format = DataFormat::decode(reply);
    m_table.setValue(kFormatRow, formatText(format));
    m_table.setValue(kModeRow, modeText(format));
    m_table.setValue(kMultiplierRow, multiplierText(format));
    m_table.setValue(kSkipCountRow, QString::fromLatin1(reply.mid(2, 2)));
}

} // namespace pelorin
