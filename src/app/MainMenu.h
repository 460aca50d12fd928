#pragma once

#include <QHash>
#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

namespace pelorin {

class LanguageManager;
class SensorLink;

/// The menu bar of the main window: its items, their captions in the current language, and their
/// state, which is asked for each time a menu is opened.
class MainMenu final : public QObject
{
    Q_OBJECT

public:
    /// @param withDisplayUnit see offerDisplayUnit
    MainMenu(QMenuBar& bar, bool withDisplayUnit, const SensorLink& link,
             const LanguageManager& languages);

    /// Whether a command is possible with this sensor and on this installation; its item is greyed
    /// otherwise.
    [[nodiscard]] bool isPossible(int command) const;

    /// Whether there is an item for the display unit.
    void offerDisplayUnit(bool offered);

    void translate();

Q_SIGNALS:
    void commandChosen(int command);

private:
    QAction* addItem(QMenu* menu, int command, int caption);
    void updateItems(const QMenu& menu);

    QMenuBar& m_bar;
    const SensorLink& m_link;
    const LanguageManager& m_languages;
    QAction* m_displayUnitItem = nullptr;
    QHash<QAction*, int> m_captions; ///< string number of each item and menu
};

} // namespace pelorin
