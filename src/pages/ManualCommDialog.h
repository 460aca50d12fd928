#pragma once

#include "platform/core/WindowMessage.h"
#include "platform/ui/BaseDialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace pelorin {

class SensorLink;

/// Sends bytes that the user types to the sensor as they are, and shows every byte that comes
/// back until the line falls silent. While the dialog exists it gets all completions of the link;
/// whoever runs it aims the link's replies at himself again afterwards.
class ManualCommDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// @param parent a widget of the main window, which gets the busy messages
    /// @param link outlives the dialog
    ManualCommDialog(QWidget* parent, SensorLink& link);
    ~ManualCommDialog() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void customEvent(QEvent* event) override;

private:
    void execute();
    void takeReply(int result);
    void showBytes(const QByteArray& bytes);
    void markFields();
    void setOutcome(int stringNumber);
    void showBusy(int busy);

    SensorLink& m_link;
    QLineEdit* m_sendEdit = nullptr;
    QPlainTextEdit* m_receiveEdit = nullptr;
    QLabel* m_markLabel = nullptr;    ///< what is typed and no hexadecimal byte
    QLabel* m_outcomeLabel = nullptr; ///< how the last exchange ended, if not in silence

    RequestId m_outstanding = 0;
    int m_lossesAtStart = 0;
    int m_outcomeText = 0;
};

} // namespace pelorin
