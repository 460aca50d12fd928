#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Shows the program's name, version and icon.
class AboutDialog : public BaseDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
};

} // namespace pelorin
