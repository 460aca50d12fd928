#!/usr/bin/env bash
# Gives the layer check one include at a time and compares its verdict.
#   tests/checks/TestLayerCheck.sh <project folder> <folder of the QtWidgets headers>
set -euo pipefail

check=$1/tools/check-layers.sh
qt_widgets=$2
tree=$(mktemp -d)
trap 'rm -rf -- "$tree"' EXIT

failures=0
while read -r verdict file include; do
    rm -rf -- "$tree/src"
    mkdir -p -- "$tree/src/${file%/*}"
    printf '#pragma once\n\n  # include %s\n' "$include" >"$tree/src/$file"
    actual=refused
    if "$check" "$tree" "$qt_widgets" >"$tree/output"; then
        actual=allowed
    elif ! grep -q "^src/$file:3: " "$tree/output"; then
        actual="refused without naming the line"
    fi
    if [[ $actual != "$verdict" ]]; then
        failures=$((failures + 1))
        echo "$file with $include: $actual, expected $verdict"
    fi
done <<'ROWS'
allowed app/PelorinApp.cpp "backup/BackupDialog.h"
allowed app/PelorinApp.cpp "platform/core/ComPort.h"
allowed app/main.cpp "simulator/SimulatedSensor.h"
refused app/PelorinApp.cpp "simulator/SimulatedSensor.h"
allowed cli/main.cpp "simulator/SimulatedPorts.h"
refused cli/InfoCommand.cpp "simulator/SimulatedPorts.h"
refused cli/InfoCommand.cpp "platform/ui/MessageBox.h"
refused cli/InfoCommand.cpp <QWidget>
refused backup/BackupDialog.cpp "pages/SensorPage.h"
refused backup/BackupDialog.cpp "display/DisplayLink.h"
refused display/DisplayDialog.cpp "tempcomp/CompensationTable.h"
refused tempcomp/CompensationPage.cpp "app/PelorinApp.h"
allowed pages/InfoPage.h <QDialog>
allowed pages/InfoPage.cpp "pages/InfoPage.h"
allowed pages/InfoPage.cpp "InfoPage.moc"
refused pages/InfoPage.cpp "InfoPage.h"
refused pages/InfoPage.cpp "../link/SensorLink.h"
refused pages/InfoPage.cpp "backup/BackupDialog.h"
allowed pages/InfoPage.cpp "sensor/ParameterCodec.h"
allowed sensor/FormatRestore.cpp "link/SensorLink.h"
refused sensor/BackupFile.cpp "pages/SensorPage.h"
refused sensor/BackupFile.cpp "platform/ui/MessageBox.h"
refused sensor/BackupFile.cpp <QMessageBox>
refused link/SensorLink.h "platform/ui/BaseDialog.h"
refused link/SensorLink.h "sensor/ParameterCodec.h"
refused link/SensorLink.h <QWidget>
refused link/SensorLink.h <QtWidgets/QLabel>
refused link/SensorLink.h <QtWidgets>
refused link/SensorLink.h <qmessagebox.h>
allowed link/SensorLink.h <QObject>
allowed link/SensorLink.h <thread>
refused simulator/SimulatedSensor.h "link/SensorLink.h"
refused simulator/SimulatedSensor.h <QLabel>
allowed platform/ui/BaseDialog.h "platform/core/LanguageStrings.h"
refused platform/ui/BaseDialog.h "link/SensorLink.h"
refused platform/core/ComPort.h "platform/ui/BaseDialog.h"
refused platform/core/ComPort.h <QDialog>
refused helpers/Text.h "platform/core/ComPort.h"
ROWS

((failures == 0))
