// Stands in for libFuzzer where there is none: takes every seed of a folder once.
//   <target> <folder>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char* argv[])
{
    int seeds = 0;
    for (const auto& seed : std::filesystem::directory_iterator(argc == 2 ? argv[1] : "")) {
        std::cout << seed.path() << std::endl; // before a finding ends the program
        std::ifstream file(seed.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                     bytes.size());
        ++seeds;
    }
    return seeds > 0 ? 0 : 1;
}
