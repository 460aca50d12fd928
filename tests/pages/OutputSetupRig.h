#pragma once

#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/PasswordDialog.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>

namespace pelorin::test {

/// The controls of the output setup page.
enum OutputControl : int {
    kDataBits = 1004,
    kFormat = 1006,
    kDirection = 1008,
    kMode = 1010,
    kResolution = 1012,
    kSkipCount = 1014,
    kOneMagnet = 1017,
    kTwoMagnets = 1018,
    kUnlock = 1019,
    kNoExtension = 1021,
    kParity = 1022,
    kTemperature = 1023,
    kNormal = 1025,
    kDifferential = 1026,
    kVelocity = 1027,
    kApply = 1028
};

/// The main window on a simulated sensor, its output setup page used as a user uses it.
class OutputSetupRig : public MainWindowRig
{
public:
    using MainWindowRig::MainWindowRig;

    /// Connects and shows the page, which reads its values.
    [[nodiscard]] bool open() { return startConnected() && showPage(); }

    [[nodiscard]] bool showPage()
    {
        const auto found = pageList().findItems(QStringLiteral("Output Setup"), Qt::MatchExactly);
        if (found.size() != 1 || !choosePage(pageList().row(found.first())))
            return false;
        (void)sensor().takeReceivedFrames();
        return true;
    }

    template <class Control>
    [[nodiscard]] Control* control(int id)
    {
        return page<OutputSetupPage>().getControl<Control>(id);
    }

    [[nodiscard]] QString listText(int id) { return control<QComboBox>(id)->currentText(); }
    [[nodiscard]] QString skipCountText() { return control<QLineEdit>(kSkipCount)->text(); }
    [[nodiscard]] bool isEnabled(int id) { return control<QWidget>(id)->isEnabled(); }
    [[nodiscard]] bool isChecked(int id) { return control<QAbstractButton>(id)->isChecked(); }

    /// The buttons that are checked.
    [[nodiscard]] QList<int> checkedButtons()
    {
        QList<int> checked;
        for (int id = kOneMagnet; id <= kVelocity; ++id)
            if (auto* button = control<QAbstractButton>(id); button && button->isChecked())
                checked << id;
        return checked;
    }

    /// Goes through a list by the keyboard until an item is selected.
    void select(int id, const QString& item)
    {
        auto* list = control<QComboBox>(id);
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 1; step < list->count() && list->currentText() != item; ++step)
            QTest::keyClick(list, Qt::Key_Down);
    }
    void select(int id, const char* item) { select(id, QString::fromUtf8(item)); }

    void click(int id)
    {
        QWidget* button = control<QWidget>(id);
        const QPoint place(12, button->height() / 2); // on a radio button's text or circle
        QTest::mouseClick(button, Qt::LeftButton, {}, place);
    }

    /// Types a new error skip count, where it is unlocked.
    void enterSkipCount(const char* text)
    {
        auto* edit = control<QLineEdit>(kSkipCount);
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }

    /// Unlocks the error skip count. @return whether the password was asked for
    [[nodiscard]] bool unlock(const char* password)
    {
        const ModalAnswer<PasswordDialog> answer([password](PasswordDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1064), QString::fromLatin1(password));
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        click(kUnlock);
        return answer.wasShown();
    }

    /// Refreshes the page and waits until that has ended.
    [[nodiscard]] bool refresh()
    {
        (void)sensor().takeReceivedFrames();
        clickRefresh();
        return QTest::qWaitFor([this] { return skipCountText().isEmpty(); }) && waitIdle();
    }

    /// Clicks Apply and waits until it has ended.
    [[nodiscard]] bool apply()
    {
        click(kApply);
        return waitIdle();
    }

    /// Clicks Apply. @return the text of the message that it was refused with, or of the question
    [[nodiscard]] QString applyAnswered(int button = QMessageBox::Ok)
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&text, button](QMessageBox& box) {
            text = box.text();
            QTest::mouseClick(box.button(QMessageBox::StandardButton(button)), Qt::LeftButton);
        });
        click(kApply);
        return waitIdle() ? text : QStringLiteral("busy");
    }

    /// Clicks Apply and enters the SE distance in the offset dialog.
    /// @return whether the dialog was shown
    [[nodiscard]] bool applyWithOffset(const char* seDistance, const char* deadZone = nullptr)
    {
        const ModalAnswer<CalculateOffsetDialog> answer([&](CalculateOffsetDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1031), QString::fromLatin1(seDistance));
            if (deadZone)
                QTest::keyClicks(dialog.getControl<QLineEdit>(1037), QString::fromLatin1(deadZone));
            QTest::mouseClick(dialog.getControl<QWidget>(1), Qt::LeftButton);
        });
        click(kApply);
        return waitIdle() && answer.wasShown();
    }

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames()
    {
        QStringList frames;
        for (const std::string& frame : sensor().takeReceivedFrames())
            frames << QString::fromStdString(frame);
        return frames.join(QLatin1Char(' '));
    }

    [[nodiscard]] QString stored(char id) { return QString::fromStdString(sensor().parameter(id)); }

    /// What the sensor holds of some parameters.
    [[nodiscard]] QString holds(std::string_view ids)
    {
        QStringList texts;
        for (const char id : ids)
            texts << QStringLiteral("%1=%2").arg(QString(QLatin1Char(id)), stored(id));
        return texts.join(QLatin1Char(' '));
    }
};

} // namespace pelorin::test
