#pragma once

#include "pages/SensorPage.h"
#include "sensor/OutputSettings.h"

#include <optional>
#include <utility>
#include <vector>

namespace pelorin {

class OutputSetupControls;

/// Shows how the sensor formats its SSI output and lets the user change it. Apply checks the
/// entries, makes all values that it will write, then writes them one after the other and has the
/// sensor take them into effect. What was not read from this sensor since the page was shown and
/// since its link was last lost is no base for what is written.
class OutputSetupPage final : public SensorPage
{
    Q_OBJECT

public:
    OutputSetupPage();

    void getCurrentValues() override;
    [[nodiscard]] bool isWriting() const override;
    void sensorChanged() override;
    void linkLost() override;

Q_SIGNALS:
    /// Apply has failed on the way. The text tells the user what the sensor has got by then.
    void applyFailed(const QString& text);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void onLinkReply(int result) override;

private:
    enum class Phase { Idle, Reading, Writing, Closing };

    void readNext();
    void writeNext();
    void writeStep();
    void finish();
    void fail();

    void enableApply(bool enabled);
    void onUnlock();
    void onApply();

    [[nodiscard]] bool validateForApply();
    [[nodiscard]] bool valuesAreCurrent();
    [[nodiscard]] bool entriesAreAllowed();
    [[nodiscard]] bool askForOffset();
    [[nodiscard]] bool confirmChanges();
    [[nodiscard]] bool composeWriteValues();
    [[nodiscard]] bool confirm(int question);
    [[nodiscard]] bool isLinkKept();
    [[nodiscard]] bool refuse(int message, QWidget* focus = nullptr);
    [[nodiscard]] bool refuse(const QString& text, QWidget* focus = nullptr);

    [[nodiscard]] bool hasExtension() const;
    [[nodiscard]] char stepParameter() const;
    [[nodiscard]] QString failureText(char id) const;

    OutputSetupControls* m_controls = nullptr;
    Phase m_phase = Phase::Idle;
    int m_step = 0;
    bool m_unlocked = false;
    bool m_valuesLoaded = false; ///< m_read is what the sensor has
    OutputSettings m_read;
    std::optional<std::pair<char, QByteArray>> m_misread; ///< the first reply that was no value
    OutputSettings m_chosen;                              ///< what Apply writes
    std::vector<std::pair<char, QByteArray>> m_writes;    ///< made before the first one is written
};

} // namespace pelorin
