#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class QAction;
class QMenu;
class QMenuBar;

namespace pelorin {

/// The menu bar of the main window: its items, their captions in the current language, and their
/// state, which is asked for each time a menu is opened.
class MainMenu final : public QObject
{
    Q_OBJECT

public:
    /// How an item is shown.
    struct ItemState
    {
        bool enabled = true;
        bool checkable = false;
        bool checked = false;
    };
    using StateOf = std::function<ItemState(int command)>;

    /// @param withDisplayUnit whether the item for the display unit exists
    MainMenu(QMenuBar& bar, bool withDisplayUnit, StateOf stateOf);

    void translate();

Q_SIGNALS:
    void commandChosen(int command);

private:
    void addItem(QMenu* menu, int command, int caption);
    void updateItems(const QMenu& menu);

    QMenuBar& m_bar;
    StateOf m_stateOf;
    QHash<QAction*, int> m_captions; ///< string number of each item and menu
};

} // namespace pelorin
