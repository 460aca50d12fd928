#pragma once

#include "platform/core/Strings.h"
#include "sensor/Journal.h"
#include "sensor/Plan.h"
#include "sensor/WriteResult.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <string_view>

namespace pelorin {

class SequenceRunner;

/// Writes to the sensor so that nobody is told more than is known. On this line a write is never
/// acknowledged, and a sensor may answer values that it has not stored. So the sensor is read
/// before the first write: it must still be as the user has seen it, and its state is stored in the
/// journal. Afterwards it is restarted, and all that was written is read back and compared.
///
/// Switched off, it writes and does nothing else, and the result says that nothing was checked.
/// One request at a time. User-interface thread.
class SafeWriter final : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        bool enabled = true;
        bool manualPower = false; ///< the user switches the sensor's supply
    };

    /// Where a request is: the numbers of the texts that say so.
    enum class Phase {
        Checking = strings::kCheckingSensor,
        Writing = strings::kWriting,
        Restarting = strings::kRestarting,
        Comparing = strings::kComparing
    };

    /// What the asker is told; each may be missing. None is called for an asker that is gone.
    struct Listener
    {
        std::function<void(Phase)> phase{};
        std::function<void(int, int)> progress{}; ///< steps done, and of how many in this phase
        std::function<void(const Reply&)> comparing{}; ///< what was read back
        std::function<void(const WriteResult&)> ended{};
    };

    /// A question to the user: whether to go on without an entry in the journal. To be answered
    /// once, now or later.
    using Question = std::function<void(const QString& reason, std::function<void(bool)> answer)>;

    /// All outlive this.
    SafeWriter(SequenceRunner& runner, const Journal& journal, Settings settings);
    ~SafeWriter() override;

    [[nodiscard]] const Settings& settings() const { return m_settings; }
    /// While nothing is under way.
    void setSettings(const Settings& settings) { m_settings = settings; }
    [[nodiscard]] SequenceRunner& runner() const { return m_runner; }
    [[nodiscard]] const Journal& journal() const { return m_journal; }

    /// Who asks the user; without one nothing is written where the journal cannot be.
    void setQuestion(Question question) { m_question = std::move(question); }

    /// What a request does with the sensor from its first write on.
    [[nodiscard]] Plan planOf(const WriteRequest& request) const;

    /// Begins to write.
    /// @return false if it cannot begin now; nobody is told anything then
    [[nodiscard]] bool write(QObject& asker, WriteRequest request, Listener listener);

    /// Whether a request of anybody, or of this asker, is under way.
    [[nodiscard]] bool isRunning() const { return m_job != nullptr; }

    /// Why the connected sensor is not that of an entry, as far as version, type and device tell:
    /// AnotherSensor or AnotherPort; None if nothing speaks against it.
    [[nodiscard]] WriteResult::Reason unlikeness(const JournalEntry& state) const;
    [[nodiscard]] bool isConnected(const JournalEntry& state) const
    {
        return unlikeness(state) == WriteResult::Reason::None;
    }
    /// Whether it is identified as that sensor, also by the factory text where it is known of both:
    /// sensors of one firmware differ in it.
    [[nodiscard]] bool isSensorOf(const JournalEntry& entry) const;

    /// The sensor has been connected anew: compares with it what was written when the link was
    /// lost. If another one is identified that stays unchecked for good.
    /// @param untouched nothing was written to the sensor since its restart
    /// @param done called in the end, at once where there is nothing to compare
    void compareAfterConnect(bool untouched, std::function<void()> done);

Q_SIGNALS:
    void began();
    /// A request has ended, in whatever way, or has been compared at last.
    void ended(const pelorin::WriteResult& result);

private:
    struct Job;

    [[nodiscard]] Plan writingPlan(const WriteRequest& request) const;
    void check();
    void takeState(const Outcome& outcome);
    [[nodiscard]] QByteArray changedSinceSeen() const;
    void keepState();
    void ask(const QString& reason, void (SafeWriter::*goOn)());
    void writeAll();
    void onWritten(const Outcome& outcome);
    void restart();
    void compare();
    [[nodiscard]] QByteArray proof() const;
    void readBack(const QByteArray& ids);
    void onCompared(const Outcome& outcome);
    void judge(const Outcome& outcome);
    void stopUnchecked(WriteResult::Reason reason);
    void refuse(const QString& problem);
    void finish();
    void tell(Phase phase);
    void run(Plan plan, std::function<void(const Outcome&)> done,
             std::function<void(const Reply&)> reply = {});

    SequenceRunner& m_runner;
    const Journal& m_journal;
    Settings m_settings;
    Question m_question;
    std::unique_ptr<Job> m_job;       ///< null while nothing is under way
    std::unique_ptr<Job> m_unchecked; ///< written when the link was lost; compared after a Connect
    std::function<void()> m_compared;
};

} // namespace pelorin
