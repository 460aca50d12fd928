#include "app/ConnectionNotices.h"

#include "app/CommandGate.h"
#include "app/Commands.h"
#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/SettingsFile.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/PositionStream.h"
#include "sensor/Settings.h"

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace pelorin {

namespace {

/// "type 0: 10 to 1F, type 1: none" and so on.
QString rangesInWords()
{
    QStringList words;
    const auto bounds = revisionBounds();
    for (int type = 0; type < kSsiTypeCount; ++type) {
        const RevisionBounds& range = bounds[static_cast<std::size_t>(type)];
        words << (range.hasAny() ? languageString(strings::kTypeRange)
                                       .arg(QString::number(type), revisionText(range.low),
                                            revisionText(range.high))
                                 : languageString(strings::kTypeWithoutRange).arg(type));
    }
    return words.join(QStringLiteral(", "));
}

/// What "always" does to the range of a type.
QString wideningInWords(int type, const RevisionBounds& range, const RevisionBounds& wide)
{
    if (range.hasAny() && range.low <= range.high) {
        return languageString(strings::kAlwaysWidened)
            .arg(QString::number(type), revisionText(wide.low), revisionText(wide.high),
                 revisionText(range.low), revisionText(range.high));
    }
    return languageString(strings::kAlwaysNew).arg(QString::number(type), revisionText(wide.low));
}

} // namespace

ConnectionNotices::ConnectionNotices(QObject* parent, const Shared& shared)
    : QObject(parent), m_strip(shared.strip), m_gate(shared.gate), m_link(shared.link),
      m_formats(shared.formats)
{
    connect(&m_strip, &NoticeStrip::emptied, this, [this](const void* owner) {
        const bool isRead = owner == &m_kept && !m_kept.isEmpty();
        if (isRead)
            m_kept.removeFirst();
        if (m_waiting || isRead)
            update();
    });
    connect(&m_strip, &NoticeStrip::replaced, this, [this](const void* owner) {
        const bool isOurs = m_strip.isOf(this) || m_strip.isOf(&m_kept);
        if (!isOurs && (owner == this || owner == &m_kept))
            m_waiting = true;
    });
    connect(&shared.stream, &PositionStream::formatKept, this, &ConnectionNotices::tellOf);
    connect(&shared.stream, &PositionStream::ended, this, [this] {
        if (!m_kept.isEmpty()) // its sensor may have it again
            update();
    });
}

void ConnectionNotices::update()
{
    const auto isSettled = [all = m_formats.all()](const KeptFormat& format) {
        return !all.contains(format);
    };
    m_kept.erase(std::remove_if(m_kept.begin(), m_kept.end(), isSettled), m_kept.end());
    const bool saysMore = !m_strip.isEmpty() && m_strip.light() != Light::Green;
    m_waiting = saysMore && !m_strip.isOf(this) && !m_strip.isOf(&m_kept);
    if (!m_waiting)
        tell();
}

void ConnectionNotices::tellOf(const KeptFormat& format)
{
    if (m_gate.isCloseWanted())
        return m_gate.addNotice(keptFormatInWords(format));
    if (!m_kept.contains(format))
        m_kept << format;
    update();
}

void ConnectionNotices::tell()
{
    if (!m_kept.isEmpty())
        return showKeptFormat(m_kept.constFirst());
    const bool answered = m_link.linkFailed() != 1 && !m_link.versionText().isEmpty();
    if (!m_link.hasOpened()) {
        tellNoPort();
    } else if (answered && m_link.isTypeByHand()) {
        tellChosen();
    } else if (answered && m_link.ssiType() == kSsiTypeUnknown) {
        tellNotIdentified();
    } else if (m_strip.isOf(this) || m_strip.isOf(&m_kept)) {
        m_strip.clear();
    }
}

/// Trying again connects, which tells of it anew if the sensor still does not have it.
void ConnectionNotices::showKeptFormat(const KeptFormat& format)
{
    m_strip.show(
        {.text = [format] { return keptFormatInWords(format); },
         .light = Light::Red,
         .buttons = {{.caption = strings::kTryAgain,
                      .clicked =
                          [this] {
                              m_strip.clear();
                              Q_EMIT commandWanted(kConnectCommand);
                          }},
                     {.caption = strings::kForget, .clicked = [this, format] { forget(format); }}},
         .owner = &m_kept});
}

void ConnectionNotices::forget(const KeptFormat& format)
{
    const CommandGate::Scope scope(m_gate);
    const QString question =
        languageString(strings::kForgetFormat).arg(QString::fromLatin1(format.own), format.device);
    if (messageBox(m_strip.window(), question, QMessageBox::Yes | QMessageBox::No,
                   QMessageBox::Question) != QMessageBox::Yes)
        return;
    if (const auto dropped = m_formats.drop(format); !dropped.isDone())
        m_gate.addNotice(dropped.message());
    update();
}

void ConnectionNotices::tellNoPort()
{
    m_strip.show({.text = [] { return languageString(strings::kWithoutPortNotice); },
                  .buttons = {{.caption = strings::kSelectPort,
                               .clicked = [this] { Q_EMIT commandWanted(kSelectPortCommand); }}},
                  .owner = this});
}

void ConnectionNotices::tellNotIdentified()
{
    m_strip.show({.text =
                      [revision = revisionOf(m_link.versionText())] {
                          return languageString(strings::kNotIdentifiedNotice)
                              .arg(revisionText(revision), QString::number(revision),
                                   rangesInWords());
                      },
                  .light = Light::Red,
                  .buttons = typeButtons(),
                  .owner = this});
}

void ConnectionNotices::tellChosen()
{
    m_strip.show({.text =
                      [revision = revisionOf(m_link.versionText()), type = m_link.ssiType()] {
                          return languageString(strings::kChosenByHand)
                              .arg(revisionText(revision), QString::number(type));
                      },
                  .buttons = typeButtons(),
                  .owner = this});
}

/// Also where a type was chosen: it may have been the wrong one, or is to hold always.
std::vector<NoticeStrip::Button> ConnectionNotices::typeButtons()
{
    return {{.caption = strings::kSettingsTitle,
             .clicked = [this] { Q_EMIT commandWanted(kSettingsCommand); }},
            {.caption = strings::kUseAsType, .fill = [this](QMenu& menu) { fillTypes(menu); }}};
}

void ConnectionNotices::fillTypes(QMenu& menu)
{
    const auto addItem = [this, &menu](const QString& text, int type, auto use) {
        connect(menu.addAction(text), &QAction::triggered, this,
                [this, type, use] { (this->*use)(type); });
    };
    for (int type = 0; type < kSsiTypeCount; ++type)
        addItem(languageString(strings::kTypeNumber).arg(type), type, &ConnectionNotices::useAs);
    menu.addSeparator();
    const auto bounds = revisionBounds();
    const int revision = revisionOf(m_link.versionText());
    for (int type = 0; type < kSsiTypeCount; ++type) {
        const RevisionBounds& range = bounds[static_cast<std::size_t>(type)];
        if (canWiden(bounds, type, revision)) {
            addItem(wideningInWords(type, range, range.widenedTo(revision)), type,
                    &ConnectionNotices::useAlways);
        }
    }
}

void ConnectionNotices::useAs(int type)
{
    m_link.chooseType(type);
    Q_EMIT commandWanted(kConnectCommand);
}

/// A copy of the site's settings comes in their place only if the user wants that.
void ConnectionNotices::useAlways(int type)
{
    const SettingsFile file(SettingsFile::placesOfThisRun());
    const int revision = revisionOf(m_link.versionText());
    if (!file.problem().isEmpty())
        return m_gate.addNotice(file.problem());
    if (file.replaced().isEmpty())
        return widenRange(type, revision);
    m_gate.addNotice({languageString(strings::kOwnSettingsFirst).arg(file.path(), file.replaced()),
                      {languageString(strings::kOk), languageString(strings::kCancel)},
                      [this, type, revision](int answer) {
                          if (answer == 0)
                              widenRange(type, revision);
                      }});
}

void ConnectionNotices::widenRange(int type, int revision)
{
    SettingsFile file(SettingsFile::placesOfThisRun());
    const Settings before = Settings::of(RegistryFile::parse(file.content(), file.path()));
    Settings after = before;
    const auto index = static_cast<std::size_t>(type);
    const RevisionBounds wide = revisionBounds()[index].widenedTo(revision);
    after.ranges[index] = {wide.low, wide.high};
    RegistryFileEditor editor(file.content());
    after.enter(editor, before);
    if (const auto saved = file.save(editor.content()); !saved.isDone())
        return m_gate.addNotice(saved.message());
    Q_EMIT commandWanted(kConnectCommand);
}

} // namespace pelorin
