#include "pages/RecordingDialog.h"

#include "pages/PositionTrace.h"
#include "pages/PositionView.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

namespace pelorin {

namespace {

QString headText(const RecordingHead& head)
{
    return languageString(strings::kRecordingHead)
        .arg(head.version, QString::number(head.sensorType), head.port,
             QString::number(head.resolution, 'f', positionDecimals(head.resolution)),
             head.start.toUTC().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}

QString faultsOf(const QString& path, const RecordingReading& reading)
{
    const RecordingContent& content = reading.content;
    if (!reading.outcome.isDone())
        return reading.outcome.message();
    if (!content.isRecording)
        return languageString(strings::kNoRecording).arg(path);
    if (content.badLines == 0)
        return {};
    return languageString(strings::kRecordingDamaged)
        .arg(path, QString::number(content.firstBadLine), QString::number(content.badLines));
}

} // namespace

RecordingDialog::RecordingDialog(QWidget* parent, const QString& path,
                                 const RecordingContent& content)
    : QDialog(parent)
{
    setWindowTitle(languageString(strings::kRecordingTitle).arg(QFileInfo(path).fileName()));
    resize(960, 480);
    auto* head = new QLabel(headText(content.head), this);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    auto* view = new PositionView(PositionView::Kind::Recording, this);
    view->trace().setResolution(content.head.resolution);
    view->trace().setRecording({content.points.begin(), content.points.end()});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(head);
    layout->addWidget(view, 1);
    layout->addWidget(buttons);
    view->trace().setFocus();
}

void openRecording(QWidget* parent)
{
    const QPointer<QWidget> window = parent;
    const QString path =
        chooseFile(parent, QFileDialog::AcceptOpen, languageString(strings::kOpenRecording),
                   languageString(strings::kRecordingFilter), QStringLiteral("csv"));
    if (path.isEmpty())
        return;
    const RecordingReading reading = readRecording(path);
    if (const QString faults = faultsOf(path, reading); !faults.isEmpty())
        warn(window, faults);
    if (!reading.content.isRecording || !window)
        return;
    RecordingDialog dialog(window, path, reading.content);
    (void)dialog.exec();
}

} // namespace pelorin
