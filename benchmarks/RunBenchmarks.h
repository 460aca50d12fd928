#pragma once

#include "OwnFolders.h"

#include <benchmark/benchmark.h>

namespace pelorin {

/// Runs the benchmarks of a program, as its arguments say.
/// @return the program's exit code
inline int runBenchmarks(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

/// The same, with a Qt application of this class and folders of their own for whatever is measured.
template <class Application>
int runBenchmarks(int argc, char* argv[])
{
    const OwnFolders folders;
    const Application application(argc, argv);
    return runBenchmarks(argc, argv);
}

} // namespace pelorin
