#include "sensor/Plan.h"

namespace pelorin {

Plan readPlan(std::string_view ids, bool confirmed)
{
    Plan plan;
    for (const char id : ids) {
        if (!plan.empty())
            plan.back().pauseAfter = kPauseBetweenRequests;
        plan.push_back({.kind = Step::Kind::Read, .id = id, .confirmed = confirmed});
    }
    return plan;
}

Plan writePlan(std::string_view order, const SensorValues& values, char closing,
               std::chrono::milliseconds storePause)
{
    Plan plan;
    for (const char id : order) {
        if (!plan.empty())
            plan.back().pauseAfter = kPauseBetweenRequests;
        plan.push_back({.kind = Step::Kind::Write, .id = id, .value = values.at(id)});
    }
    plan.push_back({.kind = Step::Kind::Close, .id = closing, .pauseAfter = storePause});
    return plan;
}

Plan connectPlan()
{
    return {{.kind = Step::Kind::Connect}};
}

Plan commandPlan(char id, std::chrono::milliseconds pauseAfter)
{
    return {{.kind = Step::Kind::Write, .id = id, .pauseAfter = pauseAfter}};
}

Plan rawPlan(const QByteArray& bytes)
{
    return {{.kind = Step::Kind::Raw, .value = bytes}};
}

} // namespace pelorin
