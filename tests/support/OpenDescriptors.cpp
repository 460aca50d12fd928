#include "support/OpenDescriptors.h"

#include <fcntl.h>

#include <charconv>
#include <filesystem>
#include <string>

namespace pelorin {

std::vector<int> openDescriptors()
{
    std::vector<int> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const std::string name = entry.path().filename();
        std::from_chars(name.data(), name.data() + name.size(), found.emplace_back());
    }
    // The one that the folder was read with has been closed.
    std::erase_if(found, [](int fd) { return fcntl(fd, F_GETFD) == -1; });
    return found;
}

int countOpenDescriptors()
{
    return static_cast<int>(openDescriptors().size());
}

} // namespace pelorin
