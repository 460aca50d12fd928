#pragma once

#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QMessageBox>
#include <QTableWidget>

#include <optional>

namespace pelorin::test {

/// Gives an answer, or where there is none like it the one that goes on: Yes, Write It Multiplied,
/// Discard.
inline void agree(QMessageBox& box, int answer)
{
    QAbstractButton* button = box.button(QMessageBox::StandardButton(answer));
    if (!button)
        button = box.button(QMessageBox::Yes);
    if (!button)
        button = box.findChild<QAbstractButton*>(QStringLiteral("answer1"));
    if (!button)
        button = box.button(QMessageBox::Ok);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Keeps the first words of a message; a question that is only agreed to is no message.
inline void note(const QMessageBox& box, int answer, QStringList& words)
{
    if (box.button(QMessageBox::StandardButton(answer)) || box.button(QMessageBox::Ok))
        words = box.text().split(u' ').mid(0, 6);
}

/// A page that is shown in the real main window and has read its values from a simulated sensor,
/// used as a user uses it.
template <class Page, int kRow, int kApplyButton = 0>
struct PageRig : MainWindowRig
{
    /// @param holding what the sensor holds that is not usual for its type, as "D020519 K000001"
    explicit PageRig(int type = 2, const char* holding = "", const QByteArray& settings = {})
        : MainWindowRig({.type = type}, settings)
    {
        hold(holding);
        if (!startConnected() || !choosePage(kRow))
            qFatal("The page cannot be shown");
    }

    void hold(const char* parameters)
    {
        for (const QString& text : QString::fromLatin1(parameters).split(u' ', Qt::SkipEmptyParts))
            sensor().setParameter(text[0].toLatin1(), text.mid(1).toStdString());
    }

    template <class Control = QWidget>
    [[nodiscard]] Control* control(int id)
    {
        return page<Page>().template getControl<Control>(id);
    }

    void clickApply() { QTest::mouseClick(control(kApplyButton), Qt::LeftButton); }
    [[nodiscard]] bool canApply() { return control(kApplyButton)->isEnabled(); }

    /// Clicks Refresh and waits until the page has read its values. @return the frames
    QString refresh()
    {
        const ModalAnswer<QMessageBox> discard(
            [](QMessageBox& box) { agree(box, QMessageBox::Ok); });
        (void)frames();
        clickRefresh();
        return waitIdle() ? frames() : QStringLiteral("busy");
    }

    /// Clicks a button and waits until what it does has ended and a message or question that it
    /// shows has been answered.
    /// @return the frames that it sent, then the first words of the last message
    QString press(int id, int answer = QMessageBox::Ok)
    {
        (void)frames();
        QStringList words;
        std::optional<ModalAnswer<QMessageBox>> next; // a question may be followed by a message
        const ModalAnswer<QMessageBox> reader([&](QMessageBox& box) {
            note(box, answer, words);
            inDialog();
            next.emplace([&words, answer](QMessageBox& message) {
                note(message, answer, words);
                agree(message, answer);
            });
            agree(box, answer);
        });
        QTest::mouseClick(control(id), Qt::LeftButton);
        const bool idle = waitIdle() && waitFor([] { return !QApplication::activeModalWidget(); });
        return idle ? (frames() + u' ' + words.join(u' ')).trimmed() : QStringLiteral("busy");
    }
    QString apply(int answer = QMessageBox::Ok) { return press(kApplyButton, answer); }

    /// The values that the page lists, with bars in between.
    [[nodiscard]] QString values()
    {
        const auto* list = page<Page>().template findChild<QTableWidget*>();
        QStringList texts;
        for (int row = 0; row < list->rowCount(); ++row)
            texts << list->item(row, 1)->text();
        return texts.join(u'|');
    }

    std::function<void()> inDialog = [] {}; ///< what happens before a dialog is answered
};

} // namespace pelorin::test
