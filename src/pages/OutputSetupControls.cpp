#include "pages/OutputSetupControls.h"

#include "pages/SensorPage.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/OutputRules.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kDataBitsCombo = 1004;
constexpr int kFormatCombo = 1006;
constexpr int kDirectionCombo = 1008;
constexpr int kModeCombo = 1010;
constexpr int kResolutionCombo = 1012;
constexpr int kSkipCountEdit = 1014;
constexpr int kAdvancedGroup = 1015;
constexpr std::array kMagnetRadios = {1017, 1018};
constexpr std::array kExtensionRadios = {1021, 1022, 1023};
constexpr std::array kModeRadios = {1025, 1026, 1027};

struct FieldControls
{
    int caption;
    int control;
    char parameter;
};

constexpr std::array<FieldControls, OutputSetupControls::kFieldCount> kFields = {{
    {1003, kDataBitsCombo, 'D'},
    {1005, kFormatCombo, 'D'},
    {1007, kDirectionCombo, 'D'},
    {1009, kModeCombo, 'D'},
    {1011, kResolutionCombo, 'A'},
    {1013, kSkipCountEdit, 'D'},
    {1016, 1016, 'K'},
    {1020, 1020, 'K'},
    {1024, 1024, 'K'},
}};

const FieldControls& controlsOf(int field)
{
    return kFields[static_cast<std::size_t>(field)];
}

// Of item data 0 and 1.
constexpr std::array kFormatTexts = {strings::kBinary, strings::kGray};
constexpr std::array kDirectionTexts = {strings::kForward, strings::kReverse};
constexpr std::array kModeTexts = {strings::kAsynchronous, strings::kSynchronous};

constexpr int kSkipCountLength = 3;

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

template <std::size_t count>
std::array<QRadioButton*, count> radiosOf(const SensorPage& page,
                                          const std::array<int, count>& controls)
{
    std::array<QRadioButton*, count> radios = {};
    std::transform(controls.begin(), controls.end(), radios.begin(),
                   [&page](int id) { return page.getControl<QRadioButton>(id); });
    return radios;
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
QString textOf(const std::array<QRadioButton*, count>& buttons, int value)
{
    const bool known = value >= 0 && value < static_cast<int>(count);
    return known ? buttons[static_cast<std::size_t>(value)]->text() : QString();
}

/// The captions of a group's buttons stay plain where its own is bold.
template <std::size_t count>
void keepPlain(const std::array<QRadioButton*, count>& buttons)
{
    for (QRadioButton* button : buttons) {
        QFont font = button->font();
        font.setBold(false);
        button->setFont(font);
    }
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
      m_magnets(radiosOf(page, kMagnetRadios)), m_extensions(radiosOf(page, kExtensionRadios)),
      m_modes(radiosOf(page, kModeRadios))
{
    fillLists();
    m_skipCount->setMaxLength(kSkipCountLength);
    m_skipCount->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), m_skipCount));
    connectControls();
    keepPlain(m_magnets);
    keepPlain(m_extensions);
    keepPlain(m_modes);
    m_original.fill(-1);
}

std::array<QComboBox*, 5> OutputSetupControls::lists() const
{
    return {m_dataBits, m_format, m_direction, m_mode, m_resolution};
}

void OutputSetupControls::fillLists()
{
    for (const int bits : kOfferedDataBits)
        m_dataBits->addItem(QString::number(bits), bits);
    addItems(*m_format, static_cast<int>(kFormatTexts.size()));
    addItems(*m_direction, static_cast<int>(kDirectionTexts.size()));
    addItems(*m_mode, static_cast<int>(kModeTexts.size()));
    for (const int micrometres : kOfferedResolutions)
        m_resolution->addItem(QString(), micrometres);
}

/// Lists have signals that filling, translating and reading do not send. Buttons have not: an
/// assistive technology toggles one without a click.
void OutputSetupControls::connectControls()
{
    for (QComboBox* list : lists())
        connect(list, &QComboBox::activated, this, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_magnets)
        connectRadio(button, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_extensions)
        connectRadio(button, &OutputSetupControls::settingChanged);
    for (QRadioButton* button : m_modes)
        connectRadio(button, &OutputSetupControls::onModeRadio);
    connect(m_skipCount, &QLineEdit::textEdited, this, &OutputSetupControls::skipCountChanged);
}

void OutputSetupControls::connectRadio(QRadioButton* button, void (OutputSetupControls::*changed)())
{
    connect(button, &QRadioButton::toggled, this, [this, changed](bool on) {
        if (on && !m_showing)
            (this->*changed)();
    });
}

void OutputSetupControls::translate()
{
    setTexts(*m_format, kFormatTexts);
    setTexts(*m_direction, kDirectionTexts);
    setTexts(*m_mode, kModeTexts);
    for (int index = 0; index < m_resolution->count(); ++index) {
        const int micrometres = m_resolution->itemData(index).toInt();
        m_resolution->setItemText(index, QString::asprintf("%01.03f ", micrometres * 0.001) +
                                             languageString(strings::kResolutionUnit));
    }
    keepRoomForMarks();
}

