#pragma once

#include "display/DisplayLink.h"
#include "platform/ui/BaseDialog.h"

#include <QPointer>
#include <QTimer>

#include <optional>

class QLabel;
class QMessageBox;

namespace pelorin {

/// Shows what the display unit displays, asked for three times a second, and sends it the output
/// settings that the user applies. Modeless. User-interface thread only.
///
/// It closes once the unit has answered what it was asked and has got what the user has applied,
/// and its port is closed; the window stays until then, at most as long as the time limits of the
/// two exchanges and of closing the port. What the user must be told is shown when no other dialog
/// is open.
class DisplayUnitDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// The unit's port and node are read from the settings now.
    /// @param factory makes the unit's port; outlives the dialog
    /// @param sensorPort COM number of the sensor's port, which the unit cannot share
    DisplayUnitDialog(QWidget* parent, const ComPortFactory& factory, int sensorPort);
    ~DisplayUnitDialog() override;

    /// Whether the unit is connected through COM<portNumber>.
    [[nodiscard]] bool usesPort(int portNumber) const;

    void translate() override;
    void done(int result) override;

Q_SIGNALS:
    /// The port could not be closed, since its device does not react; the dialog ends all the same.
    void portStuck(const QString& text);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void customEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void openLink();
    void onSetUp(int result);
    void onTimer();
    void requestNext();
    void onCompletion(int result);
    void closeLink();
    void onClosed(int result);
    void apply();
    void showOutcome(int text);
    void collectMessage();
    void showMessage();

    const int m_sensorPort;
    DisplayLink m_link;
    RequestId m_setUp = 0;       ///< the set-up that runs
    RequestId m_outstanding = 0; ///< the reading or apply that runs
    RequestId m_closing = 0;     ///< the closing of the link
    bool m_applying = false;     ///< what runs is an apply
    bool m_closeWanted = false;  ///< the link is closed with the next completion
    std::optional<DisplaySettings> m_pendingSettings; ///< applied, not yet handed to the link
    QString m_shownText;
    QLabel* m_outcomeLabel = nullptr;
    int m_outcomeText = 0; ///< what became of the last apply; 0 as long as that is open
    QString m_message;     ///< not yet shown
    QPointer<QMessageBox> m_messageBox;
    QTimer m_timer;
};

} // namespace pelorin
