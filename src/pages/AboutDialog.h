#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Shows the program's name, version and icon, and what it was made from: its licence, the commit
/// that the application has as its version, if any, and the toolkit.
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
