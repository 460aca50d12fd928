#include "StartTour.h"

#include "Tour.h"

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "pages/SelectPortDialog.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace pelorin {

namespace {

void click(QAbstractButton* button)
{
    if (button)
        QTest::mouseClick(button, Qt::LeftButton);
}

void savePicture(QWidget& window, const QDir& folder, const QString& name)
{
    if (!window.grab().save(folder.filePath(name)))
        (void)std::fprintf(stderr, "no picture %s\n", qPrintable(name));
}

/// Answers what is asked at the start, until the window is there.
void answer(const QDir& folder)
{
    QWidget* dialog = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
        auto* ignore = box->button(QMessageBox::Ignore);
        click(ignore ? ignore : box->button(QMessageBox::Ok));
    } else if (auto* ports = qobject_cast<SelectPortDialog*>(dialog)) {
        savePicture(*ports, folder, QStringLiteral("start-ports.png"));
        click(ports->findChild<QPushButton*>(QStringLiteral("withoutPortButton")));
    }
}

} // namespace

bool startWithoutPort(const ComPortFactory& factory, const QDir& folder)
{
    PelorinApp pelorin(factory);
    bool ended = false;
    QObject::connect(&pelorin, &PelorinApp::closed, [&ended] { ended = true; });
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&folder] { answer(folder); });
    user.start(20);
    if (!pelorin.initInstance(QStringLiteral("/CP:0")) ||
        !QTest::qWaitFor([&] { return pelorin.mainWindow() || ended; }, Tour::kTimeLimit) || ended)
        return false;
    PelorinMainWindow& window = *pelorin.mainWindow();
    const auto isReady = [&window] {
        return !window.isBusy() &&
               window.width() > window.screen()->availableSize().width() * 9 / 10;
    };
    if (!QTest::qWaitFor(isReady, Tour::kTimeLimit)) // the window comes, then becomes as large
        return false;
    savePicture(window, folder, QStringLiteral("without-port.png"));
    const auto* notice = window.findChild<QLabel*>(QStringLiteral("noticeText"));
    (void)std::printf("Without a port\n  %s\n", qUtf8Printable(notice->text()));
    pelorin.requestClose();
    return QTest::qWaitFor([&ended] { return ended; }, Tour::kTimeLimit);
}

} // namespace pelorin
