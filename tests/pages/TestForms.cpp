#include "display/DisplayUnitDialog.h"
#include "link/SensorLink.h"
#include "pages/AboutDialog.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/CommLogPage.h"
#include "pages/FactoryParamsPage.h"
#include "pages/MagnetPositionPage.h"
#include "pages/ManualCommDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PasswordDialog.h"
#include "pages/SelectPortDialog.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "sensor/FormatRestore.h"
#include "simulator/SimulatedPorts.h"
#include "support/FormFaults.h"
#include "support/Languages.h"
#include "tempcomp/TempCompDataPage.h"
#include "tempcomp/TempCompPage.h"

#include <QTest>

#include <functional>
#include <memory>

using namespace pelorin;
using namespace pelorin::test;

using MakeDialog = std::function<std::unique_ptr<BaseDialog>()>;

/// What pages need around them; no request is made.
struct Surroundings
{
    QWidget window;
    SimulatedPorts ports;
    ComPortFactory factory{
        [this](const QString&) { return ports.makePort(QStringLiteral("simulator:display")); }};
    SensorLink link{factory};
    FormatRestore restore;

    /// Makes a page as large as the smallest screen leaves room for it.
    std::unique_ptr<BaseDialog> make(std::unique_ptr<SensorPage> page)
    {
        page->makeDialog(&window, link);
        page->resize(1024, 600);
        return page;
    }
};

template <class Page>
std::unique_ptr<SensorPage> makePage()
{
    return std::make_unique<Page>();
}

class TestForms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCaptionSpeaksEveryLanguage_data();
    void everyCaptionSpeaksEveryLanguage();
    void everyDialogFitsTheSmallestScreen_data() { everyCaptionSpeaksEveryLanguage_data(); }
    void everyDialogFitsTheSmallestScreen();

private:
    Surroundings m_around;
};

void TestForms::everyCaptionSpeaksEveryLanguage_data()
{
    QTest::addColumn<MakeDialog>("make");
    const auto row = [](const char* name, const MakeDialog& make) { QTest::newRow(name) << make; };
    const auto page = [this, &row](const char* name, std::unique_ptr<SensorPage> (*make)()) {
        row(name, [this, make] { return m_around.make(make()); });
    };
    row("AboutDialog", [] { return std::make_unique<AboutDialog>(nullptr); });
    row("CalculateOffsetDialog",
        [] { return std::make_unique<CalculateOffsetDialog>(nullptr, true, 1250.0); });
    row("PasswordDialog", [] { return std::make_unique<PasswordDialog>(nullptr, 240); });
    row("DisplayUnitDialog", [this] {
        return std::make_unique<DisplayUnitDialog>(nullptr, m_around.factory, m_around.link);
    });
    row("ManualCommDialog",
        [this] { return std::make_unique<ManualCommDialog>(nullptr, m_around.link); });
    row("SelectPortDialog", [] { return std::make_unique<SelectPortDialog>(nullptr, 7); });
    row("MagnetPositionPage", [this] {
        return m_around.make(std::make_unique<MagnetPositionPage>(m_around.restore, false));
    });
    page("CommLogPage", &makePage<CommLogPage>);
    page("FactoryParamsPage", &makePage<FactoryParamsPage>);
    page("OutputSetupPage", &makePage<OutputSetupPage>);
    page("SensorInfoPage", &makePage<SensorInfoPage>);
    page("TempCompDataPage", &makePage<TempCompDataPage>);
    page("TempCompPage", &makePage<TempCompPage>);
}

void TestForms::everyCaptionSpeaksEveryLanguage()
{
    QFETCH(MakeDialog, make);
    Languages languages(1);
    const std::unique_ptr<BaseDialog> dialog = make();
    dialog->show();
    QCOMPARE(formFaults(*dialog), QStringList());

    for (const int code : {2, 4, 8, 16, 1}) {
        QCOMPARE(languages.loadLanguage(code), 1);
        QCoreApplication::processEvents(); // delivers the change of language
        QCOMPARE(formFaults(*dialog), QStringList());
    }
}

void TestForms::everyDialogFitsTheSmallestScreen()
{
    QFETCH(MakeDialog, make);
    for (const int code : {1, 2, 4, 8, 16}) {
        const Languages languages(code);
        const std::unique_ptr<BaseDialog> dialog = make();
        dialog->show();
        QVERIFY(dialog->minimumSizeHint().width() <= 1280);
        QVERIFY(dialog->minimumSizeHint().height() <= 720);
        QCOMPARE(dialog->size().expandedTo(dialog->sizeHint()), dialog->size());
    }
}

QTEST_MAIN(TestForms)
#include "TestForms.moc"
