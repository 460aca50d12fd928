#include "backup/SensorReport.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramVersion.h"
#include "platform/core/Strings.h"
#include "sensor/JournalWords.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <QBuffer>
#include <QLocale>
#include <QPdfWriter>
#include <QStringList>
#include <QTextDocument>

namespace pelorin {

namespace {

constexpr int kPointSize = 9; ///< so that everything has room on one page
constexpr qreal kMarginMm = 15;
constexpr qreal kLayoutDpi = 96;
constexpr qreal kMmPerInch = 25.4;
constexpr int kLinesForNote = 8;

QString cell(const QString& text, const char* tag = "td")
{
    return QStringLiteral("<%1 align=\"left\" valign=\"top\">%2</%1>")
        .arg(QLatin1String(tag), text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")));
}

QString row(const QStringList& cells, const char* tag = "td")
{
    QString text;
    for (const QString& content : cells)
        text += cell(content, tag);
    return QStringLiteral("<tr>%1</tr>\n").arg(text);
}

QString table(const QString& rows)
{
    return QStringLiteral("<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\" "
                          "width=\"100%\">\n%1</table>\n")
        .arg(rows);
}

QString heading(int text)
{
    return QStringLiteral("<h3>%1</h3>\n").arg(languageString(text).toHtmlEscaped());
}

QString valueRows(const SensorReport& report)
{
    QString rows =
        row({languageString(strings::kParameterHeader),
             languageString(strings::kRawHeader).arg(languageString(strings::kValueHeader)),
             languageString(strings::kInWords).arg(languageString(strings::kValueHeader))},
            "th");
    for (const char id : sensorType(report.ssiType).information) {
        const auto value = report.values.find(id);
        if (value == report.values.end())
            continue;
        rows += row({parameterInWords(id), QString::fromLatin1(value->second),
                     valueExplained(id, value->second, report.values)});
    }
    return rows;
}

QString lastWriteText(const std::optional<JournalEntry>& entry)
{
    if (!entry)
        return languageString(strings::kNoWriteInJournal);
    return timeInWords(*entry) + QStringLiteral(", ") + writerInWords(entry->by) +
           QLatin1Char('\n') + outcomeInWords(*entry);
}

} // namespace

QString SensorReport::html() const
{
    const auto shown = [this](char id) { return QString::fromLatin1(textOf(values, id)); };
    // It may be read in another country, and years later.
    const QString when = time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss t"));
    const QString identity =
        row({languageString(strings::kTypeOfSensor), QString::number(ssiType)}) +
        row({languageString(strings::kFactoryText), shown('F')}) +
        row({languageString(strings::kFirmwareVersion), shown('V')}) +
        row({languageString(strings::kDeviceHeader), port}) +
        row({languageString(strings::kReportTime), when}) +
        row({languageString(strings::kReportProgram),
             languageString(strings::kProgram) + QLatin1Char(' ') + programVersion()});
    const QString title = languageString(strings::kReportTitle).toHtmlEscaped();
    return QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>"
                          "<style>body { font-family: sans-serif }</style></head><body>\n"
                          "<h2>%1</h2>\n")
               .arg(title) +
           table(identity) + QStringLiteral("<p></p>\n") + table(valueRows(*this)) +
           heading(strings::kLastVerification) + table(row({lastWriteText(lastWrite)})) +
           heading(strings::kReportNote) + table(row({QString(kLinesForNote, u'\n')})) +
           QStringLiteral("</body></html>\n");
}

QByteArray SensorReport::pdf() const
{
    QByteArray content;
    QBuffer file(&content);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                          QPageLayout::Millimeter);
    writer.setTitle(languageString(strings::kReportTitle));
    QTextDocument document;
    QFont font = document.defaultFont();
    font.setPointSize(kPointSize);
    document.setDefaultFont(font);
    document.setHtml(html());
    document.setPageSize(writer.pageLayout().paintRect(QPageLayout::Millimeter).size() /
                         kMmPerInch * kLayoutDpi); // else it gets other margins besides
    document.print(&writer);
    return content;
}

} // namespace pelorin
