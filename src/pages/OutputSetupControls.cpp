#include "pages/OutputSetupControls.h"

#include "pages/SensorPage.h"
#include "platform/core/LanguageStrings.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>

namespace pelorin {

namespace {

constexpr int kDataBitsCombo = 1004;
constexpr int kFormatCombo = 1006;
constexpr int kDirectionCombo = 1008;
constexpr int kModeCombo = 1010;
constexpr int kResolutionCombo = 1012;
constexpr int kSkipCountEdit = 1014;
constexpr int kAdvancedGroup = 1015;

constexpr std::array kDataBits = {24, 25};
constexpr std::array kFormatTexts = {171, 172}; // of item data 0 and 1, as the next two
constexpr std::array kDirectionTexts = {129, 128};
constexpr std::array kModeTexts = {132, 130};
constexpr std::array kResolutions = {5, 10, 50, 100, 20, 2, 1}; // micrometres
constexpr int kResolutionUnitText = 175;

constexpr int kSkipCountLength = 3;
constexpr int kDifferential = 1;

void addItems(QComboBox& list, int count)
{
    for (int data = 0; data < count; ++data)
        list.addItem(QString(), data);
}

template <std::size_t count>
void setTexts(QComboBox& list, const std::array<int, count>& texts)
{
    for (std::size_t index = 0; index < count; ++index)
        list.setItemText(static_cast<int>(index), languageString(texts[index]));
}

quint8 flag(const QComboBox& list, quint8 mask)
{
    return SensorPage::comboSelectedData(list) == 1 ? mask : quint8{0};
}

/// A value that the list does not offer leaves it as it is.
void select(QComboBox& list, int data)
{
    (void)SensorPage::selectComboByData(list, data);
}

/// The index of the checked button, -1 without one.
template <std::size_t count>
int checkedIndex(const std::array<QRadioButton*, count>& buttons)
{
    for (std::size_t index = 0; index < count; ++index) {
        if (buttons[index]->isChecked())
            return static_cast<int>(index);
    }
    return -1;
}

template <std::size_t count>
void check(const std::array<QRadioButton*, count>& buttons, qint32 value)
{
    if (value >= 0 && value < static_cast<qint32>(count))
        buttons[static_cast<std::size_t>(value)]->setChecked(true);
}

/// Leaves no button checked, which an exclusive group does not allow.
template <std::size_t count>
void uncheck(const std::array<QRadioButton*, count>& buttons)
{
    for (QRadioButton* button : buttons) {
        button->setAutoExclusive(false);
        button->setChecked(false);
    }
    for (QRadioButton* button : buttons)
        button->setAutoExclusive(true);
}

} // namespace

OutputSetupControls::OutputSetupControls(SensorPage& page)
    : QObject(&page), m_page(page), m_dataBits(page.getControl<QComboBox>(kDataBitsCombo)),
      m_format(page.getControl<QComboBox>(kFormatCombo)),
      m_direction(page.getControl<QComboBox>(kDirectionCombo)),
      m_mode(page.getControl<QComboBox>(kModeCombo)),
      m_resolution(page.getControl<QComboBox>(kResolutionCombo)),
      m_skipCount(page.getControl<QLineEdit>(kSkipCountEdit)),
      m_magnets{page.getControl<QRadioButton>(1017), page.getControl<QRadioButton>(1018)},
      m_extensions{page.getControl<QRadioButton>(1021), page.getControl<QRadioButton>(1022),
                   page.getControl<QRadioButton>(1023)},
      m_modes{page.getControl<QRadioButton>(1025), page.getControl<QRadioButton>(1026),
              page.getControl<QRadioButton>(1027)}
{
    fillLists();
    m_skipCount->setMaxLength(kSkipCountLength);
    m_skipCount->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), m_skipCount));
    connectControls();
}

void OutputSetupControls::fillLists()
{
    for (const int bits : kDataBits)
        m_dataBits->addItem(QString::number(bits), bits);
    addItems(*m_format, static_cast<int>(kFormatTexts.size()));
    addItems(*m_direction, static_cast<int>(kDirectionTexts.size()));
    addItems(*m_mode, static_cast<int>(kModeTexts.size()));
    for (const int micrometres : kResolutions)
        m_resolution->addItem(QString(), micrometres);
}

