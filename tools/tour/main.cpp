#include "DarkColors.h"
#include "Script.h"
#include "StartTour.h"
#include "Tour.h"

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "platform/core/Demonstration.h"
#include "platform/core/Pacing.h"
#include "platform/core/Profile.h"
#include "platform/core/ProgramOptions.h"
#include "platform/core/ProgramSettings.h"
#include "platform/ui/ReadableStyle.h"
#include "simulator/PortFactory.h"
#include "simulator/SimulatedPorts.h"

#include <QApplication>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace pelorin;

namespace {

const QString kLanguage = QStringLiteral("language");
const QString kSize = QStringLiteral("size");
const QString kDark = QStringLiteral("dark");
const QString kQuick = QStringLiteral("quick");

/// Has the tour run off screen, on a screen of the size that the program then sees, at each scale.
/// @param size width and height, as in 1280x720
/// @return false if there is no such size, or nothing can be written to the folder
bool useScreen(const QString& size, const QDir& folder)
{
    const QStringList sides = size.split(QLatin1Char('x'));
    const double scale = std::max(qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(), 1.0);
    const auto pixels = [&](int side) {
        return static_cast<int>(std::lround(sides.value(side).toInt() * scale));
    };
    QFile file(folder.filePath(QStringLiteral("screen.json")));
    if (sides.size() != 2 || pixels(0) <= 0 || pixels(1) <= 0 || !file.open(QIODevice::WriteOnly))
        return false;
    const QString screen = QStringLiteral(
        R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": true, "screens": [)"
        R"({"name": "desktop", "x": 0, "y": 0, "width": %1, "height": %2, "logicalDpi": 96, )"
        R"("dpr": 1}]})");
    file.write(screen.arg(pixels(0)).arg(pixels(1)).toLatin1());
    return qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toLocal8Bit());
}

} // namespace

/// Runs the program, on a copy of the demonstration's settings and its type 2 sensor, and makes the
/// tour.
int main(int argc, char* argv[])
{
    ProgramOptions options(
        QStringLiteral("Walks through the whole program and takes a picture of each place."),
        {{kLanguage,
          QStringLiteral("In this language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian."),
          QStringLiteral("CODE"), QStringLiteral("1")},
         {kSize, QStringLiteral("Off screen, on a screen of this size, such as 1280x720."),
          QStringLiteral("SIZE")},
         {kDark, QStringLiteral("In the colors of a dark desktop.")},
         {kQuick, QStringLiteral("Line and waits run faster than they do.")}});
    options.addText(QStringLiteral("FOLDER"), QStringLiteral("Where the pictures go."));
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    options.parse(arguments);
    const auto& values = options.values();
    const QDir folder(values.positionalArguments().value(0, QStringLiteral(".")));
    const bool hasPlace = folder.mkpath(QStringLiteral(".")) &&
                          (!values.isSet(kSize) || useScreen(values.value(kSize), folder));
    const QApplication application(argc, argv);
    if (options.wantAnswer()) {
        options.answer();
        return EXIT_SUCCESS;
    }
    if (const QString fault = options.fault(); !fault.isNull())
        return options.refuse(fault);
    if (!hasPlace)
        return EXIT_FAILURE;
    QApplication::setQuitOnLastWindowClosed(false);
    ReadableStyle::install();
    if (values.isSet(kDark))
        QApplication::setPalette(darkColors());
    if (values.isSet(kQuick))
        Pacing::setSpeeds({.pauses = 5, .line = 20});

    useDemonstration();
    const int language = values.value(kLanguage).toInt();
    (void)Profile().write({{languageEntry(), language}}); // for the start; then by menu
    SimulatedPorts simulators;
    const ComPortFactory factory = realAndSimulatedPorts(simulators);
    if (!startWithoutPort(factory, folder))
        return EXIT_FAILURE;
    PelorinApp pelorin(factory);
    bool ended = false;
    QObject::connect(&pelorin, &PelorinApp::closed, [&ended] { ended = true; });
    if (!pelorin.initInstance(QStringLiteral("/CP:99")) ||
        !QTest::qWaitFor([&] { return pelorin.mainWindow() || ended; }, Tour::kTimeLimit) || ended)
        return EXIT_FAILURE;

    Tour tour(*pelorin.mainWindow(), folder);
    tour.run(script(tour, simulators, language));
    pelorin.requestClose();
    const bool closed = QTest::qWaitFor([&ended] { return ended; }, Tour::kTimeLimit);
    pelorin.exitInstance();
    return closed ? EXIT_SUCCESS : EXIT_FAILURE;
}
