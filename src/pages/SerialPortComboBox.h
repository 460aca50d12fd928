#pragma once

#include <QComboBox>

namespace pelorin {

/// A choice among the serial ports of the machine, by COM number. The list is read again each
/// time it is opened, so that an adapter plugged in meanwhile is there.
class SerialPortComboBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    /// Fills the list with the ports that are present now; the selected port stays selected.
    void init();

    /// Selects a port. One that is not present gets an entry too; 0 stands for none.
    void selectPort(int port);

    /// The number of the selected port; with nothing selected the one given to selectPort.
    [[nodiscard]] int getSelectedPort() const;

    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    int m_givenPort = 0;
};

} // namespace pelorin
