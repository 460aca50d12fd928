#pragma once

#include "platform/ui/BaseDialog.h"
#include "sensor/Plan.h"
#include "sensor/SequenceRunner.h"

#include <functional>

class QProgressBar;
class QPushButton;

namespace pelorin {

class FormatRestore;

/// Does something with the sensor's parameters and shows how far it is. The work begins when the
/// dialog is shown, and the dialog ends by itself: accepted when all is done, rejected otherwise.
/// What only reads can be cancelled. Nothing ends what writes: a sensor with half of its parameters
/// is of no use to anybody. User-interface thread.
class BackupProgressDialog : public BaseDialog
{
    Q_OBJECT

public:
    /// What the user has asked for.
    enum class Mode { Backup, Restore, Compare, PutBack, Report };

    /// What the user has to be told of how it ended; empty for nothing.
    [[nodiscard]] const QString& message() const { return m_message; }
    /// Whether the user wanted it to end.
    [[nodiscard]] bool isCancelled() const { return m_cancelled; }

    /// The number of the text that is the title of what a mode does.
    [[nodiscard]] static int titleOf(Mode mode);

    /// Does nothing: neither Escape nor the window manager abandons the work.
    void reject() override {}

protected:
    /// All outlive the dialog.
    /// @param formats knows whether the sensor carries a format that is not its own
    BackupProgressDialog(QWidget* parent, SequenceRunner& runner, const FormatRestore& formats,
                         Mode mode);

    /// Begins what is to be done; the sensor is connected and nothing else uses it.
    virtual void work() = 0;
    /// Whether nothing is written to the sensor, so that the user may cancel it.
    [[nodiscard]] virtual bool onlyReads() const { return false; }

    [[nodiscard]] SequenceRunner& runner() const { return m_runner; }
    [[nodiscard]] const FormatRestore& formats() const { return m_formats; }

    /// Goes on if the sensor carries its own data format, else ends.
    void checkFormat(std::function<void()> then);
    /// Runs a plan and shows its progress; ends the dialog if it cannot begin.
    void run(Plan plan, std::function<void(const Reply&)> reply,
             std::function<void(const Outcome&)> ended);

    void showText(int stringNumber);
    void showProgress(int stepsDone, int steps);
    void finish(const QString& failure);
    /// All is done.
    /// @param message what the user has to be told all the same
    void succeed(const QString& message = {});

    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void begin();
    void cancel();
    void start(Plan plan, SequenceRunner::Listener listener);

    SequenceRunner& m_runner;
    const FormatRestore& m_formats;
    const Mode m_mode;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cancel = nullptr;
    bool m_cancelled = false;
    QString m_message;
};

} // namespace pelorin
