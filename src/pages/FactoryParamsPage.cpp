#include "pages/FactoryParamsPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/FormatRestore.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QPushButton>
#include <QTableWidget>

#include <array>

namespace pelorin {

namespace {

constexpr int kListControl = 1036;
constexpr int kApplyControl = 1037;

constexpr std::array<ParameterTable::Row, FactoryParameters::kRowCount> kRows = {{
    {strings::kFactoryText, 0},
    {strings::kSensorPackage, 0},
    {strings::kStrokeLength, strings::kMillimetres},
    {strings::kGradient, strings::kVelocityUnit},
    {strings::kMultiplier, strings::kMultiplierUnit},
    {strings::kFactoryTextP, strings::kHexadecimal},
    {strings::kOffset, strings::kMillimetres},
    {strings::kCycleCodeMSuffix, strings::kHexadecimal},
    {strings::kFactoryValueJ, strings::kHexadecimal},
    {strings::kFactoryValueO, strings::kHexadecimal},
}};

/// The rows that sensors of a type have: the first ones.
int rowsOf(const SensorType& type)
{
    int rows = 0;
    while (rows < FactoryParameters::kRowCount && type.has(FactoryParameters::parameterOf(rows)))
        ++rows;
    return rows;
}

} // namespace

FactoryParamsPage::FactoryParamsPage(const FormatRestore& formats, SafeWriter& writer)
    : WritingPage(QStringLiteral("DLG_PELORIN_FACTORYPARAMS"), kApplyControl, writer,
                  WriteRequest::By::FactoryParameters),
      m_formats(formats)
{
}

void FactoryParamsPage::setupTranslationMap()
{
    addToTranslationMap(kApplyControl, strings::kApply);
    addAccessibleName(kListControl, strings::kFactoryParameters);
}

void FactoryParamsPage::onInitDialog()
{
    connect(getControl<QPushButton>(kApplyControl), &QPushButton::clicked, this,
            &FactoryParamsPage::apply);

    m_list = getControl<QTableWidget>(kListControl);
    m_table.attach(*m_list, kRows);
    m_editor.attach(m_list);
    const auto onEdited = [this] {
        enableApply(true);
        updateEntries();
    };
    connect(&m_editor, &CellEditor::typed, this, onEdited);
    connect(&m_editor, &CellEditor::committed, this, onEdited);
}

void FactoryParamsPage::translate()
{
    m_table.translate();
    WritingPage::translate();
}

void FactoryParamsPage::getCurrentValues()
{
    m_parameters.clear();
    const SensorType& type = sensorType(link().ssiType());
    startEditing(type.closing != 0 ? rowsOf(type) : m_rowCount);
    read(type.factoryRead);
}

/// Empties the values and lets those be edited that the sensor has.
void FactoryParamsPage::startEditing(int rowCount)
{
    m_rowCount = rowCount;
    for (int row = 0; row < m_table.rowCount(); ++row) {
        m_table.setValue(row, QString());
        m_table.setEditable(row, row < m_rowCount);
    }
}

void FactoryParamsPage::showReadValue(const Reply& reply)
{
    m_parameters.take(reply.id, reply.text);
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (FactoryParameters::parameterOf(row) == reply.id)
            m_table.setValue(row, m_parameters.text(row));
    }
}

std::vector<WritingPage::Field> FactoryParamsPage::fields() const
{
    std::vector<Field> fields;
    for (int row = 0; row < m_table.rowCount(); ++row) {
        const QString& read = m_table.original(row);
        fields.push_back(
            {.id = FactoryParameters::parameterOf(row),
             .caption = m_table.label(row),
             .read = read,
             .changed = m_editor.text(*m_list, row, ParameterTable::kValueColumn) != read});
    }
    return fields;
}

QStringList FactoryParamsPage::fieldTexts(const SensorValues& values) const
{
    FactoryParameters parameters;
    for (const auto& [id, value] : values)
        parameters.take(id, value);
    QStringList texts;
    for (int row = 0; row < m_table.rowCount(); ++row)
        texts << parameters.text(row);
    return texts;
}

void FactoryParamsPage::mark(int field, const FieldMark& mark)
{
    m_table.mark(field, mark);
}

void FactoryParamsPage::acceptEntries()
{
    m_table.acceptValues();
}

void FactoryParamsPage::restoreRead()
{
    m_editor.revert();
    m_table.restoreValues();
}

/// What a type does not have is not written either: nothing was read for it.
void FactoryParamsPage::apply()
{
    if (isBusy())
        return;
    m_editor.commit();
    const FactoryParameters::Texts texts = entries();
    if (!validateForApply(texts))
        return;
    const auto choice = m_parameters.offsetToChoose(texts);
    const auto offset = choice ? askForOffset(*choice) : std::nullopt;
    if (choice && (!offset || !isLinkKept()))
        return;
    const auto order = sensorType(link().ssiType()).factoryWrite;
    SensorValues values;
    for (const char id : order)
        values[id] = id == 'N' && offset ? *offset : m_parameters.composeWriteValue(id, texts);
    write(order, values);
}

/// Tells the user what keeps the values from being written, and selects the row that it is in.
bool FactoryParamsPage::validateForApply(const FactoryParameters::Texts& texts)
{
    QString reason = hindrance();
    if (reason.isNull() && m_formats.isStreamingFormat(m_parameters.reply('D')))
        reason = languageString(strings::kStreamingFormat);
    const auto fault = reason.isNull() ? m_parameters.findFault(texts, m_rowCount)
                                       : FactoryParameters::Fault{reason, -1};
    if (fault.message.isNull())
        return true;
    warn(window(), fault.message);
    if (fault.row >= 0)
        m_list->selectRow(fault.row);
    return false;
}

FactoryParameters::Texts FactoryParamsPage::entries() const
{
    FactoryParameters::Texts texts;
    for (int row = 0; row < FactoryParameters::kRowCount; ++row)
        texts[static_cast<std::size_t>(row)] = m_table.value(row);
    return texts;
}

} // namespace pelorin
