#include "platform/ui/KeptChoice.h"

#include "platform/core/Profile.h"
#include "platform/ui/MessageBox.h"

#include <QAbstractButton>
#include <QComboBox>

#include <utility>

namespace pelorin {

namespace {

void keep(const QWidget& control, const QString& name, int value)
{
    Profile profile;
    tellUnkept(control.window(), profile.write({{name, value}}));
}

} // namespace

void keepChoice(QAbstractButton& box, const QString& name)
{
    box.setChecked(Profile().readInt(name, box.isChecked() ? 1 : 0) == 1);
    QObject::connect(&box, &QAbstractButton::clicked, &box,
                     [&box, name](bool checked) { keep(box, name, checked ? 1 : 0); });
}

void keepChoice(QComboBox& list, const QString& name)
{
    const int kept = list.findData(Profile().readInt(name, list.currentData().toInt()));
    if (kept >= 0)
        list.setCurrentIndex(kept);
    QObject::connect(&list, &QComboBox::activated, &list,
                     [&list, name] { keep(list, name, list.currentData().toInt()); });
}

void tellUnkept(QWidget* parent, const WholeFile::Outcome& outcome)
{
    static bool told = false;
    if (!outcome.isDone() && !std::exchange(told, true))
        (void)showMessageBox(parent, outcome.message(), QMessageBox::Warning);
}

} // namespace pelorin
