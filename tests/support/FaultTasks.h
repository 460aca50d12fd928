#pragma once

#include "support/FaultyLine.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <string_view>
#include <vector>

namespace pelorin::test {

/// Something that is done with the sensor. A rig has the faulty line as line, what did not hold as
/// wrong, and recover(), which connects without a fault and judges.
template <class Rig>
struct FaultTask
{
    const char* name;
    std::function<bool(Rig&)> before; ///< without a fault; @return whether the rig is ready
    std::function<void(Rig&)> act;
    bool writes = false;
};

/// Every fault at several places of a task that makes these calls without one.
inline std::vector<Fault> faultsAmong(FaultyLine::Made made, bool writes)
{
    struct Errors
    {
        QByteArray call;
        std::vector<int> once;
        std::vector<int> lasting;
    };
    static const std::vector<Errors> kErrors{
        {"open", {ENOENT, EACCES, EMFILE, EINTR}, {ENXIO}},
        {"eventfd", {EMFILE}, {ENFILE}},
        {"tcgetattr", {EIO, EINTR}, {ENOTTY}},
        {"flock", {EWOULDBLOCK, ENOLCK}, {EWOULDBLOCK}},
        {"ioctl", {EIO, EINTR}, {ENOTTY}},
        {"TIOCMBIS", {EIO, EINTR}, {ENOTTY}},
        {"tcsetattr", {EIO, EINTR}, {EINVAL}},
        {"TCIFLUSH", {EIO, EINTR}, {EINVAL}},
        {"TCOFLUSH", {EIO}, {EINVAL}},
        {"TIOCOUTQ", {EIO, EINTR}, {ENOTTY}},
        {"tcdrain", {EIO, EINTR}, {ENOTTY}},
        {"read", {EIO, EAGAIN, EINTR}, {EAGAIN, ENODEV}},
        {"write", {EIO, EAGAIN, EINTR, ENOSPC}, {EAGAIN, ENODEV}},
        {"poll", {EINTR, ENOMEM}, {EIO}},
    };
    std::vector<Fault> faults;
    for (const auto& [call, once, lasting] : kErrors) {
        const int calls = made[call];
        for (const int at : std::set{0, 1, calls / 3, 2 * calls / 3, calls - 1}) {
            if (at < 0 || at >= calls)
                continue;
            for (const int error : once)
                faults.push_back({call, error, at});
            for (const int error : lasting)
                faults.push_back({call, error, at, true});
        }
    }
    faults.push_back({"write", 0});
    if (writes) {
        for (const char id : std::string_view("DAUSNKC"))
            faults.push_back({.unheard = QByteArray(1, id) + 'N'});
    }
    return faults;
}

/// Tries faults in a fixed mixture of all, for as long as PELORIN_FAULT_SECONDS says, and prints
/// how many there were.
/// @param seconds without that
/// @return what did not hold at the first fault at which anything did not
template <class Rig>
[[nodiscard]] QString tryFaults(const std::vector<FaultTask<Rig>>& tasks, int seconds)
{
    FaultyLine::Made made;
    const auto run = [&made](const FaultTask<Rig>& task, const Fault& fault) {
        Rig rig;
        rig.claim(task.before(rig), "not ready");
        rig.line->arm(fault);
        task.act(rig);
        made = rig.line->disarm();
        rig.recover();
        return rig.wrong.isEmpty() ? QString()
                                   : QStringLiteral("%1, %2: %3")
                                         .arg(QLatin1String(task.name), fault.inWords(),
                                              rig.wrong.join(QStringLiteral("; ")));
    };
    bool isNumber = false;
    const int given = qEnvironmentVariableIntValue("PELORIN_FAULT_SECONDS", &isNumber);
    const QDeadlineTimer limit(std::chrono::seconds(isNumber ? given : seconds));
    QString wrong;
    std::vector<std::pair<const FaultTask<Rig>*, Fault>> cases;
    for (const auto& task : tasks) {
        wrong += run(task, {});
        for (const Fault& fault : faultsAmong(made, task.writes))
            cases.emplace_back(&task, fault);
    }
    std::shuffle(cases.begin(), cases.end(), std::minstd_rand(1));
    std::size_t runs = 0;
    for (; runs < cases.size() && wrong.isEmpty() && !limit.hasExpired(); ++runs)
        wrong = run(*cases[runs].first, cases[runs].second);
    qInfo("%zu of %zu faults", runs, cases.size());
    return runs > 0 || !wrong.isEmpty() ? wrong : QStringLiteral("nothing was tried");
}

} // namespace pelorin::test
