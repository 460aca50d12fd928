#pragma once

#include "pages/FieldMark.h"
#include "pages/SensorPage.h"
#include "sensor/SafeWriter.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace pelorin {

struct OffsetChoice;

/// The base of the pages that write to the sensor what the user has entered. What was not read from
/// this sensor since the page was shown, and since the sensor was last changed, is no base for what
/// is written. Afterwards the page shows what was read back, not what was entered.
///
/// What the user has set to something else than was read is an entry: it is marked, and counted,
/// until it is applied, discarded or undone. User-interface thread only.
class WritingPage : public SensorPage
{
    Q_OBJECT

public:
    [[nodiscard]] int entryCount() const final;
    void discardEntries() final;

    void translate() override;

protected:
    /// Something that the user can set on the page.
    struct Field
    {
        char id;         ///< the parameter that carries it
        QString caption; ///< in the current language, as the next
        QString read;    ///< what the page showed when it was read; empty for nothing
        bool changed;    ///< the user has set it to something else
    };

    /// @param formName the page's form, without its ending
    /// @param applyControl number of the button that has the entries written
    /// @param writer outlives the page
    /// @param by what the journal calls the page
    WritingPage(QString formName, int applyControl, SafeWriter& writer, WriteRequest::By by);

    /// All that the user can set, always in the same order.
    [[nodiscard]] virtual std::vector<Field> fields() const = 0;
    /// What the fields would show of a sensor with these values, in the order of fields.
    [[nodiscard]] virtual QStringList fieldTexts(const SensorValues& values) const = 0;
    virtual void mark(int field, const FieldMark& mark) = 0;
    /// What the page shows counts as read from here on.
    virtual void acceptEntries() = 0;
    /// Shows again what was read.
    virtual void restoreRead() = 0;
    /// To be called whenever an entry may have come or gone.
    void updateEntries();

    /// Reads all that the page shows; until that is done nothing may be written.
    void read(QByteArrayView ids);
    /// Writes values one after the other, and has the sensor take them into effect; where nothing
    /// was changed only if the user wants that. Where it cannot begin the user is told.
    void write(QByteArrayView order, const SensorValues& values);

    /// What the user is told if nothing may be written; null if it may.
    [[nodiscard]] QString hindrance() const;
    /// Whether the sensor is still as the page has read it.
    [[nodiscard]] bool isCurrent() const;
    /// After a dialog: whether the sensor that was read is still connected. The user is told if
    /// not.
    [[nodiscard]] bool isLinkKept();
    /// Whether the page has read it at all, since it was shown and since an Apply failed.
    [[nodiscard]] bool isRead() const { return m_baseline.has_value(); }
    [[nodiscard]] bool isBusy() const;

    void enableApply(bool enabled);
    /// Asks what is written for an offset that was not entered anew. @return nothing: not at all
    [[nodiscard]] std::optional<QByteArray> askForOffset(const OffsetChoice& choice);
    /// All has been written, and nothing of it was read back.
    virtual void showWritten() {}

    void planEnded(const Outcome& outcome) final;

private:
    [[nodiscard]] bool confirmWithoutChange();
    [[nodiscard]] QStringList differencesOf(const std::vector<Field>& fields) const;
    void onPhase(SafeWriter::Phase phase);
    void onWritten(const WriteResult& result);
    void showReadBack(const WriteResult& result);

    SafeWriter& m_writer;
    const WriteRequest::By m_by;
    const int m_applyControl;
    QByteArray m_ids;              ///< what the page reads
    SensorValues m_seen;           ///< what it has last read
    std::optional<int> m_baseline; ///< the runner's changes when the page was as the sensor is
    bool m_writing = false;        ///< what is shown is being written: no entry any more
    std::optional<WriteResult> m_differing; ///< of the last Apply, where the sensor differs
};

} // namespace pelorin
