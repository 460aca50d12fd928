#pragma once

#include "pages/ParameterTable.h"
#include "pages/SensorPage.h"
#include "platform/ui/CellEditor.h"
#include "sensor/FactoryParameters.h"

class QPushButton;
class QTableWidget;

namespace pelorin {

struct SensorType;

/// Lists the sensor's factory parameters, lets the user edit their values in place, and writes
/// all of them back in one sequence. Nothing is written unless everything was read from this
/// sensor and every value fits its parameter.
class FactoryParamsPage final : public SensorPage
{
    Q_OBJECT

public:
    FactoryParamsPage();

    void getCurrentValues() override;
    [[nodiscard]] bool isWriting() const override;
    void sensorChanged() override;

Q_SIGNALS:
    /// Writing has ended half way. The text tells the user what had been written.
    void writingFailed(const QString& text);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void onLinkReply(int result) override;

private:
    enum class Phase { Idle, Reading, Writing, Closing };

    [[nodiscard]] char readParameterId() const;
    [[nodiscard]] char writeParameterId() const;
    [[nodiscard]] bool advance();
    void continueReading();
    [[nodiscard]] bool continueWriting();
    void finish();
    [[nodiscard]] QString fail();

    void startEditing(int rowCount);
    void showReadValue();
    void apply();
    [[nodiscard]] bool validateForApply();
    [[nodiscard]] QString hindrance() const;
    void requestNextWrite();
    [[nodiscard]] FactoryParameters::Texts entries() const;

    QTableWidget* m_list = nullptr;
    ParameterTable m_table;
    QPushButton* m_applyButton = nullptr;
    CellEditor m_editor{this};

    FactoryParameters m_parameters;     ///< what has been read since the page was last shown
    FactoryParameters::Texts m_entries; ///< what is applied, as it was checked
    bool m_readComplete = false;
    int m_rowCount = 7;                 ///< rows of the connected type
    const SensorType* m_type = nullptr; ///< of the sensor that was read
    std::size_t m_step = 0;
    Phase m_phase = Phase::Idle;
};

} // namespace pelorin
