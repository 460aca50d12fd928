#pragma once

#include "platform/ui/BaseDialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace pelorin {

class SequenceRunner;
struct Outcome;

/// Sends bytes that the user types to the sensor as they are, and shows every byte that comes
/// back until the line falls silent. An exchange that runs when the dialog is closed is cut short.
class ManualCommDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// @param parent a widget of the main window
    /// @param runner outlives the dialog
    ManualCommDialog(QWidget* parent, SequenceRunner& runner);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;

private:
    void execute();
    void takeReply(const Outcome& outcome);
    void showBytes(const QByteArray& bytes);
    void markFields();
    void setOutcome(int stringNumber);

    SequenceRunner& m_runner;
    QLineEdit* m_sendEdit = nullptr;
    QPlainTextEdit* m_receiveEdit = nullptr;
    QLabel* m_markLabel = nullptr;    ///< what is typed and no hexadecimal byte
    QLabel* m_outcomeLabel = nullptr; ///< how the last exchange ended, if not in silence
    int m_outcomeText = 0;
};

} // namespace pelorin
