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
        const bool shown = found.size() == 1 && choosePage(pageList().row(found.first()));
        (void)sensor().takeReceivedFrames();
        return shown;
    }

    template <class Control>
    [[nodiscard]] Control* control(int id)
    {
        return page<OutputSetupPage>().getControl<Control>(id);
    }

    [[nodiscard]] QString listText(int id) { return control<QComboBox>(id)->currentText(); }
    [[nodiscard]] QString skipCountText() { return control<QLineEdit>(kSkipCount)->text(); }
    [[nodiscard]] bool isEnabled(int id) { return control<QWidget>(id)->isEnabled(); }

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
    void select(int id, const char* item)
    {
        auto* list = control<QComboBox>(id);
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 1; step < list->count() && listText(id) != QLatin1String(item); ++step)
            QTest::keyClick(list, Qt::Key_Down);
    }

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

    /// Enters a password for the error skip count. @return whether it was asked for
    [[nodiscard]] bool unlock(const char* password, Qt::Key end = Qt::Key_Return)
    {
        const ModalAnswer<PasswordDialog> answer([&](PasswordDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1064), QString::fromLatin1(password));
            QTest::keyClick(&dialog, end);
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
    /// @return the text of the message that it was refused with, or of the question
    [[nodiscard]] QString apply(int button = QMessageBox::Ok)
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
            text = box.text();
            QTest::mouseClick(box.button(QMessageBox::StandardButton(button)), Qt::LeftButton);
        });
        click(kApply);
        return waitIdle() ? text : QStringLiteral("busy");
    }

    /// The same with the offset dialog, in which the SE distance and, where it can be edited, the
    /// dead zone are entered.
    [[nodiscard]] QString applyWithOffset(const char* seDistance, int button = QMessageBox::Ok)
    {
        const ModalAnswer<CalculateOffsetDialog> answer([&](CalculateOffsetDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1031), QString::fromLatin1(seDistance));
            if (dialog.getControl<QLineEdit>(1037)->isEnabled())
                QTest::keyClicks(dialog.getControl<QLineEdit>(1037), QStringLiteral("63.5"));
            QTest::mouseClick(dialog.getControl<QWidget>(1), Qt::LeftButton);
        });
        const QString text = apply(button);
        return answer.wasShown() ? text : QStringLiteral("not asked for the offset");
    }

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames()
    {
        QStringList frames;
        for (const std::string& frame : sensor().takeReceivedFrames())
            frames << QString::fromStdString(frame);
        return frames.join(QLatin1Char(' '));
    }

    /// What the sensor holds of some parameters, as "D=020018 A=00000010".
    [[nodiscard]] QString holds(std::string_view ids)
    {
        QStringList texts;
        for (const char id : ids)
            texts << QLatin1Char(id) + QStringLiteral("=") +
                         QString::fromStdString(sensor().parameter(id));
        return texts.join(QLatin1Char(' '));
    }
};

} // namespace pelorin::test
