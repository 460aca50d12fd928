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

#include <string>
#include <vector>

namespace pelorin::test {

using Frames = std::vector<std::string>;

/// The factory page in the real main window, driven as a user drives it.
class FactoryRig : public MainWindowRig
{
public:
    explicit FactoryRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Connects, shows the page and waits until it has read its values. @return false if not
    [[nodiscard]] bool show()
    {
        return startConnected() &&
               choosePage(pageList().row(
                   pageList()
                       .findItems(QStringLiteral("Factory Parameters"), Qt::MatchExactly)
                       .value(0)));
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
    [[nodiscard]] QStringList values()
    {
        QStringList texts;
        for (int row = 0; row < list().rowCount(); ++row)
            texts << value(row);
        return texts;
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
    void clickApply() { QTest::mouseClick(&applyButton(), Qt::LeftButton); }
    /// Has the button enabled without changing a value.
    void touch()
    {
        clickCell(0, 1);
        clickCell(0, 0);
    }

    /// Clicks Apply, which asks. @return the text of the message, null if there was none
    [[nodiscard]] QString refusalOfApply()
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&text](QMessageBox& box) {
            text = box.text();
            box.accept();
        });
        clickApply();
        return text;
    }
};

} // namespace pelorin::test
