#pragma once

#include "platform/ui/BaseDialog.h"

class QLineEdit;

namespace pelorin {

/// Calculates the position offset that goes with a measurement direction from the mechanical data
/// of the sensor. The data of known sensor packages come from the settings.
class CalculateOffsetDialog : public BaseDialog
{
    Q_OBJECT

public:
    /// @param reverse whether the sensor is to measure in the reverse direction
    /// @param strokeLength millimetres; 0 if it is not known
    CalculateOffsetDialog(QWidget* parent, bool reverse, double strokeLength);

    /// Millimetres, after OK; not-a-number if what was entered was no number.
    [[nodiscard]] double offset() const { return m_offset; }

    /// OK: takes the entries once none that is needed is empty.
    void accept() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void listPackages();
    void choosePackage();
    [[nodiscard]] bool isComplete();

    const bool m_reverse;
    double m_strokeLength;
    double m_offset = 0.0;
    QLineEdit* m_seDistanceEdit = nullptr;
    QLineEdit* m_strokeEdit = nullptr;
    QLineEdit* m_deadZoneEdit = nullptr;
};

} // namespace pelorin
