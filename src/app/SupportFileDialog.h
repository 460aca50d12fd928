#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Shows what a support file will hold, from which the user may delete. Accepted: it is saved; as
/// long as it is not, what the user has deleted stays so.
class SupportFileDialog final : public BaseDialog
{
    Q_OBJECT

public:
    SupportFileDialog(QWidget* parent, QString text);

    void accept() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    const QString m_text; ///< as it is shown at first
};

} // namespace pelorin
