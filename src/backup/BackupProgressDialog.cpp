#include "backup/BackupProgressDialog.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/BackupFaults.h"
#include "sensor/BackupFile.h"
#include "sensor/FailureText.h"
#include "sensor/FormatRestore.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QProgressBar>

#include <memory>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kOkButton = 1;
constexpr int kMessageControl = 1034;
constexpr int kProgressControl = 1035;

constexpr char kStoreId = 'E';
constexpr auto kRestoreStoreTime = 500ms;

QString quoted(char id, const QByteArray& value)
{
    return QStringLiteral("%1: \"%2\"").arg(parameterInWords(id), QString::fromLatin1(value));
}

} // namespace

BackupProgressDialog::BackupProgressDialog(QWidget* parent, SequenceRunner& runner,
                                           const FormatRestore& formats, BackupFile& file,
                                           Mode mode)
    : BaseDialog(QStringLiteral("116_BackupProgress"), parent), m_runner(runner),
      m_formats(formats), m_file(file), m_mode(mode)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint); // no close box
}

void BackupProgressDialog::setupTranslationMap()
{
    const bool backup = m_mode == Mode::Backup;
    setTitleString(backup ? strings::kSaveBackupTitle : strings::kRestoreBackupTitle);
    addToTranslationMap(kMessageControl,
                        backup ? strings::kSavingBackup : strings::kRestoringBackup);
    addToTranslationMap(kOkButton, strings::kOk);
    addAccessibleName(kMessageControl,
                      backup ? strings::kSaveBackupTitle : strings::kRestoreBackupTitle);
    addAccessibleName(kProgressControl, strings::kProgressName);
}

void BackupProgressDialog::onInitDialog()
{
    m_parameters = sensorType(m_runner.link().ssiType()).backup;
    m_progress = getControl<QProgressBar>(kProgressControl);
    m_progress->setRange(0, static_cast<int>(m_parameters.size()));
    m_progress->setValue(0);
    QMetaObject::invokeMethod(this, &BackupProgressDialog::begin, Qt::QueuedConnection);
}

void BackupProgressDialog::reject()
{
    if (!m_runner.isRunning(*this))
        done(Rejected);
}

void BackupProgressDialog::begin()
{
    if (!isVisible() || m_runner.isBusy()) // ended before, or the program ends
        return finish(QString());
    if (!m_runner.link().isIdentified() || m_parameters.empty()) {
        return finish(languageString(m_mode == Mode::Backup ? strings::kNothingSaved
                                                            : strings::kNotIdentified));
    }
    if (m_mode == Mode::Restore && !readFile())
        return;
    if (m_formats.isRestoreOpen()) {
        checkFormat();
    } else {
        transfer();
    }
}

/// A sensor that still carries the format for the position stream would be saved with it, and
/// what is restored to it would not last.
void BackupProgressDialog::checkFormat()
{
    const auto answered = std::make_shared<QByteArray>();
    const bool begun =
        m_runner.start(*this, readPlan("D", true),
                       {.reply = [answered](const Reply& reply) { *answered = reply.text; },
                        .ended =
                            [this, answered](const Outcome& outcome) {
                                if (!outcome.isDone()) {
                                    finish(readingFailure(outcome));
                                } else if (m_formats.isStreamingFormat(*answered)) {
                                    finish(languageString(strings::kStreamingFormat));
                                } else {
                                    transfer();
                                }
                            }});
    if (!begun)
        finish(languageString(strings::kBeingConnected));
}

void BackupProgressDialog::transfer()
{
    Plan plan = m_mode == Mode::Backup
                    ? readPlan(m_parameters, true)
                    : writePlan(m_parameters, m_values, kStoreId, kRestoreStoreTime);
    const bool begun =
        m_runner.start(*this, std::move(plan),
                       {.reply = [this](const Reply& reply) { takeReply(reply); },
                        .progress = [this](int steps) { m_progress->setValue(steps); },
                        .ended = [this](const Outcome& outcome) { onTransferred(outcome); }});
    if (!begun)
        finish(languageString(strings::kBeingConnected));
}

void BackupProgressDialog::takeReply(const Reply& reply)
{
    m_values[reply.id] = reply.text;
    if (!reply.wellFormed) {
        m_message += m_message.isEmpty() ? languageString(strings::kSavedDoubtful) : QString();
        m_message += QLatin1Char('\n') + quoted(reply.id, reply.text);
    }
}

void BackupProgressDialog::onTransferred(const Outcome& outcome)
{
    if (!outcome.isDone())
        return finish(m_mode == Mode::Backup ? readingFailure(outcome) : writingFailure(outcome));
    if (m_mode == Mode::Backup) {
        if (m_formats.isStreamingFormat(m_values.at('D')))
            return finish(languageString(strings::kStreamingFormat));
        if (const auto saved = m_file.save(m_values); !saved.isDone())
            return finish(saved.message());
    }
    done(Accepted);
}

/// Nothing is written before all that the sensor needs is known to be there.
bool BackupProgressDialog::readFile()
{
    if (const auto outcome = m_file.read(); !outcome.isDone()) {
        finish(outcome.message());
        return false;
    }
    const auto values = m_file.values();
    if (!values) {
        finish(languageString(strings::kNoBackupFile));
        return false;
    }
    m_values = *values;
    const BackupFaults faults = BackupFaults::of(m_values, m_parameters);
    if (faults == BackupFaults())
        return confirmValues();
    QStringList lines{languageString(strings::kBackupUnfit)};
    if (!faults.missing.isEmpty())
        lines << languageString(strings::kBackupMissing).arg(parametersInWords(faults.missing));
    if (!faults.unfit.isEmpty())
        lines << languageString(strings::kBackupNotUsable).arg(parametersInWords(faults.unfit));
    finish(lines.join(QLatin1Char('\n')));
    return false;
}

/// What is no value of its parameter may be what a sensor has, or a reply that was disturbed.
bool BackupProgressDialog::confirmValues()
{
    QStringList doubtful;
    for (const char id : m_parameters) {
        if (const QByteArray& value = m_values.at(id); !isWellFormed(id, value))
            doubtful << quoted(id, value);
    }
    if (doubtful.isEmpty())
        return true;
    const QString question = languageString(strings::kWriteDoubtful) + QLatin1Char('\n') +
                             doubtful.join(QLatin1Char('\n'));
    if (messageBox(this, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Question) ==
        QMessageBox::Yes)
        return true;
    finish(QString());
    return false;
}

void BackupProgressDialog::finish(const QString& failure)
{
    m_message = failure;
    done(Rejected);
}

} // namespace pelorin
