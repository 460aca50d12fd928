#include "Chapters.h"

#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QFile>
#include <QWidget>

namespace pelorin::chapters {

bool isAsking()
{
    return QApplication::activeModalWidget() != nullptr;
}

bool noDialog()
{
    return !isAsking();
}

std::function<bool()> isShown(const char* control)
{
    return [control] {
        const QWidget* dialog = QApplication::activeModalWidget();
        return dialog && dialog->findChild<QWidget*>(QLatin1String(control)) != nullptr;
    };
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Tour::Step holds(const Sensor& sensor, char parameter, const char* text)
{
    return Tour::expect("the sensor holds what was written",
                        [=] { return sensor->parameter(parameter) == text; });
}

Tour::Step printHeld(Tour& tour, const Sensor& sensor, char parameter)
{
    return tour.print([=] {
        return QStringLiteral("the sensor holds %1 = %2")
            .arg(QLatin1Char(parameter))
            .arg(QString::fromStdString(sensor->parameter(parameter)));
    });
}

} // namespace pelorin::chapters
