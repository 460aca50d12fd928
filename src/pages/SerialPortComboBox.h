#pragma once

#include "platform/core/ComPortNames.h"

#include <QComboBox>
#include <QHash>
#include <QTimer>

namespace pelorin {

/// A choice among the serial ports of the machine, by COM number. While it is shown it follows
/// what is plugged in and out; the selected port stays in the list.
class SerialPortComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit SerialPortComboBox(QWidget* parent);

    /// Has the list show the devices of another machine.
    void setDevices(const SerialDevices& devices);

    /// Fills the list with the ports that are present now; the selected port stays selected.
    void init();

    /// Selects a port. One that is not present gets an entry too; 0 stands for none.
    void selectPort(int port);

    /// Selects the first port that is not built into the program, if there is one.
    void selectFirstRealPort();

    /// The number of the selected port, 0 for one that has none yet; with nothing selected the one
    /// given to selectPort.
    [[nodiscard]] int getSelectedPort() const;

    /// What is selected, if that is present.
    [[nodiscard]] const PresentPort* selectedDevice() const;
    /// Whether there is any port that is not built into the program.
    [[nodiscard]] bool hasRealPort() const;
    /// The device that has vanished right after it was plugged in, until another one is; empty for
    /// none. Other programs take some adapters.
    [[nodiscard]] const QString& takenDevice() const { return m_takenDevice; }

Q_SIGNALS:
    /// The list has been looked at anew.
    void refreshed();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void show(const QStringList& keys);
    void lookForTaken(const QList<PresentPort>& former);

    SerialDevices m_devices;
    QList<PresentPort> m_ports; ///< those that are present
    QTimer m_poll;
    int m_looks = 0;                 ///< how often the devices were looked at
    QHash<QString, int> m_pluggedIn; ///< at which look a device was there first
    QString m_takenDevice;
    int m_givenPort = 0;
};

} // namespace pelorin
