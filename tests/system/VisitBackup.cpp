#include "Tour.h"
#include "Visits.h"

#include "app/Commands.h"
#include "app/PelorinMainWindow.h"
#include "backup/BackupProgressDialog.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

namespace pelorin {

namespace {

/// Runs a command that asks for a file, and waits until its progress dialog has ended.
bool runWithFile(Tour& tour, int command, const QString& path, const char* picture)
{
    bool asked = false;
    bool pictured = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* active = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<QFileDialog*>(active); dialog && !asked) {
            asked = true;
            Tour::enterPath(*dialog, path);
        } else if (auto* progress = qobject_cast<BackupProgressDialog*>(active);
                   progress && !pictured) {
            const auto* bar = progress->findChild<QProgressBar*>();
            pictured = bar->value() > bar->maximum() / 2 && tour.save(picture, *progress);
        } else if (auto* box = qobject_cast<QMessageBox*>(active)) {
            Tour::print(box->text());
            box->reject();
        }
    });
    poll.start(20);
    return tour.clickCommand(command) &&
           QTest::qWaitFor([&] { return pictured && !QApplication::activeModalWidget(); },
                           Tour::kTimeLimit);
}

} // namespace

bool visitBackup(Tour& tour)
{
    const QString path = tour.folder().absoluteFilePath(QStringLiteral("backup.dat"));
    QFile file(path);
    (void)file.remove(); // of an earlier tour
    const std::string offset = tour.sensor().parameter('N');
    if (!runWithFile(tour, kSaveBackupCommand, path, "backup") || !tour.waitIdle() ||
        !file.open(QIODevice::ReadOnly))
        return Tour::fail("no backup was saved");
    Tour::print(QStringLiteral("Backup file %1").arg(path));
    while (!file.atEnd())
        Tour::print(QStringLiteral("  ") + QString::fromLatin1(file.readLine()).trimmed());

    tour.sensor().setParameter('N', "000123");
    if (!runWithFile(tour, kRestoreBackupCommand, path, "restore"))
        return Tour::fail("the backup was not restored");
    const bool connected =
        QTest::qWaitFor([&tour] { return tour.window().currentPage() == 0; }, Tour::kTimeLimit);
    Tour::print(QStringLiteral("  Restored: the sensor has N = %1 again")
                    .arg(QString::fromStdString(tour.sensor().parameter('N'))));
    return connected && tour.waitIdle() && tour.sensor().parameter('N') == offset;
}

} // namespace pelorin
