#pragma once

#include <QFrame>

#include <array>

class QLabel;
class QPushButton;

namespace pelorin {

class SafeWriter;

/// Which sensor is worked with: a line above the page with the state of the connection, the
/// sensor's type, firmware revision and factory text, the port, and whether what is written is
/// verified. Without a connected sensor only the state is told, so that nobody takes the page's
/// values for those of a sensor that is there. At the line's end the reading of the page can be
/// cancelled: not where somebody clicks who is in a hurry.
class SensorHeader final : public QFrame
{
    Q_OBJECT

public:
    /// @param writer outlives the header
    SensorHeader(QWidget* parent, const SafeWriter& writer);

    /// Shows what is known by now.
    void showSensor();
    /// The sensor may be another one from now on.
    void forgetSensor();
    /// Shows the button that cancels what the page is reading, or hides it.
    void offerCancel(bool offered);

Q_SIGNALS:
    /// Whether what the pages show is known to be of the sensor that is connected.
    void connectedChanged(bool connected);
    void cancelChosen();

private:
    enum Field { Type, Revision, FactoryText, Port, SafeWrites, FieldCount };

    [[nodiscard]] QString stateText() const;
    [[nodiscard]] QString text(Field field) const;

    const SafeWriter& m_writer;
    bool m_connected = false; ///< as it was told last
    QByteArray m_factoryText; ///< as a page has read it; empty before
    QLabel* m_light;
    QLabel* m_state;
    QPushButton* m_cancelButton;
    std::array<QLabel*, FieldCount> m_fields{};
};

} // namespace pelorin
