#pragma once

#include "platform/ui/BaseDialog.h"

class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;

namespace pelorin {

class SendHistory;
class SequenceRunner;
struct Outcome;

/// Sends bytes that the user types to the sensor as they are, and shows every byte that comes
/// back until the line falls silent. Enter sends; Up and Down bring back what was sent. An exchange
/// that runs when the dialog is closed is cut short.
class ManualCommDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// @param parent a widget of the main window
    /// @param runner outlives the dialog
    /// @param history outlives it, too, and is kept for the next one
    ManualCommDialog(QWidget* parent, SequenceRunner& runner, SendHistory& history);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void execute();
    void fillReadMenu();
    void takeReply(const Outcome& outcome);
    void showBytes(const QByteArray& bytes);
    void markFields();
    void setOutcome(int stringNumber);

    SequenceRunner& m_runner;
    SendHistory& m_history;
    QLineEdit* m_sendEdit = nullptr;
    QMenu* m_readMenu = nullptr; ///< fills in what reads a parameter
    QPlainTextEdit* m_receiveEdit = nullptr;
    QPlainTextEdit* m_textEdit = nullptr; ///< the same bytes as characters
    QLabel* m_markLabel = nullptr;        ///< what is typed and no hexadecimal byte
    QLabel* m_outcomeLabel = nullptr;     ///< how the last exchange ended, if not in silence
    int m_outcomeText = 0;
};

} // namespace pelorin
