#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;

namespace pelorin {

/// Shows a help file in a window of the program, finds texts in it, and goes back and forward
/// between the places that were shown.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    /// Why a help file is not shown.
    struct Failure
    {
        int error = 0;  ///< 0 shown, 1 there is no file of that name, 2 it cannot be read
        int detail = 0; ///< the system's error code
    };

    explicit HelpWindow(QWidget* parent = nullptr);

    /// Shows an HTML file from an anchor on, or from its start if the anchor is empty or the file
    /// lacks it, and brings the window to the front. May be called again while the window is
    /// shown. A file that cannot be read leaves the window as it is.
    [[nodiscard]] Failure showHelp(const QString& path, const QString& anchor = QString());

private:
    enum class Direction { FromHere, Next, Previous };

    [[nodiscard]] QHBoxLayout* makeBar();
    [[nodiscard]] QToolButton* addArrow(QHBoxLayout& bar, const char* name, Qt::ArrowType arrow);
    void translate();
    void find(Direction direction);

    QTextBrowser* m_browser;
    QToolButton* m_back = nullptr;
    QToolButton* m_forward = nullptr;
    QLabel* m_findLabel = nullptr;
    QLineEdit* m_findEdit = nullptr;
    QLabel* m_findResult = nullptr; ///< says that the text was not found
    QToolButton* m_previous = nullptr;
    QToolButton* m_next = nullptr;
};

} // namespace pelorin
