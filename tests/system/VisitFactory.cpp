#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "pages/FactoryParamsPage.h"
#include "simulator/SimulatedSensor.h"

#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace pelorin {

namespace {

bool edit(QTableWidget& list, int row, const char* text)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row, 1)).center());
    QWidget* editor = list.indexWidget(list.model()->index(row, 1));
    if (!editor)
        return Tour::fail("a value does not open");
    QTest::keyClicks(editor, QLatin1String(text));
    return true;
}

} // namespace

bool visitFactory(Tour& tour)
{
    constexpr int kOffsetRow = 6;
    constexpr int kMultiplierRow = 4;
    if (!tour.choosePage(Tour::Page::Factory))
        return false;

    const auto& page = *tour.window().findChild<FactoryParamsPage*>();
    auto& list = *page.findChild<QTableWidget*>();
    if (!edit(list, kMultiplierRow, "0") || !edit(list, kOffsetRow, "-0.125"))
        return false;
    if (!tour.save("factory-edit"))
        return false;
    QTest::mouseClick(page.findChild<QPushButton*>(), Qt::LeftButton);
    if (!QTest::qWaitFor([&tour] { return tour.window().isBusy(); }) || !tour.waitIdle())
        return Tour::fail("the values are not applied");
    Tour::print(QStringLiteral("Factory parameters, applied with another multiplier and offset"));
    Tour::print(list);
    const auto offset = QString::fromStdString(tour.sensor().parameter('N'));
    Tour::print(QStringLiteral("  The sensor now has N = %1").arg(offset));
    return offset == QLatin1String("FFFFE7") && tour.save("factory");
}

} // namespace pelorin
