#pragma once

#include "support/ModalAnswer.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace pelorin::test {

/// Enters a path in the next file dialog, as long as this object lives, and answers all message
/// boxes: with Yes or OK, or with No. A file dialog whose path was declined is given up.
class FileDialogUser
{
public:
    /// @param before what happens while the file dialog is open; may reject it
    explicit FileDialogUser(const QString& path,
                            const std::function<void(QFileDialog&)>& before = {},
                            QMessageBox::StandardButton answer = QMessageBox::Yes)
        : m_boxUser(
              [this, answer](QMessageBox& box) {
                  m_boxes << box.text();
                  if (auto* button = box.button(box.button(answer) ? answer : QMessageBox::Ok)) {
                      QTest::mouseClick(button, Qt::LeftButton);
                  } else {
                      QTest::keyClick(&box, Qt::Key_Escape); // a question with buttons of its own
                  }
                  if (answer == QMessageBox::No && qobject_cast<QDialog*>(box.parentWidget()))
                      QMetaObject::invokeMethod(box.parentWidget(), "reject", Qt::QueuedConnection);
              },
              false),
          m_fileUser([path, before](QFileDialog& dialog) {
              if (before)
                  before(dialog);
              auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
              if (!edit || !dialog.isVisible())
                  return; // a dialog of the desktop, or given up
              edit->setText(path);
              QTest::keyClick(edit, Qt::Key_Return);
          })
    {
    }

    [[nodiscard]] bool wasAsked() const { return m_fileUser.wasShown(); }
    /// The texts of the message boxes.
    [[nodiscard]] QStringList boxes() const { return m_boxes; }

private:
    QStringList m_boxes;
    ModalAnswer<QMessageBox> m_boxUser;
    ModalAnswer<QFileDialog> m_fileUser;
};

} // namespace pelorin::test
