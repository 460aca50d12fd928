#pragma once

#include "pages/WritingPage.h"
#include "sensor/OutputSettings.h"

#include <optional>

namespace pelorin {

class OutputSetupControls;

/// Shows how the sensor formats its SSI output and lets the user change it. Apply checks the
/// entries and makes all values that it will write before it writes the first.
class OutputSetupPage final : public WritingPage
{
    Q_OBJECT

public:
    /// @param writer outlives the page
    explicit OutputSetupPage(SafeWriter& writer);

    void getCurrentValues() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void showReadValue(const Reply& reply) override;
    void showWritten() override;
    [[nodiscard]] std::vector<Field> fields() const override;
    [[nodiscard]] QStringList fieldTexts(const SensorValues& values) const override;
    void mark(int field, const FieldMark& mark) override;
    void acceptEntries() override;
    void restoreRead() override;

private:
    void unlock();
    void apply();

    [[nodiscard]] bool validateForApply();
    [[nodiscard]] bool valuesAreUsable();
    [[nodiscard]] bool entriesAreAllowed();
    [[nodiscard]] bool calculateOffset();
    [[nodiscard]] bool chooseOffset();
    [[nodiscard]] bool confirmChanges();
    [[nodiscard]] bool composeWriteValues();
    [[nodiscard]] bool confirm(int question);
    [[nodiscard]] bool refuse(int message, QWidget* focus = nullptr);
    [[nodiscard]] bool refuse(const QString& text, QWidget* focus = nullptr);
    [[nodiscard]] bool hasExtension() const;
    void renderAsRead();

    OutputSetupControls* m_controls = nullptr;
    bool m_unlocked = false;
    OutputSettings m_read;
    SensorValues m_texts;               ///< the same as it was read
    std::optional<Reply> m_misread;     ///< the first that was no value of its parameter
    OutputSettings m_chosen;            ///< what Apply writes
    SensorValues m_writes;              ///< the same as it is written
    std::optional<QByteArray> m_offset; ///< as the user wants it written; nothing: as it follows
};

} // namespace pelorin
