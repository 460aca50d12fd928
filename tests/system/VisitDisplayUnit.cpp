#include "Tour.h"
#include "Visits.h"

#include "app/Commands.h"
#include "app/PelorinMainWindow.h"
#include "display/DisplayUnitDialog.h"
#include "simulator/SimulatedDisplayUnit.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace pelorin {

namespace {

QString textOf(const SimulatedDisplayUnit::Settings& settings)
{
    return QString::fromStdString(settings.mode + ", " + settings.dataBits + " bits, " +
                                  settings.resolution + " mm");
}

/// Waits until the box shows another reading than before, and prints it.
bool waitForReading(const QLabel& box)
{
    const QString before = box.text();
    if (!QTest::qWaitFor([&] { return box.text() != before && !box.text().startsWith(u'*'); },
                         Tour::kTimeLimit))
        return Tour::fail("the display unit's reading does not move");
    Tour::print(QStringLiteral("  displayed: %1").arg(box.text()));
    return true;
}

} // namespace

bool visitDisplayUnit(Tour& tour)
{
    QPointer<DisplayUnitDialog> dialog;
    const auto find = [&] { return dialog = tour.window().findChild<DisplayUnitDialog*>(); };
    if (!tour.waitIdle() || !tour.clickCommand(kDisplayUnitCommand))
        return false;
    if (!QTest::qWaitFor([&] { return find() != nullptr; }, Tour::kTimeLimit))
        return Tour::fail("the display unit's window did not come up");
    Tour::print(dialog->windowTitle());
    const auto& box = *dialog->findChild<QLabel*>(QStringLiteral("displayBox"));
    if (!waitForReading(box) || !waitForReading(box) || !tour.save("display-unit", *dialog))
        return false;

    const auto before = tour.displayUnit().settings();
    Tour::print(QStringLiteral("  the unit has %1").arg(textOf(before)));
    QTest::keyClick(dialog->findChild<QComboBox*>(QStringLiteral("modeCombo")), Qt::Key_Down);
    QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    if (!QTest::qWaitFor([&] { return tour.displayUnit().settings().resolution == "0.005"; },
                         Tour::kTimeLimit))
        return Tour::fail("the display unit did not get its settings");
    Tour::print(QStringLiteral("  applied: %1").arg(textOf(tour.displayUnit().settings())));
    if (!waitForReading(box) || !tour.save("display-unit-applied", *dialog))
        return false;
    dialog->close();
    return QTest::qWaitFor([&] { return !dialog; }, Tour::kTimeLimit) ||
           Tour::fail("the window did not close");
}

} // namespace pelorin
