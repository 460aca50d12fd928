#include "backup/BackupProgressDialog.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/ui/MessageBox.h"
#include "sensor/BackupFile.h"
#include "sensor/SensorTypes.h"

#include <QCoreApplication>
#include <QProgressBar>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kOkButton = 1;
constexpr int kMessageControl = 1034;
constexpr int kProgressControl = 1035;
constexpr int kStartMessage = WM_USER + 11;

constexpr int kReadFailedText = 123;
constexpr int kWriteFailedText = 170;
constexpr int kBackupText = 210;
constexpr int kRestoreText = 211;
constexpr int kNoBackupFileText = 213;
constexpr int kOkText = 241;
constexpr int kAbandonedText = 1012;
constexpr int kNothingWrittenWithoutSensorText = 1013;
constexpr int kWrittenText = 1310;
constexpr int kNothingWrittenText = 1311;
constexpr int kFileNotWrittenText = 1320;
constexpr int kFileNotReadText = 1321;
constexpr int kFileUnfitText = 1322;
constexpr int kMissingText = 1323;
constexpr int kUnfitText = 1324;
constexpr int kSaveTitle = 1325;
constexpr int kRestoreTitle = 1326;
constexpr int kControlCharactersText = 1327;
constexpr int kNothingSavedWithoutSensorText = 1328;
constexpr int kProgressText = 1329;

constexpr char kStoreId = 'E';
constexpr auto kPauseBetweenRequests = 100ms;
constexpr auto kStoreTime = 500ms;

QString parameterNames(QByteArrayView ids)
{
    QStringList names;
    for (const char id : ids)
        names << QString(QLatin1Char(id));
    return names.join(QStringLiteral(", "));
}

} // namespace

BackupProgressDialog::BackupProgressDialog(QWidget* parent, SensorLink& link, BackupFile& file,
                                           Mode mode)
    : BaseDialog(QStringLiteral("116_BackupProgress"), parent), m_link(link), m_file(file),
      m_mode(mode), m_lossesAtStart(link.lossCount())
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint); // no close box
    m_link.setReplyTarget(this, WM_LINK_REPLY);
}

BackupProgressDialog::~BackupProgressDialog()
{
    m_link.setReplyTarget(nullptr, 0);
}

void BackupProgressDialog::setupTranslationMap()
{
    const bool backup = m_mode == Mode::Backup;
    setTitleString(backup ? kSaveTitle : kRestoreTitle);
    addToTranslationMap(kMessageControl, backup ? kBackupText : kRestoreText);
    addToTranslationMap(kOkButton, kOkText);
    addAccessibleName(kMessageControl, backup ? kSaveTitle : kRestoreTitle);
    addAccessibleName(kProgressControl, kProgressText);
}

void BackupProgressDialog::onInitDialog()
{
    m_parameters = sensorType(m_link.ssiType()).backup;
    m_progress = getControl<QProgressBar>(kProgressControl);
    m_progress->setRange(0, static_cast<int>(m_parameters.size()));
    m_progress->setValue(0);
    QCoreApplication::postEvent(this, new WindowMessage(kStartMessage));
}

void BackupProgressDialog::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (!message)
        return;
    if (message->message() == kStartMessage) {
        start();
    } else if (message->message() == WM_LINK_REPLY && message->request() != 0 &&
               message->request() == m_outstanding) {
        m_outstanding = 0;
        const bool lost = m_link.lossCount() != m_lossesAtStart;
        onLinkReply(lost ? 0 : static_cast<int>(message->wParam()));
    }
}

void BackupProgressDialog::start()
{
    showBusy(1);
    if (!m_link.isIdentified() || m_parameters.empty())
        fail(languageString(m_mode == Mode::Backup ? kNothingSavedWithoutSensorText
                                                   : kNothingWrittenWithoutSensorText));
    else if (m_mode == Mode::Backup || readFile())
        request();
}