/// Signals that filling, translating and reading do not send.
void OutputSetupControls::connectControls()
{
    for (QComboBox* list : {m_dataBits, m_format, m_direction, m_mode, m_resolution})
        connect(list, &QComboBox::activated, this, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_magnets)
        connect(button, &QRadioButton::clicked, this, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_extensions)
        connect(button, &QRadioButton::clicked, this, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_modes)
        connect(button, &QRadioButton::clicked, this, &OutputSetupControls::onModeRadio);
    connect(m_skipCount, &QLineEdit::textEdited, this, &OutputSetupControls::skipCountChanged);
}

void OutputSetupControls::translate()
{
    setTexts(*m_format, kFormatTexts);
    setTexts(*m_direction, kDirectionTexts);
    setTexts(*m_mode, kModeTexts);
    for (int index = 0; index < m_resolution->count(); ++index) {
        const int micrometres = m_resolution->itemData(index).toInt();
        m_resolution->setItemText(index, QString::asprintf("%01.03f ", micrometres * 0.001) +
                                             languageString(kResolutionUnitText));
    }
}

void OutputSetupControls::setAdvanced(bool shown)
{
    m_page.getControl<QGroupBox>(kAdvancedGroup)->setVisible(shown);
}

void OutputSetupControls::clear()
{
    for (QComboBox* list : {m_dataBits, m_format, m_direction, m_mode, m_resolution})
        list->setCurrentIndex(-1);
    m_skipCount->clear();
    uncheck(m_magnets);
    uncheck(m_extensions);
    uncheck(m_modes);
    for (QRadioButton* button : m_magnets)
        button->setEnabled(true);
}

void OutputSetupControls::show(char id, const OutputSettings& read)
{
    if (id == 'D') {
        showFormat(read.format);
    } else if (id == 'A') {
        select(*m_resolution, read.micrometres);
    } else if (id == 'K') {
        showExtension(read.extension);
    }
}

void OutputSetupControls::showFormat(const DataFormat& format)
{
    select(*m_dataBits, format.dataBits);
    select(*m_format, format.has(DataFormat::kGray));
    select(*m_direction, format.has(DataFormat::kReverse));
    select(*m_mode, format.has(DataFormat::kModeOne));
    m_skipCount->setText(QString::asprintf("%02d", int{format.errorSkipCount}));
}

void OutputSetupControls::showExtension(const Extension& extension)
{
    check(m_modes, extension.mode);
    check(m_extensions, extension.extension);
    if (checkedIndex(m_modes) >= 0)
        setMagnets(checkedIndex(m_modes) == kDifferential);
}

void OutputSetupControls::onModeRadio()
{
    setMagnets(checkedIndex(m_modes) == kDifferential);
    Q_EMIT settingChanged();
}

/// A difference needs two magnets, every other output is of one.
void OutputSetupControls::setMagnets(bool two)
{
    m_magnets[0]->setEnabled(!two);
    m_magnets[1]->setEnabled(two);
    check(m_magnets, two ? 1 : 0);
}

QWidget* OutputSetupControls::firstMissing(bool advanced) const
{
    for (QComboBox* list : {m_dataBits, m_format, m_direction, m_mode, m_resolution}) {
        if (list->currentIndex() < 0)
            return list;
    }
    if (m_skipCount->text().isEmpty())
        return m_skipCount;
    if (!advanced)
        return nullptr;
    if (checkedIndex(m_magnets) < 0)
        return m_magnets.front();
    if (checkedIndex(m_extensions) < 0)
        return m_extensions.front();
    return checkedIndex(m_modes) < 0 ? m_modes.front() : nullptr;
}

OutputSettings OutputSetupControls::chosen(const OutputSettings& read) const
{
    OutputSettings chosen = read;
    chosen.format.flags = static_cast<quint8>(
        (read.format.flags & DataFormat::kMultiplierMask) | flag(*m_format, DataFormat::kGray) |
        flag(*m_direction, DataFormat::kReverse) | flag(*m_mode, DataFormat::kModeOne));
    chosen.format.errorSkipCount = static_cast<quint8>(skipCount());
    chosen.format.dataBits = static_cast<quint8>(SensorPage::comboSelectedData(*m_dataBits));
    chosen.micrometres = SensorPage::comboSelectedData(*m_resolution);
    chosen.extension = {checkedIndex(m_extensions), checkedIndex(m_modes),
                        checkedIndex(m_magnets) + 1};
    return chosen;
}

int OutputSetupControls::skipCount() const
{
    return m_skipCount->text().toInt();
}

QWidget* OutputSetupControls::modeList() const
{
    return m_mode;
}

QWidget* OutputSetupControls::resolutionList() const
{
    return m_resolution;
}

} // namespace pelorin
