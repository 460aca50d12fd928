#pragma once

#include "link/PositionFrame.h"
#include "platform/core/AppendedFile.h"

#include <QList>
#include <QString>

#include <chrono>
#include <optional>

namespace pelorin {

struct RecordingHead;

/// Records the positions that come from a moment on, as long as the disk has room.
class PositionRecorder
{
public:
    /// @param head its start stands for the moment
    [[nodiscard]] WholeFile::Outcome begin(const QString& path, const RecordingHead& head,
                                           std::chrono::steady_clock::time_point moment);
    [[nodiscard]] bool isRecording() const { return m_file.isOpen(); }
    /// How long the recording is, or was, in seconds; nothing before the first.
    [[nodiscard]] std::optional<double> seconds() const { return m_seconds; }
    /// A failure has ended the recording; what was recorded before is in the file.
    [[nodiscard]] WholeFile::Outcome add(const QList<PositionSample>& samples);
    [[nodiscard]] WholeFile::Outcome end();

private:
    AppendedFile m_file;
    std::chrono::steady_clock::time_point m_begin;
    int m_decimals = 0;
    std::optional<double> m_seconds;
};

} // namespace pelorin
