#pragma once

#include "link/PositionFrame.h"
#include "platform/core/WindowMessage.h"
#include "sensor/Outcome.h"
#include "sensor/Plan.h"
#include "sensor/PortUse.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>

namespace pelorin {

class SensorLink;

/// The conversation with the sensor: the only one that asks the link for anything. It runs one
/// plan at a time for one owner, one request at a time, and knows what is outstanding, what was
/// written and what was last read.
///
/// Whether something may begin is a fact: start says at once whether the plan has begun. A plan
/// ends at its first failure. Its owner may ask for the next one, or be destroyed, inside anything
/// that it is told. User-interface thread.
class SequenceRunner final : public QObject
{
    Q_OBJECT

public:
    /// What the owner of a plan is told; each may be missing. None is called for an owner that is
    /// gone.
    struct Listener
    {
        std::function<void(const Reply&)> reply{};
        std::function<void(int)> progress{}; ///< how many steps are done
        std::function<void(const Outcome&)> ended{};
    };

    /// What the owner of the position stream is told.
    struct StreamListener
    {
        std::function<void()> stop; ///< ends the stream with plans of its own, then streamEnded
        std::function<void()> lost; ///< the link was lost, and the stream with it
        std::function<void(bool)> position;                 ///< whether requestPosition has got one
        std::function<void(const PositionBatch&)> frames{}; ///< what has come; may be missing
    };

    /// @param link outlives the runner, which gets its replies
    explicit SequenceRunner(SensorLink& link);
    ~SequenceRunner() override;

    [[nodiscard]] SensorLink& link() const { return m_link; }

    /// Whether the sensor is in use: a plan runs that is no stream, or one waits for its begin.
    [[nodiscard]] bool isBusy() const;
    /// Whether windDown was called: nothing else begins any more.
    [[nodiscard]] bool isEnding() const { return m_ending; }
    /// Whether only a Connect may begin next.
    [[nodiscard]] bool isConnectWanted() const { return m_reservedFor != nullptr; }
    /// Whether a plan of this owner runs or waits.
    [[nodiscard]] bool isRunning(const QObject& owner) const;

    /// Begins a plan, after the position stream was ended where one runs.
    /// @return false if it cannot begin now; nobody is told anything then
    [[nodiscard]] bool start(QObject& owner, Plan plan, Listener listener);

    /// Gives up a plan of an owner. One that has not written ends after its outstanding request; a
    /// Connect and a raw exchange are cut short. One that has written sends what is left to write
    /// and its closing command first.
    void abandon(const QObject& owner);

    /// Keeps the runner for the Connect of an owner, until its next plan begins.
    void reserveConnect(QObject& owner) { m_reservedFor = &owner; }
    void cancelConnect() { m_reservedFor = nullptr; }

    /// What was last read of each parameter, forgotten with everything that may have changed the
    /// sensor or put another one in its place. A reply that is no value of its parameter is what
    /// the sensor has only if it was read twice.
    [[nodiscard]] const SensorValues& known() const { return m_known; }
    /// Counts the occasions on which that was forgotten: what was read at one count is no base for
    /// what is written at another.
    [[nodiscard]] int changes() const;

    // The position stream.

    /// Tells that the sensor is about to be changed into one that streams. From here on every other
    /// owner's plan waits until the stream has ended; its own begin at once.
    void beginStream(QObject& owner, StreamListener listener);
    /// Asks for the next position; while one is outstanding that is the one.
    void requestPosition();
    /// The owner of the stream has ended it.
    /// @param restored whether the sensor is as it was before
    void streamEnded(bool restored);
    /// Has the stream ended, if there is one, then calls the function, at once without a stream.
    /// @param then gets whether the sensor is as it was before
    /// @return false if a plan runs or waits; nothing is done then
    [[nodiscard]] bool endStream(QObject& owner, std::function<void(bool)> then);

    // The port.

    /// The link was lost: what runs ends as lost, before the port is opened again.
    void linkLost();
    /// Closes the port and opens another one, or the same again. What is still being done with it
    /// when the next is asked for has failed.
    /// @param done gets whether it is open; else the link tells why
    void openPort(int number, std::function<void(bool)> done);
    void openPort(int number, const QString& device, std::function<void(bool)> done);
    void reopenPort(std::function<void(bool)> done);

    // The end.

    /// Brings what runs to its end as abandon does, ends the stream, and lets nothing else begin.
    /// Once.
    void windDown(std::function<void()> done);
    /// Closes the port, which with supplyOff switches the sensor's supply off before; not before
    /// the sensor has stored what was written to it.
    void closePort(bool supplyOff, std::function<void()> done);

Q_SIGNALS:
    void busyChanged(bool busy);
    /// A port is not given back by its device. It is left alone: nobody can open it until then.
    void portStuck(const QString& name);

protected:
    void customEvent(QEvent* event) override;

private:
    struct Run
    {
        QPointer<QObject> owner;
        Plan plan;
        Listener listener;
        std::size_t at = 0;
        int losses = 0; ///< of the link when it began, as the next
        int cutFrames = 0;
        bool abandoned = false;
        bool wrote = false;
        bool skipped = false; ///< a part of it, since it was abandoned
        QByteArray written{};
        QList<Difference> differences{}; ///< found by Verify steps, as the next
        QByteArray unanswered{};
        bool silent = false;                 ///< the last Verify step had no answer
        std::optional<QByteArray> doubted{}; ///< an answer that is read once more
        quint64 serial = 0;
        QMetaObject::Connection watch{}; ///< for the end of the owner
    };

    struct Stream
    {
        QPointer<QObject> owner;
        StreamListener listener;
        bool stopping = false;
        QMetaObject::Connection watch{}; ///< for the end of the owner
    };

    /// What goes on once the stream has ended.
    struct Waiting
    {
        QPointer<QObject> owner;
        std::function<void(bool)> go;
        std::function<void()> abandoned{}; ///< instead, for a plan
    };

    [[nodiscard]] bool isOfStream(const QObject& owner) const;
    void begin(Run run);
    void giveUp();
    void doStep();
    [[nodiscard]] RequestId request(const Step& step);
    void takeFrames();
    void takeResult(int result);
    [[nodiscard]] bool takeReply(const Step& step);
    [[nodiscard]] bool takeSilence(const Step& step);
    [[nodiscard]] bool readOnceMore(const QByteArray& text);
    void end(Outcome::Kind kind);
    void tell(const std::function<void()>& call);
    void stopStream();
    void settle();
    void noteChange();

    [[nodiscard]] PortUse::Done tellingOf(PortUse::Done done);
    void loseStream();
    void giveUpWorker();

    SensorLink& m_link;
    std::optional<Run> m_run;
    RequestId m_outstanding = 0;
    QTimer m_pause;
    quint64 m_lastSerial = 0;
    int m_depth = 0; ///< calls to owners under way

    std::optional<Stream> m_stream;
    bool m_streamRestored = true; ///< how the last stream has ended
    RequestId m_positionRequest = 0;
    Waiting m_waiting;                      ///< nothing while `go` is empty
    const QObject* m_reservedFor = nullptr; ///< only compared, as the next
    const QObject* m_continuing = nullptr;  ///< whose plan has just ended, and who may go on first

    SensorValues m_known;
    int m_changes = 0;

    PortUse m_port;
    bool m_ending = false;
    std::function<void()> m_whenEnded;
    QTimer m_answerLimit; ///< of an outstanding request while it ends
    bool m_announcedBusy = false;
};

} // namespace pelorin
