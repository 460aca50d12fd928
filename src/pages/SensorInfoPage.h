#pragma once

#include "pages/ParameterTable.h"
#include "pages/SensorPage.h"
#include "sensor/SensorValues.h"

namespace pelorin {

struct SensorType;

/// The first page: reads the sensor's parameters one after the other and shows them decoded.
/// Changes nothing on the sensor.
class SensorInfoPage final : public SensorPage
{
    Q_OBJECT

public:
    SensorInfoPage();

    void getCurrentValues() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;
    void showReadValue(const Reply& reply) override;
    void planEnded(const Outcome& outcome) override;

private:
    void renderValue(char id);
    void renderValues();

    ParameterTable m_table;
    SensorValues m_replies;             ///< what has been read since the page was last shown
    const SensorType* m_type = nullptr; ///< of the sensor that is read
    bool m_allRead = false;
};

} // namespace pelorin
