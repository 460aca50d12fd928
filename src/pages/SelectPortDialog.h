#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Lets the user choose the serial port to the sensor.
class SelectPortDialog : public BaseDialog
{
    Q_OBJECT

public:
    /// @param port the number of the current port, preselected
    SelectPortDialog(QWidget* parent, int port);

    /// The chosen port's number after OK, otherwise the one given.
    [[nodiscard]] int selectedPort() const { return m_port; }

    void accept() override;

protected:
    QWidget* createControl(const QString& className, QWidget* parent) override;
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    int m_port;
};

} // namespace pelorin
