#pragma once

#include "platform/core/SerialDevices.h"
#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Lets the user choose the serial port to the sensor, and says what is missing to use it. A device
/// without a number gets one when it is chosen.
class SelectPortDialog : public BaseDialog
{
    Q_OBJECT

public:
    /// What the program's start offers besides the ports; each is a result of the dialog.
    static constexpr int kWithoutPort = 2;
    static constexpr int kDemonstration = 3;

    enum class Use {
        Change, ///< of the port that is open
        Start   ///< of the program
    };

    /// @param port the number of the current port, preselected; 0 for none: the first real one is
    /// @param devices those of this machine, or of another one
    explicit SelectPortDialog(QWidget* parent, int port, Use use = Use::Change,
                              const SerialDevices& devices = SerialDevices());

    /// The chosen port's number after OK, otherwise the one given.
    [[nodiscard]] int selectedPort() const { return m_port; }

    void accept() override;
    void translate() override;

protected:
    QWidget* createControl(const QString& className, QWidget* parent) override;
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void showState();
    [[nodiscard]] QString stateText() const;

    int m_port;
    const Use m_use;
    const SerialDevices m_devices;
};

} // namespace pelorin
