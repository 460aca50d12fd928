#pragma once

#include "pages/SensorPage.h"

class QTabWidget;

namespace pelorin {

class TempCompDataPage;

/// The page for temperature compensation: a tab control with the compensation tables. It asks
/// nothing of the sensor.
class TempCompPage final : public SensorPage
{
    Q_OBJECT

public:
    TempCompPage();

    /// Whether the tables hold what is in no file.
    [[nodiscard]] bool hasEntries() const;

    void translate() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    QTabWidget* m_tabs = nullptr;
    TempCompDataPage* m_tables = nullptr;
};

} // namespace pelorin
