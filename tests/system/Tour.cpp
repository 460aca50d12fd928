#include "Tour.h"

#include "app/PelorinMainWindow.h"
#include "platform/core/LanguageStrings.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTableWidget>
#include <QTest>

#include <cstdio>
#include <utility>

namespace pelorin {

Tour::Tour(PelorinMainWindow& window, std::shared_ptr<SimulatedSensor> sensor,
           std::shared_ptr<SimulatedDisplayUnit> displayUnit, QDir folder)
    : m_window(window), m_sensor(std::move(sensor)), m_displayUnit(std::move(displayUnit)),
      m_folder(std::move(folder))
{
}

bool Tour::choosePage(Page page)
{
    auto* list = m_window.findChild<QListWidget*>(QStringLiteral("pageList"));
    const auto found = list->findItems(languageString(static_cast<int>(page)), Qt::MatchExactly);
    if (found.isEmpty())
        return fail("a page is missing");
    const int row = list->row(found.first());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.first()).center());
    if (!QTest::qWaitFor([&] { return m_window.currentPage() == row; }, kTimeLimit))
        return fail("a page did not come up");
    return waitIdle();
}

bool Tour::clickCommand(int command)
{
    QMenuBar& bar = *m_window.menuBar();
    for (QAction* top : bar.actions()) {
        for (QAction* item : top->menu() ? top->menu()->actions() : QList<QAction*>()) {
            if (item->isSeparator() || item->data().toInt() != command)
                continue;
            QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(top).center());
            QTest::mouseClick(top->menu(), Qt::LeftButton, {},
                              top->menu()->actionGeometry(item).center());
            return true;
        }
    }
    return fail("a menu item is missing");
}

void Tour::enterPath(const QFileDialog& dialog, const QString& path)
{
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    edit->setText(path);
    QTest::keyClick(edit, Qt::Key_Return);
}

bool Tour::waitIdle()
{
    bool idle = QTest::qWaitFor([this] { return m_window.currentPage() >= 0; }, kTimeLimit);
    // Input that came while the program was busy is still dropped some passes later.
    constexpr int kPasses = 4;
    for (int pass = 0; idle && pass < kPasses; pass = m_window.isBusy() ? 0 : pass + 1) {
        idle = QTest::qWaitFor([this] { return !m_window.isBusy(); }, kTimeLimit);
        QCoreApplication::processEvents();
    }
    return idle || fail("the program stayed busy");
}

bool Tour::save(const char* name, QWidget& window) const
{
    const QString path = m_folder.filePath(QLatin1String(name) + QStringLiteral(".png"));
    if (!window.grab().save(path))
        return fail("a picture could not be saved");
    print(QStringLiteral("  saved %1").arg(path));
    return true;
}

bool Tour::save(const char* name) const
{
    return save(name, m_window);
}

void Tour::print(const QString& line)
{
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

void Tour::print(const QTableWidget& list)
{
    for (int row = 0; row < list.rowCount(); ++row) {
        print(QStringLiteral("  %1 %2 %3")
                  .arg(list.item(row, 0)->text(), -34)
                  .arg(list.item(row, 1)->text(), -54)
                  .arg(list.item(row, 2)->text()));
    }
}

bool Tour::fail(const char* what)
{
    print(QStringLiteral("The tour failed: %1").arg(QLatin1String(what)));
    return false;
}

} // namespace pelorin
