#pragma once

#include "platform/ui/BaseDialog.h"
#include "sensor/Outcome.h"
#include "sensor/Plan.h"

#include <QPointer>
#include <QStringList>

#include <cstdint>

class QComboBox;

namespace pelorin {

class SensorLink;
class SequenceRunner;

/// The base of the pages that the main window shows, one at a time, in its page area. What a page
/// does with the sensor is a plan, which the runner carries out; the page shows what was read and
/// how it ended. What it has to report it posts to the main window. User-interface thread only.
class SensorPage : public BaseDialog
{
    Q_OBJECT

public:
    ~SensorPage() override;

    /// Keeps the runner and creates the page from its form inside its parent, hidden.
    /// @param parent a widget of the main window, which gets the page's messages
    void makeDialog(QWidget* parent, SequenceRunner& runner);

    /// Nothing else uses the sensor any more: takes up again what another one's plan has ended.
    virtual void resume() {}

    /// How many changes the user has made that are not applied.
    [[nodiscard]] virtual int entryCount() const { return 0; }
    /// Shows again what was read instead.
    virtual void discardEntries() {}

    /// Whether a plan of the page runs that only reads; it can be cancelled.
    [[nodiscard]] bool isReading() const { return m_reading; }
    /// Ends that plan after its outstanding request. What is not read stays empty.
    void cancelReading();

    /// Posts the page's current status text again, for example in another language.
    void postStatusText();

    /// The item data of the current selection; -1 without one.
    [[nodiscard]] static int comboSelectedData(const QComboBox& combo);
    /// Selects the first item with this data; false if there is none, the selection stays.
    [[nodiscard]] static bool selectComboByData(QComboBox& combo, int data);

Q_SIGNALS:
    /// The page has something to say that the user must not miss.
    void noticed(const QString& text);
    /// entryCount may have changed.
    void entriesChanged();
    /// isReading has become another one.
    void readingChanged();

protected:
    /// @param formName the page's form, without its ending
    explicit SensorPage(QString formName);

    /// Shows the answer to one read of the page's plan.
    virtual void showReadValue(const Reply& reply);
    /// The page's plan has ended; its status text and the light say how.
    virtual void planEnded(const Outcome& outcome);

    /// Has a plan run, and shows what it does meanwhile. Where it cannot begin the status text
    /// says why.
    /// @param statusString number of the text that is shown while it runs
    /// @return whether it has begun
    bool start(Plan plan, int statusString);

    [[nodiscard]] SequenceRunner& runner() const { return *m_runner; }
    [[nodiscard]] SensorLink& link() const;

    /// Shows a string, with its arguments, in the status bar. An unknown string empties the
    /// status text and is not shown.
    void setStatusText(int stringNumber, const QStringList& arguments = {});
    void clearStatusText();
    void postLinkResult(int result);

    void changeEvent(QEvent* event) override;

private:
    void finish(const Outcome& outcome, bool writing);
    void setReading(bool reading);
    void renderStatusText();
    void post(int message, std::uintptr_t wParam);

    QString m_formName;
    QPointer<QWidget> m_mainWindow;
    SequenceRunner* m_runner = nullptr;
    bool m_reading = false;
    QString m_statusText;
    int m_statusString = 0;
    QStringList m_statusArguments;
};

} // namespace pelorin
