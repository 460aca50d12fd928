#pragma once

#include <QWidget>

#include <vector>

class QListWidget;
class QPushButton;
class QScrollArea;
class QShortcut;

namespace pelorin {

class CommandGate;
class FormatRestore;
class PositionStream;
class SensorPage;
class NoticeStrip;
class SafeWriter;
class SensorHeader;
class SequenceRunner;
class TempCompPage;

/// What the main window shows: the list of pages on the left, beside it which sensor is connected,
/// what is to be noticed and the shown page, which is scrolled where it has no room, and the
/// refresh button under that. Owns the pages.
class PagePane final : public QWidget
{
    Q_OBJECT

public:
    /// Creates all pages, hidden.
    /// @param window the main window, which gets the pages' messages
    /// @param tempCompEnabled whether the page for the temperature compensation exists
    PagePane(QWidget* window, SafeWriter& writer, PositionStream& stream,
             const FormatRestore& formats, bool tempCompEnabled);

    /// Row of the shown page, -1 without one.
    [[nodiscard]] int currentPage() const { return m_currentPage; }
    /// Null without one.
    [[nodiscard]] SensorPage* shownPage() const;
    /// How much the user has entered on the shown page and not applied.
    [[nodiscard]] int entryCount() const;
    /// What is left: with the window go the tables for the temperature compensation, too.
    enum class Leaving { Page, Window };
    /// Whether that discards anything that the user has entered.
    [[nodiscard]] bool losesEntries(Leaving leaving) const
    {
        return !questionsBefore(leaving).isEmpty();
    }
    /// What the user has entered is discarded by nobody else: asks.
    /// @param reason why it would go, where the user has not asked for that
    /// @return whether there is nothing of that (any more)
    [[nodiscard]] bool mayDiscard(CommandGate& gate, Leaving leaving = Leaving::Page,
                                  const QString& reason = {});
    /// Where the help tells of the shown page; empty without one.
    [[nodiscard]] QString helpAnchor() const;

    /// Leaves the shown page and shows another one, which then reads its values. No plan of the
    /// page that is left runs any more.
    void switchPage(int row);

    /// Makes the page for the temperature compensation exist or not. One that is shown gives way to
    /// the first page.
    void showTempComp(bool shown);
    /// Whether that page holds what the user has entered and what is in no file.
    [[nodiscard]] bool hasTables() const;

    void translate();

    /// Above the page.
    [[nodiscard]] SensorHeader& header() const { return *m_header; }
    [[nodiscard]] NoticeStrip& strip() const { return *m_strip; }

Q_SIGNALS:
    /// What the shown page has of changes that are not applied may have become another number.
    void entriesChanged();
    /// The user has chosen a row, perhaps that of the shown page.
    void pageChosen(int row);
    void refreshChosen();
    /// A page has something to say that the user must not miss.
    void noticed(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A page by row of the list; the widget is a child.
    struct Page
    {
        SensorPage* widget;
        int caption; ///< string number
        const char* helpAnchor;
        bool ofSensor = false;       ///< it shows what a sensor has
        QScrollArea* area = nullptr; ///< around the widget
        QShortcut* shortcut = nullptr;
    };

    void addPage(Page page, const char* icon);
    void removeLastPage();
    void showConnected(bool connected);
    [[nodiscard]] QStringList questionsBefore(Leaving leaving) const;
    void markShownPage();
    void showReading();
    [[nodiscard]] bool takeKey(int key);
    [[nodiscard]] int captionsWidth() const;
    void layOut();

    SequenceRunner& m_runner;
    SensorHeader* m_header;
    NoticeStrip* m_strip;
    QListWidget* m_pageList;
    QPushButton* m_refreshButton;
    std::vector<Page> m_pages;
    TempCompPage* m_tempComp = nullptr; ///< the last page, if there is one
    int m_currentPage = -1;
};

} // namespace pelorin
