#include "Fuzz.h"

#include "link/StreamFollower.h"

#include <cmath>

using namespace pelorin;

/// However the bytes come, the same frames are found in them, and no more is kept than two frames.
void take(const QByteArray& bytes)
{
    using Time = StreamFollower::TimePoint;
    const PositionScale scale{bytes.isEmpty() ? 0 : static_cast<unsigned char>(bytes[0]), 0.005};
    StreamFollower whole(scale, std::chrono::microseconds(260), Time());
    StreamFollower single = whole;
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    whole.take(text, Time());
    for (const char& byte : text) {
        single.take({&byte, 1}, Time());
        fuzz::require(single.remainder().size() < 19);
    }
    fuzz::require(whole.newestFrame() == single.newestFrame());
    fuzz::require(whole.remainder() == single.remainder());
    const auto batch = whole.takeBatch();
    for (const PositionSample& sample : batch.samples)
        fuzz::require(std::isfinite(sample.millimetres));
    fuzz::require(batch == single.takeBatch());
    fuzz::require(batch.samples.size() * 9 + batch.malformed <= bytes.size());
}
