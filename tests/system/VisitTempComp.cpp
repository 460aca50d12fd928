#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "support/ModalAnswer.h"
#include "tempcomp/TempCompDataPage.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace pelorin {

namespace {

constexpr int kLookupList = 1058;
constexpr int kWriteButton = 1060;
constexpr int kReadButton = 1061;

/// Clicks a cell and types into its editor, which stays open.
void type(const QTableWidget& list, int row, int column, const QString& text)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row, column)).center());
    const auto edits = list.viewport()->findChildren<QLineEdit*>();
    QTest::keyClicks(edits.last(), text); // the ones before are closed
}

/// Clicks a button and answers its file dialog with a path.
bool chooseFile(const TempCompDataPage& page, int button, const QString& path)
{
    const test::ModalAnswer<QFileDialog> answer(
        [&path](QFileDialog& dialog) { Tour::enterPath(dialog, path); });
    QTest::mouseClick(page.getControl<QPushButton>(button), Qt::LeftButton);
    return answer.wasShown();
}

} // namespace

bool visitTempComp(Tour& tour)
{
    constexpr int kEntries = 6;
    const QString path = tour.folder().filePath(QStringLiteral("lookup-table.csv"));
    if (QFile::exists(path) && !QFile::remove(path))
        return Tour::fail("the lookup table of the last tour cannot be removed");
    if (!tour.choosePage(Tour::Page::TempComp))
        return false;

    const auto& page = *tour.window().findChild<TempCompDataPage*>();
    const auto& list = *page.getControl<QTableWidget>(kLookupList);
    for (int row = 0; row < kEntries; ++row) {
        type(list, row, 1, QString::number(-40 + row * 24.5, 'f', 1));
        type(list, row, 2, QString::number(-12 + row * 5));
    }
    if (!chooseFile(page, kWriteButton, path) || !QFile::exists(path))
        return Tour::fail("the lookup table was not saved");
    type(list, 0, 1, QStringLiteral("999"));
    type(list, 0, 2, QStringLiteral("999"));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(0, 0)).center());
    if (!chooseFile(page, kReadButton, path) || list.item(0, 1)->text() != QLatin1String("-40.0") ||
        list.item(kEntries - 1, 1)->text() != QLatin1String("82.5") ||
        list.item(kEntries, 1)->text() != QLatin1String("0.0"))
        return Tour::fail("the lookup table was not read back");

    Tour::print(QStringLiteral("Temperature compensation, saved as %1 and read back").arg(path));
    Tour::print(list);
    return tour.save("temperature-compensation") && tour.choosePage(Tour::Page::Information);
}

} // namespace pelorin
