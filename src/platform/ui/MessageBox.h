#pragma once

#include <QMessageBox>

namespace pelorin {

/// Shows a message or question and waits for the answer. The box bears the application's name.
/// The text is shown as it stands, whatever data it holds. Enter means the button that goes on
/// (OK, Yes or Retry); Escape, closing the box and the end of its parent mean the one that does
/// nothing more (Cancel, No or Abort, else the only one).
/// @param enter the button that Enter means instead, if it is one
/// @return the button of the answer
QMessageBox::StandardButton messageBox(QWidget* parent, const QString& text,
                                       QMessageBox::StandardButtons buttons, QMessageBox::Icon icon,
                                       QMessageBox::StandardButton enter = QMessageBox::NoButton);

/// Tells of what went wrong or cannot be done, with OK alone, and waits until that is read.
void warn(QWidget* parent, const QString& text);

/// Asks like messageBox, with buttons that bear captions of our own.
/// @param enter the index of the one that Enter means; with -1 it means none
/// @return the index of the answer, -1 for Escape, closing the box and the end of its parent
int askWithButtons(QWidget* parent, const QString& text, const QStringList& captions,
                   int enter = -1);

/// Shows a message like messageBox, with OK alone, and returns at once. The box blocks its parent's
/// windows until it is closed, and is deleted then.
/// @param caption of the button, if that is not OK
QMessageBox* showMessageBox(QWidget* parent, const QString& text, QMessageBox::Icon icon,
                            const QString& caption = {});

} // namespace pelorin
