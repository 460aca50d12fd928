#pragma once

#include "platform/ui/BaseDialog.h"

namespace pelorin {

/// Asks the user for a password, which is not shown while it is typed.
class PasswordDialog : public BaseDialog
{
    Q_OBJECT

public:
    /// @param promptId the string that says what the password is for
    PasswordDialog(QWidget* parent, int promptId);

    /// What was typed; empty unless the dialog has ended with OK.
    [[nodiscard]] QString getPassword() const { return m_password; }

    void accept() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    const int m_promptId;
    QString m_password;
};

} // namespace pelorin
