#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "pages/CommLogPage.h"
#include "support/ModalAnswer.h"

#include <QFile>
#include <QFileDialog>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kLogList = 1032;
constexpr int kSaveButton = 1034;

/// Saves the log through the file dialog. @return what the file then holds
QByteArray saveLog(const CommLogPage& page, const QString& path)
{
    const test::ModalAnswer<QFileDialog> answer(
        [&path](QFileDialog& dialog) { Tour::enterPath(dialog, path); });
    QTest::mouseClick(page.getControl<QPushButton>(kSaveButton), Qt::LeftButton);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool visitLog(Tour& tour)
{
    constexpr int kPrintedLines = 4;
    const QString path = tour.folder().filePath(QStringLiteral("log.txt"));
    if (QFile::exists(path) && !QFile::remove(path))
        return Tour::fail("the log of the last tour cannot be removed");
    if (!tour.choosePage(Tour::Page::Log))
        return false;

    const auto& page = *tour.window().findChild<CommLogPage*>();
    const QAbstractItemModel& model = *page.getControl<QListView>(kLogList)->model();
    Tour::print(
        QStringLiteral("Communications log: %1 lines, the first are").arg(model.rowCount()));
    for (int row = 0; row < std::min(model.rowCount(), kPrintedLines); ++row)
        Tour::print(QStringLiteral("  ") + model.index(row, 0).data().toString());
    if (!tour.save("log"))
        return false;
    if (saveLog(page, path).count("\r\n") != model.rowCount())
        return Tour::fail("the log was not saved");
    Tour::print(QStringLiteral("  saved %1").arg(path));
    return tour.choosePage(Tour::Page::Information);
}

} // namespace pelorin
