#include "app/MainMenu.h"

#include "app/Commands.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <vector>

namespace pelorin {

namespace {

constexpr int kSeparator = 0;

struct Item
{
    int command;
    int caption;
    Qt::Key shortcut = Qt::Key_unknown;
};

struct Menu
{
    int caption;
    std::vector<Item> items;
};

const std::vector<Menu>& menus()
{
    static const std::vector<Menu> kMenus = {
        {108, {{kSelectPortCommand, 107}, {kSeparator, 0}, {kConnectCommand, 109}}},
        {194, {{kRefreshCommand, 193, Qt::Key_F5}, {kSeparator, 0}, {kDisplayUnitCommand, 246}}},
        {209,
         {{kFirstLanguageCommand, 204},
          {kFirstLanguageCommand + 1, 205},
          {kFirstLanguageCommand + 2, 206},
          {kFirstLanguageCommand + 3, 207},
          {kLastLanguageCommand, 208}}},
        {200,
         {{kSaveBackupCommand, 195},
          {kRestoreBackupCommand, 196},
          {kSeparator, 0},
          {kWriteECommand, 197},
          {kWriteQCommand, 198},
          {kSeparator, 0},
          {kManualCommCommand, 251}}},
        {203, {{kHelpCommand, 201, Qt::Key_F1}, {kSeparator, 0}, {kAboutCommand, 202}}},
    };
    return kMenus;
}

constexpr int kExitCaption = 106;

} // namespace

MainMenu::MainMenu(QMenuBar& bar, bool withDisplayUnit, const SensorLink& link,
                   const LanguageManager& languages)
    : QObject(&bar), m_bar(bar), m_link(link), m_languages(languages)
{
    for (const auto& [caption, items] : menus()) {
        QMenu* menu = m_bar.addMenu(QString());
        m_captions.insert(menu->menuAction(), caption);
        connect(menu, &QMenu::aboutToShow, this, [this, menu] { updateItems(*menu); });
        for (const auto& [command, itemCaption, shortcut] : items) {
            if (command == kDisplayUnitCommand && !withDisplayUnit)
                continue;
            if (command == kSeparator) {
                menu->addSeparator(); // a trailing one is not shown
                continue;
            }
            QAction* action = addItem(menu, command, itemCaption);
            if (shortcut != Qt::Key_unknown)
                action->setShortcut(shortcut);
        }
    }
    (void)addItem(nullptr, kExitCommand, kExitCaption);
    translate();
}

QAction* MainMenu::addItem(QMenu* menu, int command, int caption)
{
    QAction* action = menu ? menu->addAction(QString()) : m_bar.addAction(QString());
    action->setData(command);
    m_captions.insert(action, caption);
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT commandChosen(command); });
    return action;
}

void MainMenu::translate()
{
    for (auto item = m_captions.cbegin(); item != m_captions.cend(); ++item)
        item.key()->setText(languageString(item.value()));
}

void MainMenu::updateItems(const QMenu& menu)
{
    for (QAction* action : menu.actions()) {
        if (action->isSeparator())
            continue;
        const int command = action->data().toInt();
        action->setEnabled(isPossible(command));
        action->setCheckable(isLanguageCommand(command));
        action->setChecked(languageCodeOf(command) == m_languages.getCurrentLanguage());
    }
}

bool MainMenu::isPossible(int command) const
{
    if (command == kWriteECommand || command == kWriteQCommand)
        return m_link.ssiType() != 1;
    return !isLanguageCommand(command) ||
           (m_languages.getAvailLanguages() & languageCodeOf(command)) != 0;
}

} // namespace pelorin
