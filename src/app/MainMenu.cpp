#include "app/MainMenu.h"

#include "app/Commands.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

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
        {strings::kConnectionMenu,
         {{kSelectPortCommand, strings::kSelectPort},
          {kSettingsCommand, strings::kSettingsCommand},
          {kSeparator, 0},
          {kConnectCommand, strings::kConnect}}},
        {strings::kViewMenu,
         {{kRefreshCommand, strings::kRefreshCommand, Qt::Key_F5},
          {kSeparator, 0},
          {kDisplayUnitCommand, strings::kDisplayUnit}}},
        {strings::kLanguageMenu,
         {{kFirstLanguageCommand, strings::kEnglish},
          {kFirstLanguageCommand + 1, strings::kGerman},
          {kFirstLanguageCommand + 2, strings::kFrench},
          {kFirstLanguageCommand + 3, strings::kSpanish},
          {kLastLanguageCommand, strings::kItalian}}},
        {strings::kSensorMenu,
         {{kSaveBackupCommand, strings::kSaveBackupCommand},
          {kRestoreBackupCommand, strings::kRestoreBackupCommand},
          {kCompareCommand, strings::kCompareCommand},
          {kSeparator, 0},
          {kWriteECommand, strings::kSendE},
          {kWriteQCommand, strings::kSendQ},
          {kSeparator, 0},
          {kManualCommCommand, strings::kManualCommunications},
          {kSeparator, 0},
          {kEarlierStatesCommand, strings::kEarlierStatesItem}}},
        {strings::kHelpMenu,
         {{kHelpCommand, strings::kHelpCommand, Qt::Key_F1},
          {kSeparator, 0},
          {kAboutCommand, strings::kAbout}}},
    };
    return kMenus;
}

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
            if (command == kSeparator) {
                menu->addSeparator(); // a trailing one is not shown
                continue;
            }
            QAction* action = addItem(menu, command, itemCaption);
            if (shortcut != Qt::Key_unknown)
                action->setShortcut(shortcut);
            if (command == kDisplayUnitCommand)
                m_displayUnitItem = action;
        }
    }
    (void)addItem(nullptr, kExitCommand, strings::kExit);
    offerDisplayUnit(withDisplayUnit);
    translate();
}

void MainMenu::offerDisplayUnit(bool offered)
{
    m_displayUnitItem->setVisible(offered);
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
