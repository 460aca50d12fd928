#pragma once

#include "platform/core/WindowMessage.h"
#include "platform/ui/BaseDialog.h"

#include <QByteArray>
#include <QPointer>
#include <QStringList>

class QComboBox;

namespace pelorin {

class SensorLink;

/// The base of the pages that the main window shows, one at a time, in its page area. A page
/// never waits for the sensor: it asks the link for one request, returns, and goes on in
/// onLinkReply. What it has to report it posts to the main window. User-interface thread only.
class SensorPage : public BaseDialog
{
    Q_OBJECT

public:
    ~SensorPage() override;

    /// Keeps the link and creates the page from its form inside its parent, hidden.
    /// @param parent a widget of the main window, which gets the page's messages
    void makeDialog(QWidget* parent, SensorLink& link);

    /// Hands the page the completion of a request. Only the answer to the page's own outstanding
    /// request reaches onLinkReply, and as a failed one if the link was lost since the page's
    /// sequence began.
    void takeLinkReply(RequestId request, int result);

    /// Whether the page is writing to the sensor; the window is not closed before it has ended.
    [[nodiscard]] virtual bool isWriting() const;

    /// Ends what the page does with the link beyond its sequences, so that a command can use it.
    /// May process events until the sensor is as it was before.
    /// @return true if there was something to end; getCurrentValues starts it again
    virtual bool releaseLink();

    /// A command may have changed the sensor behind the page: what the page has read is no base
    /// any more for what it writes.
    virtual void sensorChanged();

    /// The link was lost: ends what the page does with it. Called on every loss, before the link
    /// is opened again.
    virtual void linkLost();

    /// Posts the page's current status text again, for example in another language.
    void postStatusText();

    /// The item data of the current selection; -1 without one.
    [[nodiscard]] static int comboSelectedData(const QComboBox& combo);
    /// Selects the first item with this data; false if there is none, the selection stays.
    [[nodiscard]] static bool selectComboByData(QComboBox& combo, int data);

protected:
    /// @param formName the page's form, without its ending
    explicit SensorPage(QString formName);

    /// Consumes the answer to the page's last request; 1 is success.
    virtual void onLinkReply(int result);

    [[nodiscard]] SensorLink& link() const { return *m_link; }
    [[nodiscard]] QWidget* mainWindow() const { return m_mainWindow; }

    /// Marks the begin of a sequence of requests during which the link must not be lost.
    void beginSequence();
    /// Whether the link was lost since the sequence began.
    [[nodiscard]] bool linkWasLost() const;

    /// Whether an answer to the page's last request is still to come.
    [[nodiscard]] bool isAwaitingReply() const { return m_outstanding != 0; }
    /// Takes a request that was made elsewhere for the page's own; 0 for none.
    void await(RequestId request) { m_outstanding = request; }
    void requestConnect();
    void requestPosition();
    void requestRead(char id);
    void requestWrite(char id, const QByteArray& value);
    /// Ends a write sequence: takes the values written into effect.
    /// @return false if the sensor is not identified; nothing was sent then
    [[nodiscard]] bool sendClosingCommand();

    void showBusy(int busy);
    /// Shows a string, with its arguments, in the status bar. An unknown string empties the
    /// status text and is not shown.
    void setStatusText(int stringNumber, const QStringList& arguments = {});
    void clearStatusText();
    /// A parameter as the argument of a status text: the byte value of its identifier.
    [[nodiscard]] static QString parameterArgument(char id);
    void postLinkResult(int result);

    void changeEvent(QEvent* event) override;

private:
    void renderStatusText();
    void post(int message, std::uintptr_t wParam);

    QString m_formName;
    QPointer<QWidget> m_mainWindow;
    SensorLink* m_link = nullptr;
    RequestId m_outstanding = 0;
    int m_lossesAtStart = 0;
    QString m_statusText;
    int m_statusString = 0;
    QStringList m_statusArguments;
};

} // namespace pelorin
