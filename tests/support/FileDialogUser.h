#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

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
    {
        // Two timers, since a question can come while the path is entered.
        whenever<QMessageBox>(m_boxTimer, [this, answer](QMessageBox& box) {
            m_boxes << box.text();
            auto* button = box.button(box.button(answer) ? answer : QMessageBox::Ok);
            if (button)
                QTest::mouseClick(button, Qt::LeftButton);
            else
                QTest::keyClick(&box, Qt::Key_Escape); // a question with buttons of its own
            if (answer == QMessageBox::No)
                QMetaObject::invokeMethod(box.parentWidget(), "reject", Qt::QueuedConnection);
        });
        whenever<QFileDialog>(m_fileTimer, [this, path, before](QFileDialog& dialog) {
            if (wasAsked())
                return;
            m_title = dialog.windowTitle();
            if (before)
                before(dialog);
            auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            if (!edit || !dialog.isVisible())
                return; // a dialog of the desktop, or given up
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }

    [[nodiscard]] bool wasAsked() const { return !m_title.isEmpty(); }
    /// The title of the file dialog.
    [[nodiscard]] QString title() const { return m_title; }
    /// The texts of the message boxes.
    [[nodiscard]] QStringList boxes() const { return m_boxes; }

private:
    template <class Window>
    static void whenever(QTimer& timer, const std::function<void(Window&)>& steps)
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [steps] {
            if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget()))
                steps(*window);
        });
        timer.start(5);
    }

    QString m_title;
    QStringList m_boxes;
    QTimer m_boxTimer;
    QTimer m_fileTimer;
};

} // namespace pelorin::test
