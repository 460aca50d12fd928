#include "pages/FormatRestore.h"

#include "link/SensorLink.h"
#include "pages/ClosingCommand.h"
#include "platform/core/Pacing.h"

#include <algorithm>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kWriteTime = 250ms;
constexpr auto kStoreTime = 2500ms;

} // namespace

void FormatRestore::keep(const SavedFormat& format)
{
    if (format.own != format.streaming)
        m_kept.push_back(format);
}

RequestId FormatRestore::begin(SensorLink& link)
{
    const bool concerned =
        std::any_of(m_kept.begin(), m_kept.end(), [&link](const SavedFormat& format) {
            return format.port == link.portNumber() && format.version == link.versionText();
        });
    if (!concerned || !link.isIdentified())
        return 0;
    m_step = Step::ReadFormat;
    m_lossesAtStart = link.lossCount();
    return link.requestRead('D');
}

RequestId FormatRestore::next(SensorLink& link, int result)
{
    const Step done = std::exchange(m_step, Step::Idle);
    if (result != 1 || link.lossCount() != m_lossesAtStart)
        return 0; // what was not written back stays kept

    if (done == Step::ReadFormat) {
        const auto found =
            std::find_if(m_kept.begin(), m_kept.end(), [&link](const SavedFormat& format) {
                return format.port == link.portNumber() && format.version == link.versionText() &&
                       format.streaming == link.lastReply();
            });
        if (found == m_kept.end())
            return 0;
        m_current = *found;
        m_step = Step::WriteFormat;
        return link.requestWrite('D', m_current.own);
    }
    if (done == Step::WriteFormat) {
        Pacing::sleep(kWriteTime);
        m_step = Step::Close;
        return requestClosingCommand(link);
    }
    Pacing::sleep(kStoreTime);
    m_kept.erase(std::remove(m_kept.begin(), m_kept.end(), m_current), m_kept.end());
    return 0;
}

} // namespace pelorin
