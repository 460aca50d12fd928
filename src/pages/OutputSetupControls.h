#pragma once

#include "pages/FieldMark.h"
#include "sensor/OutputSettings.h"

#include <QObject>

#include <array>

class QComboBox;
class QLineEdit;
class QRadioButton;

namespace pelorin {

class SensorPage;

/// The controls of the output setup page as one: fills them with settings and reads the settings
/// chosen in them. User-interface thread only.
class OutputSetupControls : public QObject
{
    Q_OBJECT

public:
    /// What can be set, in the order of the page: the lists, the number, the groups of buttons.
    enum Field {
        DataBits,
        Format,
        Direction,
        Mode,
        Resolution,
        SkipCount,
        Magnets,
        ExtensionKind,
        Output
    };
    static constexpr int kFieldCount = 9;
    /// By field, as the sensor counts them; -1 where nothing is selected.
    using Values = std::array<int, kFieldCount>;

    /// @param page has its form already, and outlives this
    explicit OutputSetupControls(SensorPage& page);

    /// Puts the language's texts into the lists; what is selected stays.
    void translate();

    /// Shows or hides the settings that only type 2 has.
    void setAdvanced(bool shown);
    /// Leaves nothing selected and nothing entered.
    void clear();
    /// Shows what a parameter says. A value that no control carries changes nothing.
    void show(char id, const OutputSettings& read);

    [[nodiscard]] Values values() const;
    /// What was shown by the program, whatever the user has made of it.
    [[nodiscard]] const Values& original() const { return m_original; }
    /// What is selected counts as shown by the program.
    void acceptValues() { m_original = values(); }
    void restoreValues();

    /// What the sensor's settings are in the fields, also what no control carries.
    [[nodiscard]] static Values valuesOf(const OutputSettings& settings);
    /// A value as the field shows it; empty if it carries none such.
    [[nodiscard]] QString text(int field, int value) const;
    [[nodiscard]] QString caption(int field) const;
    /// The parameter that carries a field.
    [[nodiscard]] static char parameterOf(int field);
    void mark(int field, const FieldMark& mark);

    /// The first control of the page that lacks an entry; null if none does.
    [[nodiscard]] QWidget* firstMissing(bool advanced) const;
    /// The settings chosen. What has no control stays as it was read.
    [[nodiscard]] OutputSettings chosen(const OutputSettings& read) const;
    /// The number entered; it may be beyond a byte.
    [[nodiscard]] int skipCount() const;

    [[nodiscard]] QWidget* modeList() const;
    [[nodiscard]] QWidget* resolutionList() const;
    [[nodiscard]] QLineEdit* skipCountEdit() const { return m_skipCount; }

Q_SIGNALS:
    /// The user has changed a setting other than the error skip count.
    void settingChanged();
    void skipCountChanged();

private:
    [[nodiscard]] std::array<QComboBox*, 5> lists() const;
    void fillLists();
    void keepRoomForMarks();
    void connectControls();
    void connectRadio(QRadioButton* button, void (OutputSetupControls::*changed)());
    void showParameter(char id, const OutputSettings& read);
    void showFormat(const DataFormat& format);
    void showExtension(const Extension& extension);
    void onModeRadio();
    void setMagnets(bool two);

    SensorPage& m_page;
    QComboBox* m_dataBits;
    QComboBox* m_format;
    QComboBox* m_direction;
    QComboBox* m_mode;
    QComboBox* m_resolution;
    QLineEdit* m_skipCount;
    std::array<QRadioButton*, 2> m_magnets;
    std::array<QRadioButton*, 3> m_extensions; ///< by the sensor's value, as the modes
    std::array<QRadioButton*, 3> m_modes;
    Values m_original;
    bool m_showing = false; ///< what changes now is not the user's doing
};

} // namespace pelorin
