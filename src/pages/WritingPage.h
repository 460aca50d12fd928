#pragma once

#include "pages/SensorPage.h"
#include "sensor/SensorValues.h"

#include <QString>

#include <optional>
#include <string_view>

namespace pelorin {

/// The base of the pages that write to the sensor what the user has entered. What was not read from
/// this sensor since the page was shown, and since the sensor was last changed, is no base for what
/// is written. User-interface thread only.
class WritingPage : public SensorPage
{
    Q_OBJECT

protected:
    /// @param formName the page's form, without its ending
    /// @param applyControl number of the button that has the entries written
    WritingPage(QString formName, int applyControl);

    /// Reads all that the page shows; until that is done nothing may be written.
    void read(std::string_view ids);
    /// Writes values one after the other, and has the sensor take them into effect. Where that
    /// cannot begin the user is told.
    void write(std::string_view order, const SensorValues& values);

    /// What the user is told if nothing may be written; null if it may.
    [[nodiscard]] QString hindrance() const;
    /// Whether the sensor is still as the page has read it.
    [[nodiscard]] bool isCurrent() const;
    /// Whether the page has read it at all, since it was shown and since an Apply failed.
    [[nodiscard]] bool isRead() const { return m_baseline.has_value(); }

    void enableApply(bool enabled);
    /// All has been written.
    virtual void showWritten() {}

    void planEnded(const Outcome& outcome) final;

private:
    const int m_applyControl;
    std::optional<int> m_baseline; ///< the runner's changes when the page was as the sensor is
    bool m_applying = false;
};

} // namespace pelorin
