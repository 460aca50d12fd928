#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Shows what a support file will hold, from which the user may delete. Accepted: it is to be
/// saved.
class SupportFileDialog final : public BaseDialog
{
    Q_OBJECT

public:
    SupportFileDialog(QWidget* parent, QString text);

    /// What the user has left of it.
    [[nodiscard]] QString text() const;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    const QString m_text; ///< as it is shown at first
};

} // namespace pelorin
