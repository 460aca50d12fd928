#pragma once

#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "tempcomp/TempCompDataPage.h"
#include "tempcomp/TempCompPage.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace pelorin::test {

inline const QByteArray kSettingsKey =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";
inline const QByteArray kMarkerLine = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~\r\n";
inline const QByteArray kZeroLine = "0000,00000000\r\n";

constexpr int kLookupList = 1058;
constexpr int kWriteButton = 1060;
constexpr int kReadButton = 1061;
constexpr int kArrayList = 1063;

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

inline bool createFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Enters a path as a user does and accepts it.
inline void enterPath(QFileDialog& dialog, const QString& path)
{
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    edit->setText(path);
    QTest::keyClick(edit, Qt::Key_Return);
}

/// The main window with the compensation page shown.
class TempCompRig : public MainWindowRig
{
public:
    /// @param setting the line of the settings file that enables the page
    explicit TempCompRig(const QByteArray& setting = "\"EnableTempComp\"=dword:00000001\r\n")
        : MainWindowRig({.type = 2}, kSettingsKey + setting)
    {
    }

    /// @return false if the page does not come up
    [[nodiscard]] bool startOnPage()
    {
        return startConnected() && QTest::qWaitForWindowActive(&window()) && chooseTempComp();
    }

    /// Chooses the last page.
    [[nodiscard]] bool chooseTempComp() { return choosePage(pageList().count() - 1); }

    [[nodiscard]] TempCompDataPage& dataPage() { return page<TempCompDataPage>(); }
    [[nodiscard]] QTableWidget& list(int id) { return *dataPage().getControl<QTableWidget>(id); }

    /// Point and value of a row of the lookup list.
    [[nodiscard]] QStringList texts(int row)
    {
        return {list(kLookupList).item(row, 1)->text(), list(kLookupList).item(row, 2)->text()};
    }

    /// The open editor of a list; null if none is open.
    [[nodiscard]] QLineEdit* openEdit(int id)
    {
        const auto edits = list(id).viewport()->findChildren<QLineEdit*>();
        for (QLineEdit* edit : edits)
            if (edit->isVisible())
                return edit;
        return nullptr;
    }

    void click(int id, int row, int column)
    {
        QTableWidget& table = list(id);
        table.scrollToItem(table.item(row, column));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(table.item(row, column)).center());
    }

    /// Clicks a cell and types; the editor stays open.
    void type(int id, int row, int column, const QString& text)
    {
        click(id, row, column);
        QTest::keyClicks(openEdit(id), text);
    }

    void clickButton(int id)
    {
        QTest::mouseClick(dataPage().getControl<QPushButton>(id), Qt::LeftButton);
    }

    /// Clicks a button and answers its file dialog. @return false if none came
    [[nodiscard]] bool chooseFile(int button, const QString& path)
    {
        const ModalAnswer<QFileDialog> answer(
            [&path](QFileDialog& dialog) { enterPath(dialog, path); });
        clickButton(button);
        return answer.wasShown();
    }
};

} // namespace pelorin::test
