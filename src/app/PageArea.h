#pragma once

#include <QWidget>

#include <vector>

class QListWidget;
class QPushButton;

namespace pelorin {

class FormatRestore;
class SensorLink;
class SensorPage;

/// What the main window shows: the list of pages on the left, the shown page beside it, and the
/// refresh button under that. Owns the pages.
class PageArea final : public QWidget
{
    Q_OBJECT

public:
    /// Which pages there are, and how they work.
    struct Options
    {
        bool manualPower = false;  ///< the user switches the sensor's supply
        bool withTempComp = false; ///< the page for the temperature compensation exists
    };

    /// Creates all pages, hidden.
    /// @param window the main window, which gets the pages' messages
    PageArea(QWidget* window, SensorLink& link, FormatRestore& formats, const Options& options);

    /// Row of the shown page, -1 without one.
    [[nodiscard]] int currentPage() const { return m_currentPage; }
    /// Null without one.
    [[nodiscard]] SensorPage* shownPage() const;
    /// Where the help tells of the shown page; empty without one.
    [[nodiscard]] QString helpAnchor() const;

    /// Leaves the shown page and shows another one, which then reads its values. Leaving may
    /// process events until the sensor is as it was before.
    void switchPage(int row);

    /// Ends the shown page's use of the link beyond its sequences, before a command uses it.
    void releaseLink();
    /// Starts again what releaseLink has ended, where the page is still shown.
    void resumeLink();

    void translate();

Q_SIGNALS:
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
    };

    void addPage(const Page& page, const char* icon);
    void layOut();

    SensorLink& m_link;
    QListWidget* m_list;
    QPushButton* m_refreshButton;
    std::vector<Page> m_pages;
    int m_currentPage = -1;
    bool m_released = false; ///< a command has ended the shown page's use of the link
};

} // namespace pelorin
