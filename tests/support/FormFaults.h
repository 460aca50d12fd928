#pragma once

#include "platform/core/LanguageStrings.h"
#include "platform/ui/BaseDialog.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QStringList>

namespace pelorin::test {

/// A control as its form has it.
struct FormControl
{
    QString name;
    int id = -1;
    QString caption; ///< text, title or window title
};

/// The controls of a form in the resources; the first is the dialog itself.
inline QList<FormControl> controlsOfForm(const QString& form)
{
    static const QRegularExpression name(QStringLiteral("name=\"([^\"]+)\""));
    static const QRegularExpression id(
        QStringLiteral("name=\"controlId\"[^>]*>\\s*<number>(\\d+)"));
    static const QRegularExpression caption(QStringLiteral(
        "name=\"(?:text|title|plainText|windowTitle)\"[^>]*>\\s*<string[^>]*>([^<]*)"));
    QList<FormControl> controls;
    QFile file(QStringLiteral(":/pelorin/forms/%1.ui").arg(form));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto widgets = QString::fromUtf8(file.readAll()).split(QStringLiteral("<widget ")).mid(1);
    for (const QString& widget : widgets) {
        // Up to its layout or list, whose items have texts of their own.
        const QString own = widget.section(QStringLiteral("<item"), 0, 0);
        const auto idMatch = id.match(own);
        controls.append({name.match(own).captured(1),
                         idMatch.hasMatch() ? idMatch.captured(1).toInt() : -1,
                         caption.match(own).captured(1)});
    }
    return controls;
}

inline QString captionOf(const QWidget& control)
{
    for (const char* property : {"text", "title", "plainText"}) {
        if (control.property(property).isValid())
            return control.property(property).toString();
    }
    return {};
}

/// A caption as a control gives it back: plain text edits turn fixed blanks into plain ones.
inline QString asShown(QString text)
{
    return text.replace(QChar::Nbsp, QLatin1Char(' '));
}

/// Whether assistive technology can name a control that the user fills or reads.
inline bool isNamed(QWidget& control)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&control);
    const auto relations = interface->relations(QAccessible::Label);
    if (qobject_cast<QComboBox*>(&control)) // its accessible name is its value
        return !relations.isEmpty();
    return !relations.isEmpty() || !control.accessibleName().isEmpty();
}

/// What is wrong with a dialog that has been made: captions that stay untranslated, numbers
/// without a control, controls that the loader has dropped, controls without a name for those
/// who cannot see them.
inline QStringList formFaults(const BaseDialog& dialog)
{
    const QList<FormControl> controls = controlsOfForm(dialog.objectName());
    if (controls.isEmpty())
        return {QStringLiteral("no form ") + dialog.objectName()};

    QStringList faults;
    const auto require = [&faults](bool holds, const QString& name, const char* fault) {
        if (!holds)
            faults << name + QStringLiteral(": ") + QLatin1String(fault);
    };

    const QString title = dialog.windowTitle();
    require(!dialog.isWindow() || (!title.isEmpty() && !title.startsWith(QLatin1Char('*'))),
            dialog.objectName(), "title not translated");
    QList<int> ids;
    for (const FormControl& control : controls.mid(1)) {
        require(dialog.findChild<QWidget*>(control.name), control.name, "dropped by the loader");
        require(!control.caption.startsWith(QLatin1Char('*')) ||
                    dialog.translationMap().contains(control.id),
                control.name, "caption not in the translation map");
        require(control.id < 0 || !ids.contains(control.id), control.name, "number used twice");
        ids << control.id;
    }
    for (auto it = dialog.translationMap().cbegin(); it != dialog.translationMap().cend(); ++it) {
        const auto* control = dialog.getControl<QWidget>(it.key());
        const QString name = QStringLiteral("control %1").arg(it.key());
        require(control, name, "mapped, but not in the form");
        require(!control || (!captionOf(*control).isEmpty() &&
                             asShown(captionOf(*control)) == asShown(languageString(it.value()))),
                name, "does not show its text");
    }
    const auto widgets = dialog.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool isPartOfControl = !widget->property("controlId").isValid();
        const bool needsName =
            qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
            qobject_cast<QPlainTextEdit*>(widget) || qobject_cast<QAbstractSpinBox*>(widget) ||
            qobject_cast<QAbstractItemView*>(widget);
        require(isPartOfControl || !needsName || isNamed(*widget), widget->objectName(),
                "has no caption and no accessible name");
    }
    return faults;
}

} // namespace pelorin::test
