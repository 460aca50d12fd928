#include "sensor/BackupFaults.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"

#include <QStringList>

namespace pelorin {

namespace {

constexpr int kShortest = 6; ///< of what a sensor has ever answered
constexpr int kLongest = 8;

bool isUsable(const QByteArray& text)
{
    return text.size() >= kShortest && text.size() <= kLongest && isPrintable(text);
}

} // namespace

BackupFaults BackupFaults::of(const SensorValues& values, std::string_view parameters)
{
    BackupFaults faults;
    for (const char id : parameters) {
        const QByteArray value = textOf(values, id);
        if (value.isEmpty()) {
            faults.missing += id;
        } else if (!isUsable(value)) {
            faults.unfit += id;
        }
    }
    return faults;
}

QString textOf(const BackupFaults& faults)
{
    if (faults == BackupFaults())
        return {};
    QStringList lines{languageString(strings::kBackupUnfit)};
    if (!faults.missing.isEmpty())
        lines << languageString(strings::kBackupMissing).arg(parametersInWords(faults.missing));
    if (!faults.unfit.isEmpty())
        lines << languageString(strings::kBackupNotUsable).arg(parametersInWords(faults.unfit));
    return lines.join(QLatin1Char('\n'));
}

} // namespace pelorin
