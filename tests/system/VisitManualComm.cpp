#include "Tour.h"
#include "Visits.h"

#include "app/Commands.h"
#include "app/PelorinMainWindow.h"
#include "pages/ManualCommDialog.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kSendEdit = 1051;
constexpr int kReceiveEdit = 1053;
constexpr int kExecuteButton = 1054;
constexpr int kMarkLabel = 1055;

void type(const ManualCommDialog& dialog, const char* bytes)
{
    auto* edit = dialog.getControl<QLineEdit>(kSendEdit);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, QLatin1String(bytes));
}

/// Asks the sensor for its version, and types something that is not hexadecimal.
bool exchange(Tour& tour, ManualCommDialog& dialog)
{
    type(dialog, "56,41,0D");
    QTest::mouseClick(dialog.getControl<QPushButton>(kExecuteButton), Qt::LeftButton);
    const auto& received = *dialog.getControl<QPlainTextEdit>(kReceiveEdit);
    if (!QTest::qWaitFor([&] { return !received.toPlainText().isEmpty(); }) || !tour.waitIdle())
        return Tour::fail("the sensor did not answer");
    Tour::print(QStringLiteral("%1: 56,41,0D was answered by %2")
                    .arg(dialog.windowTitle(), received.toPlainText()));
    if (!tour.save("manual-communications", dialog))
        return false;
    type(dialog, "56,4G,0D");
    Tour::print(QStringLiteral("  ") + dialog.getControl<QLabel>(kMarkLabel)->text());
    return tour.save("manual-communications-mark", dialog);
}

} // namespace

bool visitManualComm(Tour& tour)
{
    bool passed = false;
    const test::ModalAnswer<ManualCommDialog> answer([&](ManualCommDialog& dialog) {
        passed = exchange(tour, dialog);
        QTest::mouseClick(dialog.getControl<QPushButton>(kOkButton), Qt::LeftButton);
    });
    return tour.clickCommand(kManualCommCommand) &&
           (QTest::qWaitFor([&] { return answer.wasShown(); }) ||
            Tour::fail("the dialog did not come up")) &&
           passed;
}

} // namespace pelorin
