#pragma once

#include "pages/FactoryParamsPage.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace pelorin::test {

/// The factory page in the real main window, driven as a user drives it.
class FactoryRig : public MainWindowRig
{
public:
    explicit FactoryRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Connects, shows the page and waits until it has read its values. @return false if not
    [[nodiscard]] bool show()
    {
        constexpr int kPage = 4;
        const bool shown = startConnected() && choosePage(kPage);
        (void)frames();
        return shown;
    }
    /// Reads the values again and waits for the end.
    [[nodiscard]] bool refresh()
    {
        clickRefresh();
        return busyBeginsAndEnds();
    }
    [[nodiscard]] bool busyBeginsAndEnds()
    {
        return QTest::qWaitFor([this] { return window().isBusy(); }) && waitIdle();
    }

    [[nodiscard]] QTableWidget& list()
    {
        return *page<FactoryParamsPage>().getControl<QTableWidget>(1036);
    }
    [[nodiscard]] QPushButton& applyButton()
    {
        return *page<FactoryParamsPage>().getControl<QPushButton>(1037);
    }
    /// The edit over the open cell; null if none is open.
    [[nodiscard]] QLineEdit* editor()
    {
        for (int row = 0; row < list().rowCount(); ++row)
            if (auto* edit = list().indexWidget(list().model()->index(row, 1)))
                return qobject_cast<QLineEdit*>(edit);
        return nullptr;
    }
    [[nodiscard]] QString value(int row) { return list().item(row, 1)->text(); }
    /// All values, with bars in between.
    [[nodiscard]] QString values()
    {
        QStringList texts;
        for (int row = 0; row < list().rowCount(); ++row)
            texts << value(row);
        return texts.join(QLatin1Char('|'));
    }

    void clickCell(int row, int column)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row, column)).center());
    }
    /// Types a text into a cell and clicks elsewhere.
    void edit(int row, const char* text)
    {
        clickCell(row, 1);
        QTest::keyClick(editor(), Qt::Key_Delete);
        QTest::keyClicks(editor(), QString::fromUtf8(text));
        clickCell(0, 0);
    }
    /// Has the button enabled without changing a value.
    void touch()
    {
        clickCell(0, 1);
        clickCell(0, 0);
    }
    void clickApply() { QTest::mouseClick(&applyButton(), Qt::LeftButton); }
    /// Clicks Apply and waits until it has ended. @return whether it has written
    [[nodiscard]] bool apply()
    {
        clickApply();
        return busyBeginsAndEnds();
    }
    /// Clicks Apply, which tells why it does not write.
    /// @return the message, or what went wrong
    [[nodiscard]] QString refusalOfApply()
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&text](QMessageBox& box) {
            text = box.text();
            box.accept();
        });
        (void)frames();
        clickApply();
        QCoreApplication::processEvents();
        const bool idle = !window().isBusy() && frames().isEmpty();
        return idle ? text : QStringLiteral("written");
    }
};

} // namespace pelorin::test
