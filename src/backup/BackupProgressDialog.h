#pragma once

#include "platform/core/WindowMessage.h"
#include "platform/ui/BaseDialog.h"
#include "sensor/BackupParameters.h"

#include <string_view>

class QProgressBar;

namespace pelorin {

class BackupFile;
class SensorLink;

/// Saves the sensor's parameters to a file, or writes those of a file to the sensor, one request
/// at a time, and shows how far it is. The work begins when the dialog is shown, and the dialog
/// ends by itself: accepted when all is done, rejected after it has told the user what failed.
/// Nothing else ends it, since a sensor with half of its parameters is of no use to anybody.
///
/// The link's completions come to the dialog as long as it exists; whoever had them before aims
/// them back. User-interface thread.
class BackupProgressDialog final : public BaseDialog
{
    Q_OBJECT

public:
    enum class Mode { Backup, Restore };

    /// @param parent a widget of the main window, which is told when the dialog is busy
    /// @param file open for what the mode does with it
    BackupProgressDialog(QWidget* parent, SensorLink& link, BackupFile& file, Mode mode);
    ~BackupProgressDialog() override;

    /// Does nothing: neither Escape nor the window manager abandons the work.
    void reject() override {}

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void customEvent(QEvent* event) override;

private:
    void start();
    [[nodiscard]] bool readFile();
    void request();
    void onLinkReply(int result);
    void takeReply();
    void advance();
    void saveFile();
    void storeInSensor();

    void failRequest();
    [[nodiscard]] QString writtenText() const;
    void fail(const QString& message);
    void showBusy(int busy);

    SensorLink& m_link;
    BackupFile& m_file;
    const Mode m_mode;
    QProgressBar* m_progress = nullptr;

    std::string_view m_parameters; ///< those of the connected type, by step
    std::size_t m_step = 0;        ///< their number when the restored ones are being stored
    RequestId m_outstanding = 0;
    int m_lossesAtStart;
    BackupValues m_values;
};

} // namespace pelorin
