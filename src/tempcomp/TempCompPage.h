#pragma once

#include "pages/SensorPage.h"

class QTabWidget;

namespace pelorin {

/// The page for temperature compensation: a tab control with the compensation tables. It asks
/// nothing of the sensor.
class TempCompPage final : public SensorPage
{
    Q_OBJECT

public:
    TempCompPage();

    void translate() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    QTabWidget* m_tabs = nullptr;
};

} // namespace pelorin
