#pragma once

#include "platform/ui/BaseDialog.h"
#include "sensor/Outcome.h"
#include "sensor/SensorValues.h"

#include <string_view>

class QProgressBar;

namespace pelorin {

class BackupFile;
class FormatRestore;
class SequenceRunner;

/// Saves the sensor's parameters to a file, or writes those of a file to the sensor, and shows how
/// far it is. The work begins when the dialog is shown, and the dialog ends by itself: accepted
/// when all is done, rejected otherwise. Nothing else ends it while it uses the sensor: one with
/// half of its parameters is of no use to anybody. User-interface thread.
class BackupProgressDialog final : public BaseDialog
{
    Q_OBJECT

public:
    enum class Mode { Backup, Restore };

    /// All outlive the dialog.
    /// @param file can be saved; read in the mode that restores
    /// @param formats knows whether the sensor carries a format that is not its own
    BackupProgressDialog(QWidget* parent, SequenceRunner& runner, const FormatRestore& formats,
                         BackupFile& file, Mode mode);

    /// What the user has to be told of how it ended; empty for nothing.
    [[nodiscard]] const QString& message() const { return m_message; }

    /// Does nothing while the work runs: neither Escape nor the window manager abandons it.
    void reject() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void begin();
    void transfer();
    void checkFormat();
    [[nodiscard]] bool readFile();
    [[nodiscard]] bool confirmValues();
    void takeReply(const Reply& reply);
    void onTransferred(const Outcome& outcome);
    void finish(const QString& failure);

    SequenceRunner& m_runner;
    const FormatRestore& m_formats;
    BackupFile& m_file;
    const Mode m_mode;
    QProgressBar* m_progress = nullptr;
    std::string_view m_parameters; ///< those of the connected type
    SensorValues m_values;         ///< of the sensor, or of the file
    QString m_message;
};

} // namespace pelorin
