#pragma once

#include "platform/core/PosixCalls.h"

#include <functional>
#include <string>
#include <vector>

namespace pelorin {

/// Stands between a port and the system: takes note of its calls and lets a test make any of them
/// fail. A call goes by its name, "tcgetattr", and an ioctl by its request, "TIOCMBIS"; the clock
/// is none. One thread; must outlive the table that it gives out.
class FaultyCalls
{
public:
    /// Asked before each call; anything but 0 is the error code with which it then fails. A
    /// descriptor is closed all the same, as the system does it.
    std::function<int(const std::string& name)> before;

    /// Asked for the size of each write to the device; it may be lowered.
    std::function<std::size_t(std::size_t size)> sizeOfWrite;

    /// Asked for the answer of TIOCOUTQ, if set.
    std::function<int()> queued;

    /// The calls so far, in order, those that failed too.
    std::vector<std::string> made;

    /// How often a call of this name was made.
    [[nodiscard]] int count(const std::string& name) const;

    [[nodiscard]] PosixCalls table();

private:
    template <class Result, class... Arguments>
    std::function<Result(Arguments...)> watched(const char* name,
                                                std::function<Result(Arguments...)> call);
    [[nodiscard]] bool fails(const std::string& name);

    const PosixCalls m_real = PosixCalls::real();
    int m_device = -1; ///< the descriptor opened last
};

} // namespace pelorin
