// A data race made on purpose. The test passes when ThreadSanitizer reports it: with the same
// suppressions as every other test, so that they can never grow to hide a race of our own.

#include <cstdio>
#include <thread>

int main()
{
    int shared = 0;
    std::thread worker([&shared] { ++shared; });
    ++shared;
    worker.join();
    std::printf("%d\n", shared);
    return 0;
}
