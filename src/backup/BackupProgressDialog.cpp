#include "backup/BackupProgressDialog.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/FormatRestore.h"

#include <QProgressBar>
#include <QPushButton>

#include <memory>
#include <utility>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kMessageControl = 1034;
constexpr int kProgressControl = 1035;

struct Texts
{
    int title;
    int message;
};

Texts textsOf(BackupProgressDialog::Mode mode)
{
    switch (mode) {
    case BackupProgressDialog::Mode::Backup:
        return {strings::kSaveBackupTitle, strings::kSavingBackup};
    case BackupProgressDialog::Mode::Restore:
        return {strings::kRestoreBackupTitle, strings::kRestoringBackup};
    case BackupProgressDialog::Mode::Compare:
        return {strings::kCompareTitle, strings::kCheckingSensor};
    case BackupProgressDialog::Mode::Report:
        return {strings::kReportTitle, strings::kCheckingSensor};
    case BackupProgressDialog::Mode::PutBack:
        break;
    }
    return {strings::kPutBackTitle, strings::kRestoringBackup};
}

} // namespace

BackupProgressDialog::BackupProgressDialog(QWidget* parent, SequenceRunner& runner,
                                           const FormatRestore& formats, Mode mode)
    : BaseDialog(QStringLiteral("116_BackupProgress"), parent), m_runner(runner),
      m_formats(formats), m_mode(mode)
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint); // no close box
}

int BackupProgressDialog::titleOf(Mode mode)
{
    return textsOf(mode).title;
}

void BackupProgressDialog::setupTranslationMap()
{
    const auto [title, message] = textsOf(m_mode);
    setTitleString(title);
    addToTranslationMap(kMessageControl, message);
    addToTranslationMap(kOkButton, strings::kOk);
    addToTranslationMap(kCancelButton, strings::kCancel);
    addAccessibleName(kMessageControl, title);
    addAccessibleName(kProgressControl, strings::kProgressName);
}

void BackupProgressDialog::onInitDialog()
{
    m_progress = getControl<QProgressBar>(kProgressControl);
    m_progress->setValue(0);
    m_cancel = getControl<QPushButton>(kCancelButton);
    m_cancel->setVisible(onlyReads());
    m_cancel->setFocus();
    connect(m_cancel, &QPushButton::clicked, this, &BackupProgressDialog::cancel);
    QMetaObject::invokeMethod(this, &BackupProgressDialog::begin, Qt::QueuedConnection);
}

void BackupProgressDialog::begin()
{
    if (m_runner.isBusy()) // the program ends
        return finish(QString());
    if (!m_runner.link().isIdentified()) {
        const bool saves = m_mode == Mode::Backup || m_mode == Mode::Report;
        return finish(languageString(saves ? strings::kNothingSaved : strings::kNotIdentified));
    }
    work();
}

/// The outstanding request is answered first; the end of the plan ends the dialog. The user knows
/// of it.
void BackupProgressDialog::cancel()
{
    m_cancelled = true;
    m_cancel->setEnabled(false);
    m_runner.abandon(*this);
}

/// A sensor that still carries the format for the position stream would be saved with it, and
/// what is restored to it would not last.
void BackupProgressDialog::checkFormat(std::function<void()> then)
{
    if (!m_formats.isRestoreOpen())
        return then();
    const auto answered = std::make_shared<QByteArray>();
    const auto checked = [this, answered, then = std::move(then)](const Outcome& outcome) {
        if (!outcome.isDone()) {
            finish(readingFailure(outcome));
        } else if (m_formats.isStreamingFormat(*answered)) {
            finish(languageString(strings::kStreamingFormat));
        } else {
            then();
        }
    };
    start(readPlan("D", true),
          {.reply = [answered](const Reply& reply) { *answered = reply.text; }, .ended = checked});
}

void BackupProgressDialog::run(Plan plan, std::function<void(const Reply&)> reply,
                               std::function<void(const Outcome&)> ended)
{
    const int steps = static_cast<int>(plan.size());
    showProgress(0, steps);
    start(std::move(plan),
          {.reply = std::move(reply),
           .progress = [this, steps](int stepsDone) { showProgress(stepsDone, steps); },
           .ended = std::move(ended)});
}

void BackupProgressDialog::start(Plan plan, SequenceRunner::Listener listener)
{
    if (!m_runner.start(*this, std::move(plan), std::move(listener)))
        finish(languageString(strings::kBeingConnected));
}

void BackupProgressDialog::showText(int stringNumber)
{
    addToTranslationMap(kMessageControl, stringNumber);
    translate();
}

void BackupProgressDialog::showProgress(int stepsDone, int steps)
{
    m_progress->setRange(0, steps);
    m_progress->setValue(stepsDone);
}

void BackupProgressDialog::finish(const QString& failure)
{
    m_message = m_cancelled ? QString() : failure;
    done(Rejected);
}

void BackupProgressDialog::succeed(const QString& message)
{
    m_message = message;
    done(Accepted);
}

} // namespace pelorin
