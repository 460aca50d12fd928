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
#include "sensor/PositionStream.h"
#include "sensor/SequenceRunner.h"
#include "simulator/SimulatedPorts.h"
#include "support/FormFaults.h"
#include "support/Languages.h"
#include "tempcomp/TempCompDataPage.h"
#include "tempcomp/TempCompPage.h"

#include <QTest>

#include <memory>
#include <vector>

using namespace pelorin;
using namespace pelorin::test;

using Dialogs = std::vector<std::unique_ptr<BaseDialog>>;

class TestForms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCaptionSpeaksEveryLanguage()
    {
        Languages languages(1);
        for (const auto& dialog : makeAll()) {
            dialog->show();
            for (const int code : {1, 2, 4, 8, 16}) {
                QCOMPARE(languages.loadLanguage(code), 1);
                QCoreApplication::processEvents(); // delivers the change of language
                QCOMPARE(formFaults(*dialog), QStringList());
            }
        }
    }

    void everyDialogFitsTheSmallestScreen()
    {
        for (const int code : {1, 2, 4, 8, 16}) {
            const Languages languages(code);
            for (const auto& dialog : makeAll()) {
                dialog->show();
                const QSize least = dialog->minimumSizeHint();
                QVERIFY2(least.width() <= 1280 && least.height() <= 720,
                         qPrintable(dialog->objectName()));
                QCOMPARE(dialog->size().expandedTo(dialog->sizeHint()), dialog->size());
            }
        }
    }

private:
    /// No request is made; pages are as large as the smallest screen leaves room for them.
    Dialogs makeAll()
    {
        Dialogs dialogs;
        dialogs.push_back(std::make_unique<AboutDialog>(nullptr));
        dialogs.push_back(std::make_unique<CalculateOffsetDialog>(nullptr, true, 1250.0));
        dialogs.push_back(std::make_unique<PasswordDialog>(nullptr, 240));
        dialogs.push_back(std::make_unique<DisplayUnitDialog>(nullptr, m_factory, 7));
        dialogs.push_back(std::make_unique<ManualCommDialog>(nullptr, m_runner));
        dialogs.push_back(std::make_unique<SelectPortDialog>(nullptr, 7));
        const auto add = [&](std::unique_ptr<SensorPage> page) {
            page->makeDialog(&m_window, m_runner);
            page->resize(1024, 600);
            dialogs.push_back(std::move(page));
        };
        add(std::make_unique<MagnetPositionPage>(m_stream));
        add(std::make_unique<CommLogPage>());
        add(std::make_unique<FactoryParamsPage>(m_restore));
        add(std::make_unique<OutputSetupPage>());
        add(std::make_unique<SensorInfoPage>());
        add(std::make_unique<TempCompDataPage>());
        add(std::make_unique<TempCompPage>());
        return dialogs;
    }

    QWidget m_window;
    SimulatedPorts m_ports;
    ComPortFactory m_factory{
        [this](const QString&) { return m_ports.makePort(QStringLiteral("simulator:display")); }};
    SensorLink m_link{m_factory};
    SequenceRunner m_runner{m_link};
    KeptFormats m_formats;
    FormatRestore m_restore{m_runner, m_formats};
    PositionStream m_stream{m_runner, m_formats, m_restore, false};
};

QTEST_MAIN(TestForms)
#include "TestForms.moc"
