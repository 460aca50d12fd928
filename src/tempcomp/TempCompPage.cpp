#include "tempcomp/TempCompPage.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "tempcomp/TempCompDataPage.h"

#include <QTabWidget>

namespace pelorin {

namespace {

constexpr int kTabControl = 1055;

} // namespace

TempCompPage::TempCompPage() : SensorPage(QStringLiteral("DLG_PELORIN_TEMPCOMP")) {}

void TempCompPage::setupTranslationMap()
{
    addAccessibleName(kTabControl, strings::kTemperatureCompensation);
}

void TempCompPage::onInitDialog()
{
    m_tabs = getControl<QTabWidget>(kTabControl);
    m_tables = new TempCompDataPage;
    m_tables->makeDialog(m_tabs, runner());
    m_tabs->addTab(m_tables, QString());
}

bool TempCompPage::hasEntries() const
{
    return m_tables->hasEntries();
}

void TempCompPage::translate()
{
    SensorPage::translate();
    m_tabs->setTabText(0, languageString(strings::kTables));
}

} // namespace pelorin
