#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PasswordDialog.h"
#include "simulator/SimulatedSensor.h"
#include "support/ModalAnswer.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace pelorin {

namespace {

constexpr int kDirectionList = 1008;
constexpr int kSkipCountEdit = 1014;
constexpr int kUnlockButton = 1019;
constexpr int kApplyButton = 1028;

void click(const BaseDialog& dialog, int id)
{
    QTest::mouseClick(dialog.getControl<QWidget>(id), Qt::LeftButton);
}

void print(const OutputSetupPage& page)
{
    for (const auto* list : page.findChildren<QComboBox*>()) {
        const int label = list->property("controlId").toInt() - 1;
        Tour::print(QStringLiteral("  %1 %2")
                        .arg(page.getControl<QLabel>(label)->text(), -34)
                        .arg(list->currentText()));
    }
    Tour::print(QStringLiteral("  %1 %2")
                    .arg(page.getControl<QLabel>(kSkipCountEdit - 1)->text(), -34)
                    .arg(page.getControl<QLineEdit>(kSkipCountEdit)->text()));
    for (const auto* button : page.findChildren<QRadioButton*>()) {
        if (button->isChecked())
            Tour::print(QStringLiteral("  %1 %2")
                            .arg(qobject_cast<QGroupBox*>(button->parentWidget())->title(), -34)
                            .arg(button->text()));
    }
}

/// Asks for the other direction, looks at the offset that goes with it, and gives it up.
bool calculateOffset(Tour& tour, const OutputSetupPage& page)
{
    auto* mode = page.getControl<QComboBox>(1010);
    QTest::keyClick(mode, Qt::Key_Home); // the reverse direction needs the asynchronous mode
    QTest::keyClick(page.getControl<QComboBox>(kDirectionList), Qt::Key_End);
    bool saved = false;
    const test::ModalAnswer<CalculateOffsetDialog> answer([&](CalculateOffsetDialog& dialog) {
        QTest::keyClick(dialog.getControl<QComboBox>(1041), Qt::Key_Home);
        saved = tour.save("offset", dialog);
        click(dialog, 2);
    });
    click(page, kApplyButton);
    return saved || Tour::fail("the offset dialog did not come up");
}

bool unlockSkipCount(Tour& tour, const OutputSetupPage& page)
{
    bool saved = false;
    const test::ModalAnswer<PasswordDialog> answer([&](PasswordDialog& dialog) {
        QTest::keyClicks(dialog.getControl<QLineEdit>(1064), QStringLiteral("SteadyNow"));
        saved = tour.save("password", dialog);
        click(dialog, 1);
    });
    click(page, kUnlockButton);
    return saved || Tour::fail("the password was not asked for");
}

/// Writes another error skip count and what else is on the page.
bool apply(Tour& tour, const OutputSetupPage& page)
{
    auto* edit = page.getControl<QLineEdit>(kSkipCountEdit);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, QStringLiteral("10"));
    click(page, kApplyButton);
    QCoreApplication::processEvents();
    if (!tour.waitIdle())
        return false;
    const QString format = QString::fromStdString(tour.sensor().parameter('D'));
    Tour::print(QStringLiteral("  applied, the sensor now holds D = %1").arg(format));
    return format == QLatin1String("4A0A19") || Tour::fail("Apply wrote another data format");
}

} // namespace

bool visitOutputSetup(Tour& tour)
{
    const auto& page = *tour.window().findChild<OutputSetupPage*>();
    if (!tour.choosePage(Tour::Page::OutputSetup))
        return false;
    Tour::print(QStringLiteral("Output setup"));
    print(page);
    return tour.save("output-setup") && calculateOffset(tour, page) &&
           tour.choosePage(Tour::Page::Information) && tour.choosePage(Tour::Page::OutputSetup) &&
           unlockSkipCount(tour, page) && apply(tour, page) &&
           tour.choosePage(Tour::Page::Information);
}

} // namespace pelorin
