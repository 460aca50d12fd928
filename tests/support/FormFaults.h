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
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>

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
    QList<FormControl> controls;
    QList<qsizetype> open; // the widgets around the place that is read
    QString property;
    int depthInItem = 0; // items of a combo box or list have texts of their own
    QFile file(QStringLiteral(":/pelorin/forms/%1.ui").arg(form));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            if (xml.name() == QLatin1String("widget")) {
                open.append(controls.size());
                depthInItem = 0;
                controls.append({xml.attributes().value(QLatin1String("name")).toString(), -1, {}});
            } else if (xml.name() == QLatin1String("item")) {
                ++depthInItem;
            } else if (xml.name() == QLatin1String("property")) {
                property = xml.attributes().value(QLatin1String("name")).toString();
            } else if (xml.name() == QLatin1String("number") &&
                       property == QLatin1String("controlId")) {
                controls[open.last()].id = xml.readElementText().toInt();
            } else if (xml.name() == QLatin1String("string") && depthInItem == 0 &&
                       QStringList{QStringLiteral("text"), QStringLiteral("title"),
                                   QStringLiteral("plainText"), QStringLiteral("windowTitle")}
                           .contains(property)) {
                controls[open.last()].caption = xml.readElementText();
            }
        } else if (xml.isEndElement()) {
            if (xml.name() == QLatin1String("widget")) {
                open.removeLast();
            } else if (xml.name() == QLatin1String("item") && depthInItem > 0) {
                --depthInItem;
            }
        }
    }
    return xml.hasError() ? QList<FormControl>() : controls;
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
