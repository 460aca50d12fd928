#include "platform/ui/MessageBox.h"

#include <QGuiApplication>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <initializer_list>

namespace pelorin {

namespace {

using Button = QMessageBox::StandardButton;

/// The first of the candidates that is among the buttons.
Button firstOf(std::initializer_list<Button> candidates, QMessageBox::StandardButtons buttons)
{
    const auto* found =
        std::ranges::find_if(candidates, [buttons](Button each) { return buttons.testFlag(each); });
    return found == candidates.end() ? QMessageBox::NoButton : *found;
}

QMessageBox* makeBox(QWidget* parent, const QString& text, QMessageBox::StandardButtons buttons,
                     QMessageBox::Icon icon)
{
    auto* box = new QMessageBox(parent);
    box->setWindowTitle(QGuiApplication::applicationDisplayName());
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setIcon(icon);
    box->setStandardButtons(buttons);
    return box;
}

} // namespace

QMessageBox::StandardButton messageBox(QWidget* parent, const QString& text,
                                       QMessageBox::StandardButtons buttons, QMessageBox::Icon icon,
                                       QMessageBox::StandardButton enter)
{
    const Button escape = firstOf(
        {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Abort, QMessageBox::Ok}, buttons);

    // On the heap, because a parent that ends meanwhile takes its box with it.
    const QPointer<QMessageBox> box = makeBox(parent, text, buttons, icon);
    box->setDefaultButton(
        firstOf({enter, QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Retry}, buttons));
    box->setEscapeButton(escape);
    const int answer = box->exec();
    if (!box)
        return escape;
    delete box;
    return static_cast<Button>(answer);
}

void warn(QWidget* parent, const QString& text)
{
    (void)messageBox(parent, text, QMessageBox::Ok, QMessageBox::Warning);
}

int askWithButtons(QWidget* parent, const QString& text, const QStringList& captions, int enter)
{
    const QPointer<QMessageBox> box =
        makeBox(parent, text, QMessageBox::NoButton, QMessageBox::Question);
    QList<QAbstractButton*> buttons;
    for (const QString& caption : captions) {
        QPushButton* button = box->addButton(caption, QMessageBox::ActionRole);
        button->setAutoDefault(false);
        button->setObjectName(QStringLiteral("answer%1").arg(buttons.size()));
        buttons << button;
        if (buttons.size() == enter + 1)
            box->setDefaultButton(button);
    }
    // Closing the box means none of them, which takes a button that nobody sees.
    QPushButton* escape = box->addButton(QMessageBox::Cancel);
    box->setEscapeButton(escape);
    escape->hide();
    (void)box->exec();
    if (!box)
        return -1;
    const auto answer = static_cast<int>(buttons.indexOf(box->clickedButton()));
    delete box;
    return answer;
}

QMessageBox* showMessageBox(QWidget* parent, const QString& text, QMessageBox::Icon icon,
                            const QString& caption)
{
    QMessageBox* box = makeBox(parent, text, QMessageBox::Ok, icon);
    if (!caption.isEmpty())
        box->button(QMessageBox::Ok)->setText(caption);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return box;
}

} // namespace pelorin
