#pragma once

#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/WaitFor.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

namespace pelorin::test {

/// A page in the real main window on a simulated sensor, used as a user uses it.
template <class Page, int kRow, int kApplyButton>
class PageRig : public MainWindowRig
{
public:
    using MainWindowRig::MainWindowRig;

    /// Connects and shows the page, which reads its values. @return false if it does not
    [[nodiscard]] bool open() { return startConnected() && showPage(); }

    [[nodiscard]] bool showPage()
    {
        const bool shown = choosePage(kRow);
        (void)frames();
        return shown;
    }

    template <class Control = QWidget>
    [[nodiscard]] Control* control(int id)
    {
        return page<Page>().template getControl<Control>(id);
    }

    [[nodiscard]] bool isEnabled(int id) { return control(id)->isEnabled(); }
    [[nodiscard]] bool canApply() { return isEnabled(kApplyButton); }

    void click(int id)
    {
        QWidget* button = control(id);
        const QPoint place(12, button->height() / 2); // on a radio button's text or circle
        QTest::mouseClick(button, Qt::LeftButton, {}, place);
    }
    void clickApply() { click(kApplyButton); }

    /// Clicks Refresh and waits until the page has read its values.
    [[nodiscard]] bool refresh()
    {
        (void)frames();
        const QSignalSpy busy(&runner(), &SequenceRunner::busyChanged);
        clickRefresh();
        return waitFor([&busy] { return !busy.isEmpty(); }) && waitIdle();
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
        clickApply();
        return waitIdle() ? text : QStringLiteral("busy");
    }

    /// Applies with a link that is lost when a frame is sent, and back at once.
    /// @return what the user is told, once the sensor has been connected again
    [[nodiscard]] QString lossAt(const char* frame)
    {
        sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, frame);
        QString text;
        const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
            // The connect waits for the answer.
            text = window().currentPage() == kRow ? box.text() : QStringLiteral("too late");
            box.accept();
        });
        clickApply();
        const bool connected =
            waitFor([&] { return answer.wasShown() && window().currentPage() == 0; });
        return connected && waitIdle() ? text : QStringLiteral("not connected again");
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
