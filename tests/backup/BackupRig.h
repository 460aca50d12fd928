#pragma once

#include "app/Commands.h"
#include "backup/BackupFile.h"
#include "backup/BackupProgressDialog.h"
#include "support/MainWindowRig.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pelorin::test {

using Frames = std::vector<std::string>;
using Mode = BackupProgressDialog::Mode;

inline constexpr std::string_view kBackupParameters = "DALUSPZNMJKO";

inline int countOf(int type)
{
    constexpr std::array kCounts = {8, 9, 12};
    return kCounts[static_cast<std::size_t>(type)];
}

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

inline bool create(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// A backup of a sensor of a type, of values that no simulated sensor starts with.
inline QByteArray backupOf(int type)
{
    BackupValues values;
    for (const char id : kBackupParameters.substr(0, static_cast<std::size_t>(countOf(type))))
        values[id] = QByteArray("0000") + id + QByteArray::number(type);
    values['A'] = "00000010"; // a page reads it after the restore
    return BackupFile::textOf(values);
}

/// Backups and restores by the menu of the real main window.
class BackupRig : public MainWindowRig
{
public:
    explicit BackupRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Chooses a file in the file dialog of a command, and waits until all is over.
    /// @param before what happens while the file dialog is open
    /// @return the texts of the message boxes, in which Yes or OK is chosen; "?" if no dialog came
    [[nodiscard]] QStringList run(Mode mode, const QString& path,
                                  const std::function<void()>& before = {})
    {
        QStringList texts;
        bool asked = false;
        // Two timers, since a question can come while the file dialog is answered.
        QTimer boxes;
        QObject::connect(&boxes, &QTimer::timeout, &boxes, [&texts] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts << box->text();
            auto* yes = box->button(QMessageBox::Yes);
            QTest::mouseClick(yes ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        QTimer files;
        QObject::connect(&files, &QTimer::timeout, &files, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog || asked)
                return;
            asked = true;
            m_fileDialogTitle = dialog->windowTitle();
            if (before)
                before();
            auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        boxes.start(5);
        files.start(5);
        (void)sensor().takeReceivedFrames();
        if (!clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand))
            return {QStringLiteral("greyed")};
        const bool ended = QTest::qWaitFor([&] {
            return (asked || !texts.isEmpty()) && !QApplication::activeModalWidget() &&
                   !window().isBusy();
        });
        return ended ? texts : texts << QStringLiteral("does not end");
    }

    [[nodiscard]] QString fileDialogTitle() const { return m_fileDialogTitle; }

private:
    QString m_fileDialogTitle;
};

} // namespace pelorin::test
