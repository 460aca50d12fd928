#include "display/DisplayUnitDialog.h"
#include "link/SensorLink.h"
#include "pages/AboutDialog.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/ComPortFactory.h"
#include "simulator/SimulatedPorts.h"
#include "support/FormFaults.h"
#include "support/Languages.h"

#include <QTest>

#include <functional>
#include <memory>

using namespace pelorin;
using namespace pelorin::test;

using MakeDialog = std::function<std::unique_ptr<BaseDialog>()>;

class TestForms : public QObject
{
    Q_OBJECT

public:
    TestForms()
        : m_factory([this](const QString&) {
              return m_ports.makePort(QStringLiteral("simulator:display"));
          }),
          m_link(m_factory)
    {
    }

private Q_SLOTS:
    void everyCaptionSpeaksEveryLanguage_data();
    void everyCaptionSpeaksEveryLanguage();
    void everyDialogFitsTheSmallestScreen_data() { everyCaptionSpeaksEveryLanguage_data(); }
    void everyDialogFitsTheSmallestScreen();

private:
    SimulatedPorts m_ports;
    ComPortFactory m_factory;
    SensorLink m_link;
};

void TestForms::everyCaptionSpeaksEveryLanguage_data()
{
    QTest::addColumn<MakeDialog>("make");
    const auto row = [](const char* name, const MakeDialog& make) { QTest::newRow(name) << make; };

    row("AboutDialog", [] { return std::make_unique<AboutDialog>(nullptr); });
    row("DisplayUnitDialog",
        [this] { return std::make_unique<DisplayUnitDialog>(nullptr, m_factory, m_link); });
    row("SelectPortDialog", [] { return std::make_unique<SelectPortDialog>(nullptr, 7); });
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
