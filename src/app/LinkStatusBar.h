#pragma once

#include "app/Light.h"

#include <QStatusBar>
#include <QTimer>

#include <functional>

class QLabel;

namespace pelorin {

/// The status bar of the main window: a light for the state of the sensor link, the message of
/// the program and its pages with the number of changes that are not applied, and the port in use.
class LinkStatusBar final : public QStatusBar
{
    Q_OBJECT

public:
    explicit LinkStatusBar(QWidget* parent);

    /// @param port number of the COM port, 0 for none
    void setPort(int port);
    /// Shows a message as it stands.
    void setText(const QString& text);
    /// Shows a string of the language module, from now on in the current language.
    void showString(int number);
    [[nodiscard]] QString text() const;
    /// @param count changes that are not applied; of none nothing is said
    void setEntryCount(int count);
    /// A longer explanation behind the messages, until another one is set; null for none.
    /// @param explanation gives its text in the current language
    void setExplanation(std::function<QString()> explanation);
    /// @param state 1 green, -1 gray, any other value red blinking
    void setLinkState(int state);
    /// Renders everything again that is not a text as it stands, in the current language.
    void translate();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void blink();
    void placeEntries();
    void describeLight();
    void showExplanation();
    void showLight(Light light);

    int m_port = 0;
    int m_entryCount = 0;
    std::function<QString()> m_explanation;
    int m_messageString = 0; ///< 0 while a text is shown as it stands
    int m_linkState = -1;
    bool m_redShown = false; ///< the phase of the blinking
    QTimer m_blinkTimer;
    QLabel* m_linkLight;
    QLabel* m_message;
    QLabel* m_portText;
    QLabel* m_entries; ///< at the right end of the message's pane
};

} // namespace pelorin
