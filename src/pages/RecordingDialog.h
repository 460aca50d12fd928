#pragma once

#include "sensor/PositionRecording.h"

#include <QDialog>

namespace pelorin {

/// Shows a recording of positions; needs no sensor.
class RecordingDialog final : public QDialog
{
    Q_OBJECT

public:
    RecordingDialog(QWidget* parent, const QString& path, const RecordingContent& content);
};

/// Has the user choose a recording and shows it. Tells what is wrong with a file that is none, or
/// is damaged.
void openRecording(QWidget* parent);

} // namespace pelorin
