#include "app/ConnectionNotices.h"

#include "app/Commands.h"
#include "app/NoticeStrip.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

namespace pelorin {

ConnectionNotices::ConnectionNotices(QObject* parent, NoticeStrip& strip, SensorLink& link)
    : QObject(parent), m_strip(strip), m_link(link)
{
}

void ConnectionNotices::update()
{
    if (!m_link.hasOpened())
        tellNoPort();
}

void ConnectionNotices::tellNoPort()
{
    m_strip.show({.text = [] { return languageString(strings::kWithoutPortNotice); },
                  .buttons = {{.caption = strings::kSelectPort,
                               .clicked = [this] { Q_EMIT commandWanted(kSelectPortCommand); }}}});
}

} // namespace pelorin
