#pragma once

#include "sensor/KeptFormats.h"
#include "sensor/Plan.h"
#include "sensor/SequenceRunner.h"

#include <QByteArray>
#include <QObject>

#include <functional>
#include <optional>

namespace pelorin {

/// The six digits of a data format that a sensor has answered; nothing if the answer is none.
[[nodiscard]] std::optional<QByteArray> formatDigits(const QByteArray& reply);

/// The data format with which a sensor streams its position, and is as before otherwise.
/// @param digits six hexadecimal digits
[[nodiscard]] QByteArray streamingFormat(const QByteArray& digits);

/// Writes the own data format back to a sensor that was left with the streaming one. Its format
/// goes only to a sensor on the same device that answers with the same version and still carries
/// the streaming format. What was written back is read; that the sensor has stored it, only the
/// next restart shows. User-interface thread.
class FormatRestore final : public QObject
{
public:
    enum class Result {
        NothingKept,
        Restored, ///< written back and read, or the sensor has it already
        NotRead,  ///< its format could not be read: nobody knows which one it has
        NotRestored
    };

    /// Both outlive this.
    FormatRestore(SequenceRunner& runner, KeptFormats& formats);

    /// Writes an own format back to a sensor of a type, and reads it.
    [[nodiscard]] static Plan planOf(const QByteArray& own, int ssiType);

    /// Looks after the sensor that has just been restarted, connected and identified.
    /// @param owner of the plans; done is called at once where nothing is kept for the sensor
    /// @param own a format that was kept for it in this run: whatever became of its file meanwhile
    /// @param stepBegun gets the number of a text on what is done from here on
    void begin(QObject& owner, std::function<void(Result)> done,
               const std::optional<KeptFormat>& own = std::nullopt,
               std::function<void(int)> stepBegun = {});

    /// The own format of the connected sensor, which has answered this one: another one if that is
    /// a streaming format of ours.
    [[nodiscard]] QByteArray ownFormat(const QByteArray& digits) const;

    /// Whether a data format that the connected sensor has answered is a streaming one that still
    /// has to be replaced by its own.
    [[nodiscard]] bool isStreamingFormat(const QByteArray& reply) const;

    /// Whether something is kept for the connected sensor that it was not yet seen to have again.
    [[nodiscard]] bool isRestoreOpen() const;

    /// What is kept for the connected sensor.
    [[nodiscard]] QList<KeptFormat> keptForSensor() const;

private:
    void readFormat();
    void decide(const Outcome& outcome);
    void writeBack(const KeptFormat& format);
    void check(const KeptFormat& format, const Outcome& outcome);
    void noteRestored(const KeptFormat& format, bool stored);
    void finish(Result result);
    [[nodiscard]] QList<KeptFormat> candidates() const;
    [[nodiscard]] static bool mayTryAgain(const Outcome& outcome, int& attempts);
    void run(Plan plan, std::function<void(const Outcome&)> ended);
    void tellStep(int text);

    SequenceRunner& m_runner;
    KeptFormats& m_formats;
    QPointer<QObject> m_owner;
    std::function<void(Result)> m_done;
    std::function<void(int)> m_stepBegun;
    std::optional<KeptFormat> m_own;
    int m_reads = 0;
    int m_writes = 0;
    std::optional<QByteArray> m_answered; ///< digits that the sensor has last answered
};

} // namespace pelorin
