#include "app/WriteReport.h"

#include "app/CommandGate.h"
#include "app/LinkStatusBar.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/FailureText.h"
#include "sensor/Journal.h"
#include "sensor/JournalWords.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

using Kind = WriteResult::Kind;

Light lightOf(const WriteResult& result)
{
    switch (result.kind) {
    case Kind::Verified:
        return Light::Green;
    case Kind::Differs:
        return Light::Red;
    case Kind::NotChecked:
    case Kind::NotWritten:
        break;
    }
    return Light::Gray;
}

} // namespace

WriteReport::WriteReport(QWidget& window, const Shared& shared)
    : QObject(&window), m_window(window), m_writer(shared.writer), m_gate(shared.gate),
      m_strip(shared.strip), m_statusBar(shared.statusBar)
{
    connect(&m_writer, &SafeWriter::ended, this, &WriteReport::tell);
    connect(&m_writer, &SafeWriter::began, this, [this] {
        if (m_strip.isOf(nullptr)) // what others tell is not over
            m_strip.clear();
    });
    connect(&m_strip, &NoticeStrip::emptied, this, [this] {
        m_shown.reset();
        showWaiting();
    });
    m_writer.setQuestion([this](const QString& reason, const std::function<void(bool)>& answer) {
        if (m_gate.isCloseWanted())
            return answer(false);
        const CommandGate::Scope scope(m_gate);
        QWidget* dialog = QApplication::activeModalWidget(); // that shows how far it is
        answer(askWithButtons(dialog ? dialog : &m_window, reason,
                              {languageString(strings::kWriteAllTheSame),
                               languageString(strings::kDoNotWrite)}) == 0);
    });
}

/// A failure that the user must not miss is told in a box, too.
void WriteReport::tell(const WriteResult& result)
{
    using Ended = Outcome::Kind;
    if (result.kind == Kind::NotWritten) {
        m_gate.addNotice(result.problem);
    } else if (result.outcome.kind == Ended::Lost || result.outcome.kind == Ended::Failed) {
        m_gate.addNotice(writingFailure(result.outcome));
    }
    NoticeStrip::Notice notice{[result] { return textOf(result); }, lightOf(result)};
    if (result.kind == Kind::Differs) {
        notice.buttons.push_back({strings::kWriteAgain, [this, result] { writeAgain(result); }});
        if (!result.entry.isEmpty()) {
            notice.buttons.push_back(
                {strings::kPutBack, [this, entry = result.entry] { Q_EMIT putBackWanted(entry); }});
        }
    }
    m_strip.show(std::move(notice));
    m_shown = result.kind;
}

void WriteReport::leaveSensor()
{
    if ((m_shown == Kind::Verified || m_shown == Kind::NotWritten) && m_strip.isOf(nullptr))
        m_strip.clear(); // unless another has taken its place
}

void WriteReport::endNotWritten()
{
    if (m_shown == Kind::NotWritten && m_strip.isOf(nullptr))
        m_strip.clear();
}

/// The same texts once more, to the same sensor, as it was read back.
void WriteReport::writeAgain(const WriteResult& result)
{
    const JournalEntry sensor{
        .device = result.device, .version = result.version, .ssiType = result.ssiType};
    const auto unlike = m_writer.unlikeness(sensor);
    if (m_writer.runner().link().isIdentified() && unlike != WriteResult::Reason::None) {
        const bool otherPort = unlike == WriteResult::Reason::AnotherPort;
        m_gate.addNotice(
            languageString(strings::kNothingWritten) + QLatin1Char('\n') +
            languageString(otherPort ? strings::kAnotherPort : strings::kAnotherConnected));
        return;
    }
    WriteRequest request = result.request;
    request.base = result.before; // by which it is known
    for (const char id : request.order)
        request.base.erase(id);
    for (const auto& [id, value] : result.has)
        request.base[id] = value;
    const bool begun = m_writer.write(
        *this, std::move(request),
        {.phase = [this](SafeWriter::Phase phase) { m_statusBar.showString(textNumberOf(phase)); },
         .ended =
             [this](const WriteResult& ended) {
                 m_statusBar.showString(headlineOf(ended));
                 Q_EMIT refreshWanted();
             }});
    if (!begun)
        m_gate.addNotice(languageString(strings::kBeingConnected));
}

/// Nobody was there to be told when they ended: all of them in one notice.
void WriteReport::tellUntold()
{
    if (std::exchange(m_untoldTold, true))
        return;
    const QList<JournalEntry> untold = m_writer.journal().untold();
    if (untold.isEmpty())
        return;
    const bool differs = std::any_of(untold.begin(), untold.end(), [](const JournalEntry& entry) {
        return entry.end->kind == Kind::Differs;
    });
    const auto text = [untold] {
        QStringList lines;
        for (const JournalEntry& entry : untold)
            lines << entryInWords(entry) + QStringLiteral(": ") + outcomeInWords(entry);
        return lines.join(QLatin1Char('\n'));
    };
    const auto show = [this, id = untold.constFirst().id] {
        m_strip.clear();
        Q_EMIT showWanted(id);
    };
    showLater({text, differs ? Light::Red : Light::Gray, {{strings::kShow, show}}}, untold);
}

void WriteReport::offerUnfinished()
{
    for (const JournalEntry& entry : m_writer.journal().unfinished()) {
        if (m_offered.contains(entry.id) || !m_writer.isSensorOf(entry))
            continue;
        m_offered << entry.id;
        showLater({[entry] { return unfinishedInWords(entry); },
                   Light::Red,
                   {{strings::kShow, [this, id = entry.id] { Q_EMIT showWanted(id); }},
                    {strings::kForget, [this, entry] { forget(entry); }}}});
    }
}

void WriteReport::forget(const JournalEntry& entry)
{
    m_gate.addNotice(m_writer.journal().giveUp(entry).message());
    m_strip.clear();
}

/// Nothing takes the place of what the user has still to read.
/// @param untold what the user has been told of once the notice is shown
void WriteReport::showLater(NoticeStrip::Notice notice, const QList<JournalEntry>& untold)
{
    m_waiting.push_back({std::move(notice), untold});
    showWaiting();
}

void WriteReport::showWaiting()
{
    if (m_waiting.empty() || !m_strip.isEmpty() || m_writer.isRunning())
        return;
    Waiting waiting = std::move(m_waiting.front());
    m_waiting.erase(m_waiting.begin());
    m_strip.show(std::move(waiting.notice));
    for (const JournalEntry& entry : std::as_const(waiting.untold)) {
        JournalEntry::End told = *entry.end;
        told.told = true;
        (void)m_writer.journal().setEnd(entry, told); // told once more otherwise
    }
}

} // namespace pelorin
