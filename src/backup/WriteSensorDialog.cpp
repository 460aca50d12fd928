#include "backup/WriteSensorDialog.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/SafeWriter.h"

#include <utility>

namespace pelorin {

WriteSensorDialog::WriteSensorDialog(QWidget* parent, SafeWriter& writer,
                                     const FormatRestore& formats, Mode mode, WriteRequest request)
    : BackupProgressDialog(parent, writer.runner(), formats, mode), m_writer(writer),
      m_request(std::move(request))
{
}

void WriteSensorDialog::work()
{
    checkFormat([this] { write(); });
}

void WriteSensorDialog::write()
{
    SafeWriter::Listener listener;
    if (m_writer.settings().enabled)
        listener.phase = [this](SafeWriter::Phase phase) { showText(textNumberOf(phase)); };
    listener.progress = [this](int stepsDone, int steps) { showProgress(stepsDone, steps); };
    listener.ended = [this](const WriteResult& result) { onWritten(result); };
    if (!m_writer.write(*this, m_request, std::move(listener)))
        finish(languageString(strings::kBeingConnected));
}

void WriteSensorDialog::onWritten(const WriteResult& result)
{
    m_result = result;
    if (result.kind == WriteResult::Kind::NotWritten) {
        finish(QString());
    } else {
        succeed();
    }
}

} // namespace pelorin
