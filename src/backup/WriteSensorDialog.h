#pragma once

#include "backup/BackupProgressDialog.h"
#include "sensor/WriteResult.h"

namespace pelorin {

class SafeWriter;

/// Writes parameters to the sensor, and has them verified where safe writes are on. Accepted once
/// anything was written; who listens to the writer tells how it ended.
class WriteSensorDialog final : public BackupProgressDialog
{
    Q_OBJECT

public:
    /// @param writer outlives the dialog
    WriteSensorDialog(QWidget* parent, SafeWriter& writer, const FormatRestore& formats, Mode mode,
                      WriteRequest request);

    [[nodiscard]] const WriteResult& result() const { return m_result; }

protected:
    void work() override;

private:
    void write();
    void onWritten(const WriteResult& result);

    SafeWriter& m_writer;
    const WriteRequest m_request;
    WriteResult m_result;
};

} // namespace pelorin
