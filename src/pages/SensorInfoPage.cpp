#include "pages/SensorInfoPage.h"

#include "link/SensorLink.h"
#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/ColumnWidths.h"
#include "sensor/ParameterCodec.h"

#include <QTableWidget>

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
constexpr std::array kHeaderTexts = {111, 112, 113};

constexpr int kValueColumn = 1;
constexpr int kUnitColumn = 2;

constexpr std::array kReadSequence = {'D', 'A', 'L', 'F', 'V', 'U', 'S',
                                      'P', 'Z', 'N', 'M', 'J', 'K', 'O'};
constexpr int kReadCount = static_cast<int>(kReadSequence.size());
constexpr auto kPauseBetweenReads = 100ms;

/// String numbers of a row's label and unit, 0 for none.
struct Row
{
    int label;
    int unit;
};

constexpr std::array<Row, 18> kRows = {{
    {122, 0},   // data format
    {127, 0},   // measurement direction and mode
    {133, 0},   // multiplier
    {140, 141}, // resolution, mm
    {142, 141}, // stroke, mm
    {176, 146}, // error skip count
    {0, 0},     // spacer
    {138, 0},   // factory text
    {139, 0},   // firmware revision
    {143, 144}, // gradient
    {145, 146},
    {147, 146},
    {148, 146},
    {149, 146},
    {150, 146},
    {151, 146},
    {153, 0}, // extension
    {154, 146},
}};
constexpr int kRowCount = static_cast<int>(kRows.size());

constexpr int kFormatRow = 0;
constexpr int kModeRow = 1;
constexpr int kMultiplierRow = 2;
constexpr int kSkipCountRow = 5;

/// The rows that a sensor of a lesser type does not have, and the last parameter it has.
struct TypeLimit
{
    int ssiType;
    char lastParameter;
    int firstRowNotApplicable;
};
constexpr std::array<TypeLimit, 2> kTypeLimits = {{{0, 'N', 14}, {1, 'M', 15}}};

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

int rowOf(char id)
{
    constexpr std::string_view kOneRowParameters = "ALFVUSPZNMJKO";
    constexpr std::array kOneRowRows = {3, 4, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    return kOneRowRows[kOneRowParameters.find(id)];
}

} // namespace

SensorInfoPage::SensorInfoPage()
    : SensorPage(QStringLiteral("DLG_PELORIN_SENSORINFO")), m_firstRowNotApplicable(kRowCount)
{
}

void SensorInfoPage::setupTranslationMap()
{
    addAccessibleName(kListControl, kListNameText);
}

void SensorInfoPage::onInitDialog()
{
    m_list = getControl<QTableWidget>(kListControl);
    m_list->setRowCount(kRowCount);
    m_list->setColumnCount(static_cast<int>(kHeaderTexts.size()));
    for (int row = 0; row < kRowCount; ++row) {
        for (int column = 0; column < m_list->columnCount(); ++column) {
            auto* item = new QTableWidgetItem;
            if (column != 0)
                item->setTextAlignment(Qt::AlignCenter);
            m_list->setItem(row, column, item);
        }
    }
    new ColumnWidths(*m_list, {0.3, 0.4, 0.3});
}

void SensorInfoPage::translate()
{
    SensorPage::translate();
    QStringList headers;
    for (const int number : kHeaderTexts)
        headers << languageString(number);
    m_list->setHorizontalHeaderLabels(headers);
    m_list->horizontalHeaderItem(0)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int row = 0; row < kRowCount; ++row) {
        const auto& [label, unit] = kRows[static_cast<std::size_t>(row)];
        m_list->item(row, 0)->setText(label ? languageString(label) : QString());
        m_list->item(row, kUnitColumn)->setText(unit ? languageString(unit) : QString());
    }
    renderValues();
}

void SensorInfoPage::getCurrentValues()
{
    showBusy(1);
    m_replies.clear();
    m_firstRowNotApplicable = kRowCount;
    renderValues();
    m_readStep = 0;
    setStatusText(kReadingText);
    beginSequence();
    requestRead(kReadSequence.front());
}

void SensorInfoPage::onLinkReply(int result)
{
    const char id = kReadSequence[static_cast<std::size_t>(m_readStep)];
    if (result == 1) {
        m_replies.insert(id, link().lastReply());
        renderValue(id);
        for (const auto& limit : kTypeLimits) {
            if (link().ssiType() == limit.ssiType && id == limit.lastParameter) {
                markRowsNotApplicable(limit.firstRowNotApplicable);
                m_readStep = kReadCount;
            }
        }
        if (++m_readStep < kReadCount) {
            Pacing::sleep(kPauseBetweenReads);
            requestRead(kReadSequence[static_cast<std::size_t>(m_readStep)]);
        } else {
            setStatusText(kReadyText);
            showBusy(0);
        }
    } else {
        showBusy(0);
        setStatusText(kReadFailedText, {parameterArgument(id)});
    }
    postLinkResult(result);
}

void SensorInfoPage::markRowsNotApplicable(int firstRow)
{
    m_firstRowNotApplicable = firstRow;
    renderValues();
}

void SensorInfoPage::renderValues()
{
    for (int row = 0; row < kRowCount; ++row)
        setValue(row,
                 row < m_firstRowNotApplicable ? QString() : languageString(kNotApplicableText));
    for (auto reply = m_replies.keyBegin(); reply != m_replies.keyEnd(); ++reply)
        renderValue(*reply);
}

void SensorInfoPage::renderValue(char id)
{
    const QByteArray reply = m_replies.value(id);
    if (id != 'D') {
        setValue(rowOf(id), valueText(id, reply));
        return;
    }
    const DataFormat format = DataFormat::decode(reply);
    setValue(kFormatRow, formatText(format));
    setValue(kModeRow, modeText(format));
    setValue(kMultiplierRow, multiplierText(format));
    setValue(kSkipCountRow, QString::fromLatin1(reply.mid(2, 2)));
}

void SensorInfoPage::setValue(int row, const QString& text)
{
    m_list->item(row, kValueColumn)->setText(text);
}

} // namespace pelorin
