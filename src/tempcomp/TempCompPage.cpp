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
    auto* tables = new TempCompDataPage;
    tables->makeDialog(m_tabs, runner());
    m_tabs->addTab(tables, QString());
}

void TempCompPage::translate()
{
    SensorPage::translate();
    m_tabs->setTabText(0, languageString(strings::kTables));
}

} // namespace pelorin
