#pragma once

#include "app/Commands.h"
#include "display/DisplayUnitDialog.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

namespace pelorin::test {

/// @param comPort the unit's port; COM96 leads to it, COM7 to the sensor
inline QByteArray settingsWith(const char* enabled, const char* comPort = "COM96")
{
    return QByteArray("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n") + enabled +
           "\"QDL3Comport\"=\"" + comPort +
           "\"\r\n[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
           "\"simulator:display\"=\"COM96\"\r\n\"simulator:sensor\"=\"COM7\"\r\n";
}

constexpr auto kEnabled = "\"EnableQDL3\"=dword:00000001\r\n";

inline QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// The main window, connected, and the display unit in reach of it.
struct DisplayUnitBench : MainWindowRig
{
    explicit DisplayUnitBench(const QByteArray& text = settingsWith(kEnabled))
        : MainWindowRig({.type = 2}, text)
    {
        displayUnit().setReading("12.345");
    }

    /// The dialog, null while there is none.
    [[nodiscard]] DisplayUnitDialog* dialog()
    {
        const auto dialogs = window().findChildren<DisplayUnitDialog*>();
        for (auto* dialog : dialogs)
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }

    [[nodiscard]] QWidget* control(const char* name)
    {
        return dialog()->findChild<QWidget*>(QLatin1String(name));
    }
    [[nodiscard]] QString text(const char* label)
    {
        return qobject_cast<QLabel*>(control(label))->text();
    }
    [[nodiscard]] QString shown() { return text("displayBox"); }
    [[nodiscard]] QString chosen(const char* name)
    {
        return qobject_cast<QComboBox*>(control(name))->currentText();
    }

    /// Chooses the menu item and waits until the dialog shows a reading.
    [[nodiscard]] bool openDialog(const char* reading = "12.345")
    {
        return startConnected() && clickCommand(kDisplayUnitCommand) &&
               QTest::qWaitFor([&] { return dialog() && shown() == latin(reading); });
    }
    /// Closes the dialog and waits until it has gone.
    [[nodiscard]] bool closeDialog()
    {
        dialog()->close();
        return QTest::qWaitFor([&] { return !dialog(); });
    }

    void clickApply() { QTest::mouseClick(control("applyButton"), Qt::LeftButton); }

    /// Chooses an item of a combo box by keys.
    void choose(const char* name, int item)
    {
        QWidget* combo = control(name);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int step = 0; step < item; ++step)
            QTest::keyClick(combo, Qt::Key_Down);
    }

    /// Waits until the unit has received a command, and forgets what it has received.
    [[nodiscard]] bool waitForFrame(const std::string& command)
    {
        return QTest::qWaitFor([&] {
            const auto frames = displayUnit().takeReceivedFrames();
            return std::find(frames.begin(), frames.end(), "$1" + command) != frames.end();
        });
    }

    /// Waits until the unit receives a reading command from now on.
    [[nodiscard]] bool waitForReading()
    {
        (void)displayUnit().takeReceivedFrames();
        return waitForFrame("RD");
    }

    /// Whether nobody has the unit's port.
    [[nodiscard]] bool isPortFree()
    {
        const int nobody = 0;
        const int error = displayUnit().claim(&nobody, SimulatedDevice::Clock::now());
        displayUnit().release(&nobody);
        return error != EBUSY;
    }

    [[nodiscard]] QMessageBox* messageBox()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    /// Waits for a message box and answers it with OK. @return its text
    [[nodiscard]] QString answerBox()
    {
        if (!QTest::qWaitFor([&] { return messageBox() != nullptr; }))
            return latin("no box");
        const QString text = messageBox()->text();
        QTest::keyClick(messageBox(), Qt::Key_Return);
        return QTest::qWaitFor([&] { return !messageBox(); }) ? text : latin("box stays");
    }
};

} // namespace pelorin::test
