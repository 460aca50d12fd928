#pragma once

#include "platform/ui/BaseDialog.h"
#include "sensor/RestoreChoice.h"

class QRadioButton;
class QTableWidget;

namespace pelorin {

/// Every parameter of a sensor beside what was saved, and what is to be written of that. Nothing is
/// chosen for the user where the sensor may be another one. Accepted: the choice is to be written.
class ReviewDialog final : public BaseDialog
{
    Q_OBJECT

public:
    enum class Purpose {
        Restore,
        Compare, ///< shows, and saves the comparison; is never accepted
        PutBack, ///< of all that was kept; the factory text, too
        Show     ///< what was saved alone, without a sensor
    };

    struct Review
    {
        Purpose purpose = Purpose::Compare;
        QString source{}; ///< where the saved values are from, for the user
        int ssiType = 0;
        SensorValues sensor{}; ///< every parameter of the type; empty where none is connected
        SensorValues saved{};
    };

    ReviewDialog(QWidget* parent, Review review);

    /// What the user has chosen; refused as long as that is nothing.
    [[nodiscard]] const RestoreChoice& choice() const;

    void translate() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    [[nodiscard]] bool isRestore() const { return m_review.purpose == Purpose::Restore; }
    /// Whether nothing is to be written.
    [[nodiscard]] bool onlyShows() const
    {
        return m_review.purpose == Purpose::Compare || m_review.purpose == Purpose::Show;
    }
    void showColumns();
    void suggest();
    void onChosen();
    void renderRows();
    void renderHeadings();
    void renderTexts();
    [[nodiscard]] QString writtenText(char id) const;
    [[nodiscard]] QString suggestionText() const;
    void saveRows();

    const Review m_review;
    const RestoreChoice m_all;
    const RestoreChoice m_outputSettings;
    const QByteArray m_unlike; ///< what says that it may be another sensor
    QTableWidget* m_table = nullptr;
    QRadioButton* m_allRadio = nullptr;
    QRadioButton* m_outputRadio = nullptr;
};

} // namespace pelorin
