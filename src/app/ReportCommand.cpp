#include "app/ReportCommand.h"

#include "app/CommandGate.h"
#include "backup/ReadSensorDialog.h"
#include "backup/SensorReport.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/core/WholeFile.h"
#include "platform/ui/FileChooser.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <algorithm>

namespace pelorin {

void ReportCommand::run() const
{
    SequenceRunner& runner = m_shared.writer.runner();
    if (!runner.link().isIdentified())
        return m_shared.gate.addNotice(languageString(strings::kNothingSaved));
    ReadSensorDialog reading(&m_window, runner, m_shared.formats,
                             BackupProgressDialog::Mode::Report);
    if (reading.exec() != QDialog::Accepted)
        return m_shared.gate.addNotice(reading.message());
    SensorReport report{.values = reading.values()};
    describe(report);
    const QString path =
        chooseFile(&m_window, QFileDialog::AcceptSave, languageString(strings::kReportTitle),
                   languageString(strings::kReportFilter), QStringLiteral("html"));
    if (path.isNull())
        return;
    const bool isDocument = path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    const auto saved = WholeFile(path).save(isDocument ? report.pdf() : report.html().toUtf8());
    m_shared.gate.addNotice(saved.message());
}

/// Where and when it was read, and what is known of the sensor besides.
void ReportCommand::describe(SensorReport& report) const
{
    const SensorLink& link = m_shared.writer.runner().link();
    report.time = QDateTime::currentDateTime();
    report.port = languageString(strings::kPort).arg(link.portNumber()) + QStringLiteral(", ") +
                  link.device();
    report.ssiType = link.ssiType();
    const auto entries = m_shared.writer.journal().entries();
    const auto last =
        std::find_if(entries.begin(), entries.end(), [this](const JournalEntry& entry) {
            return m_shared.writer.isSensorOf(entry);
        });
    if (last != entries.end())
        report.lastWrite = *last;
}

} // namespace pelorin
