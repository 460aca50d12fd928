#include "platform/ui/BaseDialog.h"

#include "platform/core/LanguageStrings.h"
#include "platform/ui/ColorableTextBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QMetaObject>
#include <QUiLoader>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;

/// Sets the caption of a label, button, edit or group box.
void setCaption(QWidget* control, const QString& text)
{
    for (const char* property : {"text", "title", "plainText"}) {
        if (control->metaObject()->indexOfProperty(property) >= 0) {
            control->setProperty(property, text);
            return;
        }
    }
}

/// Keeps the wheel from lists that do not have the focus.
class WheelFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* list = qobject_cast<QComboBox*>(watched);
        if (event->type() != QEvent::Wheel || !list || list->hasFocus())
            return false;
        event->ignore(); // goes on to the parent
        return true;
    }
};

} // namespace

/// Loads a form into a dialog that exists.
class FormLoader : public QUiLoader
{
public:
    explicit FormLoader(BaseDialog* dialog) : m_dialog(dialog) { setTranslationEnabled(false); }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        if (!parent)
            return m_dialog;
        QWidget* control = m_dialog->createControl(className, parent);
        if (!control)
            return QUiLoader::createWidget(className, parent, name);
        control->setObjectName(name);
        return control;
    }

private:
    BaseDialog* m_dialog;
};

BaseDialog::BaseDialog(const QString& form, QWidget* parent) : QDialog(parent), m_form(form) {}

void BaseDialog::createFromForm(const QString& form, QWidget* parent)
{
    m_form = form;
    setParent(parent, Qt::Widget);
    hide(); // or the parent would show it together with itself
    initialise();
}

void BaseDialog::initialise()
{
    m_initialised = true;
    loadForm();
    setupTranslationMap();
    onInitDialog();
    translate();
}

void BaseDialog::loadForm()
{
    QFile file(QStringLiteral(":/pelorin/forms/%1.ui").arg(m_form));
    FormLoader loader(this);
    if (!file.open(QIODevice::ReadOnly) || !loader.load(&file))
        qFatal("Form %s: %s", qUtf8Printable(m_form), qUtf8Printable(loader.errorString()));
    setObjectName(m_form);

    const auto controls = findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const QVariant id = control->property("controlId");
        if (id.isValid())
            m_controls.insert(id.toInt(), control);
    }
    auto* wheel = new WheelFilter(this);
    for (auto* list : findChildren<QComboBox*>()) {
        list->setFocusPolicy(Qt::StrongFocus); // the wheel itself would give it the focus
        list->installEventFilter(wheel);
    }
    if (auto* ok = getControl<QAbstractButton>(kOkButton))
        connect(ok, &QAbstractButton::clicked, this, &QDialog::accept);
    if (auto* cancel = getControl<QAbstractButton>(kCancelButton))
        connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
}

QWidget* BaseDialog::createControl(const QString& className, QWidget* parent)
{
    if (className == QLatin1String("ColorableTextBox"))
        return new ColorableTextBox(parent);
    return nullptr;
}

void BaseDialog::addToTranslationMap(int controlId, int stringNumber)
{
    m_captions.insert(controlId, stringNumber);
}

void BaseDialog::addAccessibleName(int controlId, int stringNumber)
{
    m_accessibleNames.insert(controlId, stringNumber);
}

void BaseDialog::translate()
{
    if (m_titleString != 0)
        setWindowTitle(languageString(m_titleString));
    for (auto caption = m_captions.cbegin(); caption != m_captions.cend(); ++caption) {
        if (auto* control = getControl<QWidget>(caption.key()))
            setCaption(control, languageString(caption.value()));
    }
    for (auto name = m_accessibleNames.cbegin(); name != m_accessibleNames.cend(); ++name) {
        if (auto* control = getControl<QWidget>(name.key()))
            control->setAccessibleName(languageString(name.value()));
    }
}

void BaseDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange && m_initialised)
        translate();
    QDialog::changeEvent(event);
}

// A page leaves out what the toolkit's dialogs do and behaves as a plain widget.
// NOLINTBEGIN(bugprone-parent-virtual-call)

void BaseDialog::setVisible(bool visible)
{
    if (visible && !m_initialised)
        initialise();
    if (isWindow()) {
        QDialog::setVisible(visible);
    } else {
        QWidget::setVisible(visible);
    }
}

void BaseDialog::done(int result)
{
    if (isWindow())
        QDialog::done(result);
}

void BaseDialog::keyPressEvent(QKeyEvent* event)
{
    if (isWindow()) {
        QDialog::keyPressEvent(event);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void BaseDialog::showEvent(QShowEvent* event)
{
    if (isWindow()) {
        QDialog::showEvent(event);
    } else {
        QWidget::showEvent(event); // a dialog would move itself over its parent's middle
    }
}

// NOLINTEND(bugprone-parent-virtual-call)

} // namespace pelorin
