#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <vector>

namespace pelorin {

class PelorinMainWindow;

/// Drives the program as a technician would, by real clicks and keys: a list of steps, one after
/// the other, each as soon as the program takes input. What does not come within the time limit
/// ends the program with a message. Names are those of the controls in the window that is on top:
/// the modal dialog, the display unit's, else the main window.
class Tour : public QObject
{
    Q_OBJECT

public:
    struct Step
    {
        QString name;                ///< told if it does not become possible
        std::function<bool()> ready; ///< asked again and again
        std::function<void()> act{}; ///< done once; may open a dialog, where the next steps go on
    };

    static constexpr int kTimeLimit = 30'000; ///< ms; far beyond a connect and a page's sequence

    /// @param folder where pictures and files go
    Tour(PelorinMainWindow& window, QDir folder);

    /// Takes all steps. @return when the last one has been taken and no dialog is open
    void run(const std::vector<Step>& steps);

    /// Clicks a page's row; the next step waits until it is shown. @param caption string number
    [[nodiscard]] Step page(int caption);
    /// Clicks the item of a command in its menu.
    [[nodiscard]] Step command(int command);
    [[nodiscard]] Step click(const char* control);
    /// Clicks a cell, which then opens for editing if it can, and types.
    [[nodiscard]] Step cell(const char* list, int row, int column, const QString& text = {});
    /// Types a text in the place of the one that is there.
    [[nodiscard]] Step type(const char* edit, const QString& text);
    [[nodiscard]] Step key(const char* control, Qt::Key key);
    /// Clicks the tab of the window on top.
    [[nodiscard]] Step tab(int index);
    /// Enters a name in the folder of the tour in the file dialog.
    [[nodiscard]] Step file(const QString& name);
    /// Prints the text of a message box and closes it.
    [[nodiscard]] Step box();
    /// Prints the text of a question and clicks one of its buttons, counted from 0.
    [[nodiscard]] Step answer(int button);
    /// Saves a picture of the window on top.
    [[nodiscard]] Step picture(const char* name);
    [[nodiscard]] static Step print(const QString& text);
    [[nodiscard]] Step print(const std::function<QString()>& text);
    /// Prints the text of a control once it is another one, and a position.
    [[nodiscard]] Step printChanged(const char* control);
    /// Prints the rows of a list.
    [[nodiscard]] Step printList(const char* list, int rows = 1000);
    /// Prints each labelled control and each chosen button.
    [[nodiscard]] Step printControls();
    /// What must come true.
    [[nodiscard]] static Step expect(const char* what, std::function<bool()> condition);
    /// A step that waits for more than a program that takes input.
    [[nodiscard]] static Step when(std::function<bool()> condition, Step step);

    /// A control of the window on top; ends the program if there is none.
    template <class Control>
    [[nodiscard]] Control& find(const char* name) const
    {
        return *dynamic_cast<Control*>(&findWidget(name));
    }
    [[nodiscard]] QString textOf(const char* control) const;
    [[nodiscard]] QString textAt(const char* list, int row, int column) const;
    [[nodiscard]] QString path(const QString& name) const
    {
        return m_folder.absoluteFilePath(name);
    }

private:
    [[nodiscard]] QWidget& top() const;
    [[nodiscard]] QWidget& findWidget(const char* name) const;
    [[nodiscard]] Step step(const QString& name, std::function<void()> act);
    [[nodiscard]] bool takesInput();
    void next();

    PelorinMainWindow& m_window;
    QDir m_folder;
    std::vector<Step> m_steps;
    std::size_t m_at = 0;
    QElapsedTimer m_waiting; ///< for the step at m_at
    int m_wantedPage = -1;   ///< row that was clicked last, -1 after a command
    int m_idlePasses = 0;    ///< how often the window has been seen idle, one pass after the other
    QString m_lastText;      ///< printed by printChanged
};

} // namespace pelorin
