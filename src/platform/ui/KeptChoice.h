#pragma once

#include "platform/core/WholeFile.h"

#include <QString>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace pelorin {

/// Shows what the user has chosen in an earlier run, and keeps in the profile what is chosen from
/// now on; what the program itself chooses is not kept.
/// @param name of the value in the profile
void keepChoice(QAbstractButton& box, const QString& name);
/// The same for a list; its entries are told by the numbers that they hold.
void keepChoice(QComboBox& list, const QString& name);

/// Tells the user that the profile could not be written: once in a run, for nothing is lost but a
/// convenience. Returns at once.
void tellUnkept(QWidget* parent, const WholeFile::Outcome& outcome);

} // namespace pelorin