/// Nothing is written before all that the sensor needs is known to be there.
bool BackupProgressDialog::readFile()
{
    const auto [failure, values] = m_file.read();
    if (!failure.isNull()) {
        fail(languageString(kFileNotReadText).arg(m_file.path(), failure));
        return false;
    }
    if (!values) {
        fail(languageString(kNoBackupFileText));
        return false;
    }
    m_values = *values;
    const BackupFaults faults = BackupFaults::of(m_values, m_parameters);
    if (faults == BackupFaults())
        return true;
    QStringList lines{languageString(kFileUnfitText)};
    if (!faults.missing.isEmpty())
        lines << languageString(kMissingText).arg(parameterNames(faults.missing));
    if (!faults.unfit.isEmpty())
        lines << languageString(kUnfitText).arg(parameterNames(faults.unfit));
    fail(lines.join(QLatin1Char('\n')));
    return false;
}

void BackupProgressDialog::request()
{
    const char id = m_parameters[m_step];
    m_outstanding =
        m_mode == Mode::Backup ? m_link.requestRead(id) : m_link.requestWrite(id, m_values[id]);
}

void BackupProgressDialog::onLinkReply(int result)
{
    if (result != 1) {
        failRequest();
    } else if (m_step == m_parameters.size()) {
        showBusy(0);
        done(Accepted);
    } else {
        m_progress->setValue(m_progress->value() + 1);
        if (m_mode == Mode::Backup)
            takeReply();
        else
            advance();
    }
}

void BackupProgressDialog::takeReply()
{
    const char id = m_parameters[m_step];
    const QByteArray reply = m_link.lastReply();
    if (hasControlCharacters(reply)) {
        fail(languageString(kControlCharactersText).arg(QLatin1Char(id)));
        return;
    }
    m_values[id] = reply;
    advance();
}

void BackupProgressDialog::advance()
{
    ++m_step;
    if (m_step < m_parameters.size()) {
        Pacing::sleep(kPauseBetweenRequests);
        request();
    } else if (m_mode == Mode::Backup) {
        saveFile();
    } else {
        storeInSensor();
    }
}

void BackupProgressDialog::saveFile()
{
    const QString failure = m_file.save(m_values);
    if (!failure.isNull()) {
        fail(languageString(kFileNotWrittenText).arg(m_file.path(), failure));
        return;
    }
    showBusy(0);
    done(Accepted);
}

/// The sensor takes the values into effect; the dialog ends with the answer, after the pause.
void BackupProgressDialog::storeInSensor()
{
    m_outstanding = m_link.requestWrite(kStoreId, QByteArray());
    Pacing::sleep(kStoreTime);
}

void BackupProgressDialog::failRequest()
{
    const char id = m_step < m_parameters.size() ? m_parameters[m_step] : kStoreId;
    const int text = m_mode == Mode::Backup ? kReadFailedText : kWriteFailedText;
    QStringList lines{languageString(text).arg(static_cast<unsigned char>(id))};
    if (m_link.lossCount() != m_lossesAtStart)
        lines << languageString(kAbandonedText);
    if (m_mode == Mode::Restore)
        lines << writtenText();
    fail(lines.join(QLatin1Char('\n')));
}

QString BackupProgressDialog::writtenText() const
{
    if (m_step == 0)
        return languageString(kNothingWrittenText);
    const auto written = m_parameters.substr(0, m_step);
    return languageString(kWrittenText)
        .arg(parameterNames({written.data(), static_cast<qsizetype>(written.size())}));
}

void BackupProgressDialog::fail(const QString& message)
{
    showBusy(0);
    (void)messageBox(this, message, QMessageBox::Ok, QMessageBox::Critical);
    done(Rejected);
}

void BackupProgressDialog::showBusy(int busy)
{
    QCoreApplication::postEvent(parentWidget()->window(),
                                new WindowMessage(WM_BUSY, static_cast<std::uintptr_t>(busy)));
}

} // namespace pelorin
