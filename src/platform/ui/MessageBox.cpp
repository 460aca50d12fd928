#include "platform/ui/MessageBox.h"

#include <QGuiApplication>
#include <QPointer>

#include <initializer_list>

namespace pelorin {

namespace {

using Button = QMessageBox::StandardButton;

/// The first of the candidates that is among the buttons.
Button firstOf(std::initializer_list<Button> candidates, QMessageBox::StandardButtons buttons)
{
    for (const Button candidate : candidates) {
        if (buttons.testFlag(candidate))
            return candidate;
    }
    return QMessageBox::NoButton;
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
                                       QMessageBox::StandardButtons buttons, QMessageBox::Icon icon)
{
    const Button escape = firstOf(
        {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Abort, QMessageBox::Ok}, buttons);

    // On the heap, because a parent that ends meanwhile takes its box with it.
    const QPointer<QMessageBox> box = makeBox(parent, text, buttons, icon);
    box->setDefaultButton(
        firstOf({QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Retry}, buttons));
    box->setEscapeButton(escape);
    const int answer = box->exec();
    if (!box)
        return escape;
    delete box;
    return static_cast<Button>(answer);
}

QMessageBox* showMessageBox(QWidget* parent, const QString& text, QMessageBox::Icon icon)
{
    QMessageBox* box = makeBox(parent, text, QMessageBox::Ok, icon);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return box;
}

} // namespace pelorin
