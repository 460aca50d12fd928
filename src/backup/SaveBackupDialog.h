#pragma once

#include "backup/BackupProgressDialog.h"
#include "sensor/SensorValues.h"

namespace pelorin {

class BackupFile;

/// Saves the sensor's parameters to a file.
class SaveBackupDialog final : public BackupProgressDialog
{
    Q_OBJECT

public:
    /// @param file can be saved, and outlives the dialog
    SaveBackupDialog(QWidget* parent, SequenceRunner& runner, const FormatRestore& formats,
                     BackupFile& file);

protected:
    void work() override;
    [[nodiscard]] bool onlyReads() const override { return true; }

private:
    void readAll();
    void takeReply(const Reply& reply);
    void save();

    BackupFile& m_file;
    SensorValues m_values;
    QString m_doubts; ///< texts that are no values
};

} // namespace pelorin
