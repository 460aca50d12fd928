#pragma once

#include "backup/BackupProgressDialog.h"
#include "sensor/SensorValues.h"

namespace pelorin {

/// Reads every parameter of the sensor.
class ReadSensorDialog final : public BackupProgressDialog
{
    Q_OBJECT

public:
    /// @param mode what it is read for
    ReadSensorDialog(QWidget* parent, SequenceRunner& runner, const FormatRestore& formats,
                     Mode mode);

    /// What was read, whole once the dialog is accepted.
    [[nodiscard]] const SensorValues& values() const { return m_values; }
    /// The runner's count of changes that these values belong to.
    [[nodiscard]] int changes() const { return m_changes; }

protected:
    void work() override;
    [[nodiscard]] bool onlyReads() const override { return true; }

private:
    void onRead(const Outcome& outcome);

    const bool m_mayStream; ///< whether the format of the position stream may be what it has
    SensorValues m_values;
    int m_changes = 0;
};

} // namespace pelorin
