#pragma once

#include "pages/ParameterTable.h"
#include "pages/WritingPage.h"
#include "platform/ui/CellEditor.h"
#include "sensor/FactoryParameters.h"

class QTableWidget;

namespace pelorin {

class FormatRestore;

/// Lists the sensor's factory parameters, lets the user edit their values in place, and writes
/// all of them back in one sequence. Nothing is written unless every value fits its parameter.
class FactoryParamsPage final : public WritingPage
{
    Q_OBJECT

public:
    /// @param formats knows whether the sensor carries a format that is not its own; outlives the
    ///        page
    /// @param writer outlives the page, too
    FactoryParamsPage(const FormatRestore& formats, SafeWriter& writer);

    void getCurrentValues() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void showReadValue(const Reply& reply) override;
    [[nodiscard]] std::vector<Field> fields() const override;
    [[nodiscard]] QStringList fieldTexts(const SensorValues& values) const override;
    void mark(int field, const FieldMark& mark) override;
    void acceptEntries() override;
    void restoreRead() override;

private:
    void startEditing(int rowCount);
    void apply();
    [[nodiscard]] bool validateForApply(const FactoryParameters::Texts& texts);
    [[nodiscard]] FactoryParameters::Texts entries() const;

    const FormatRestore& m_formats;
    QTableWidget* m_list = nullptr;
    ParameterTable m_table;
    CellEditor m_editor{this};

    FactoryParameters m_parameters; ///< what has been read since the page was last shown
    int m_rowCount = 7;             ///< rows of the connected type
};

} // namespace pelorin
