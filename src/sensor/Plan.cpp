#include "sensor/Plan.h"

#include <algorithm>

namespace pelorin {

namespace {

constexpr std::chrono::milliseconds kSwitchOnTime{3000};

} // namespace

Plan readPlan(QByteArrayView ids, bool confirmed)
{
    Plan plan;
    for (const char id : ids) {
        if (!plan.empty())
            plan.back().pauseAfter = kPauseBetweenRequests;
        plan.push_back({.kind = Step::Kind::Read, .id = id, .confirmed = confirmed});
    }
    return plan;
}

Plan writePlan(QByteArrayView order, const SensorValues& values, char closing,
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

Plan verifyPlan(QByteArrayView order, const SensorValues& values)
{
    Plan plan = tolerantReadPlan(order);
    for (Step& step : plan)
        step.value = values.at(step.id);
    return plan;
}

Plan tolerantReadPlan(QByteArrayView ids)
{
    Plan plan = readPlan(ids);
    for (Step& step : plan)
        step.kind = Step::Kind::Verify;
    return plan;
}

Plan joined(Plan first, const Plan& second)
{
    if (!first.empty() && !second.empty())
        first.back().pauseAfter = std::max(first.back().pauseAfter, kPauseBetweenRequests);
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Plan connectPlan()
{
    return {{.kind = Step::Kind::Connect}};
}

Plan connectByHandPlan(bool switched)
{
    Plan plan = readPlan("V");
    if (switched) {
        plan.insert(plan.begin(), {.kind = Step::Kind::KeepAliveOff});
        plan.insert(plan.begin(), {.kind = Step::Kind::Pause, .pauseAfter = kSwitchOnTime});
    }
    return plan;
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
