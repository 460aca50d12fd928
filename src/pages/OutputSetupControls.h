#pragma once

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
    void fillLists();
    void connectControls();
    void connectRadio(QRadioButton* button, void (OutputSetupControls::*changed)());
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
    bool m_showing = false; ///< what changes now is not the user's doing
};

} // namespace pelorin