/// Nothing moves when a caption is marked.
void OutputSetupControls::keepRoomForMarks()
{
    const FieldMark most{.changed = true, .differs = true};
    for (int field = 0; field < kFieldCount; ++field) {
        if (auto* label = m_page.getControl<QLabel>(controlsOf(field).caption)) {
            const QFontMetrics metrics(most.font(label->font()));
            label->setMinimumWidth(metrics.horizontalAdvance(most.caption(caption(field))));
        }
    }
}

QString OutputSetupControls::caption(int field) const
{
    return languageString(m_page.translationMap().value(controlsOf(field).caption));
}

char OutputSetupControls::parameterOf(int field)
{
    return controlsOf(field).parameter;
}

void OutputSetupControls::mark(int field, const FieldMark& mark)
{
    auto* shown = m_page.getControl<QWidget>(controlsOf(field).caption);
    if (auto* label = qobject_cast<QLabel*>(shown)) {
        label->setText(mark.caption(caption(field)));
    } else if (auto* group = qobject_cast<QGroupBox*>(shown)) {
        group->setTitle(mark.caption(caption(field)));
    }
    shown->setFont(mark.font(shown->font()));
    auto* control = m_page.getControl<QWidget>(controlsOf(field).control);
    control->setToolTip(mark.explanation);
    control->setAccessibleDescription(mark.explanation);
}

void OutputSetupControls::setAdvanced(bool shown)
{
    m_page.getControl<QGroupBox>(kAdvancedGroup)->setVisible(shown);
}

void OutputSetupControls::clear()
{
    const QScopedValueRollback showing(m_showing, true);
    for (QComboBox* list : lists())
        list->setCurrentIndex(-1);
    m_skipCount->clear();
    uncheck(m_magnets);
    uncheck(m_extensions);
    uncheck(m_modes);
    for (QRadioButton* button : m_magnets)
        button->setEnabled(true);
    acceptValues();
}

void OutputSetupControls::restoreValues()
{
    const Values original = m_original;
    clear();
    const QScopedValueRollback showing(m_showing, true);
    const auto lists = this->lists();
    for (std::size_t field = 0; field < lists.size(); ++field)
        select(*lists[field], original[field]);
    m_skipCount->setText(text(SkipCount, original[SkipCount]));
    check(m_extensions, original[ExtensionKind]);
    check(m_modes, original[Output]);
    if (original[Output] >= 0)
        setMagnets(magnetsFor(original[Output]) == 2);
    check(m_magnets, original[Magnets]);
    acceptValues();
}

void OutputSetupControls::show(char id, const OutputSettings& read)
{
    const QScopedValueRollback showing(m_showing, true);
    showParameter(id, read);
    const Values now = values();
    for (std::size_t field = 0; field < now.size(); ++field) {
        if (kFields[field].parameter == id)
            m_original[field] = now[field];
    }
}

void OutputSetupControls::showParameter(char id, const OutputSettings& read)
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
        setMagnets(magnetsFor(checkedIndex(m_modes)) == 2);
}

void OutputSetupControls::onModeRadio()
{
    const QScopedValueRollback showing(m_showing, true);
    setMagnets(magnetsFor(checkedIndex(m_modes)) == 2);
    Q_EMIT settingChanged();
}

void OutputSetupControls::setMagnets(bool two)
{
    m_magnets[0]->setEnabled(!two);
    m_magnets[1]->setEnabled(two);
    check(m_magnets, two ? 1 : 0);
}

QWidget* OutputSetupControls::firstMissing(bool advanced) const
{
    for (QComboBox* list : lists()) {
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

OutputSetupControls::Values OutputSetupControls::values() const
{
    return {SensorPage::comboSelectedData(*m_dataBits),
            SensorPage::comboSelectedData(*m_format),
            SensorPage::comboSelectedData(*m_direction),
            SensorPage::comboSelectedData(*m_mode),
            SensorPage::comboSelectedData(*m_resolution),
            m_skipCount->text().isEmpty() ? -1 : skipCount(),
            checkedIndex(m_magnets),
            checkedIndex(m_extensions),
            checkedIndex(m_modes)};
}

OutputSetupControls::Values OutputSetupControls::valuesOf(const OutputSettings& settings)
{
    const DataFormat& format = settings.format;
    return {format.dataBits,
            format.has(DataFormat::kGray),
            format.has(DataFormat::kReverse),
            format.has(DataFormat::kModeOne),
            settings.micrometres,
            format.errorSkipCount,
            settings.extension.magnets - 1,
            settings.extension.extension,
            settings.extension.mode};
}

QString OutputSetupControls::text(int field, int value) const
{
    switch (field) {
    case SkipCount:
        return value < 0 ? QString() : QString::asprintf("%02d", value);
    case Magnets:
        return textOf(m_magnets, value);
    case ExtensionKind:
        return textOf(m_extensions, value);
    case Output:
        return textOf(m_modes, value);
    default: {
        const QComboBox* list = lists()[static_cast<std::size_t>(field)];
        return list->itemText(list->findData(value));
    }
    }
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
