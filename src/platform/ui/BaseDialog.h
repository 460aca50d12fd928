#pragma once

#include <QDialog>
#include <QHash>
#include <QMap>

namespace pelorin {

/// Base of every page and dialog: a form of the program's resources whose captions come from the
/// language module.
///
/// A dialog is made from its form when it is first shown, a page when it calls createFromForm.
/// Then, once, setupTranslationMap and onInitDialog run and the captions are translated; they are
/// translated again when the language changes. In forms each control carries its number in the
/// property "controlId", and a caption with a leading "*" waits for its translation. The buttons
/// numbered 1 and 2 accept and reject.
///
/// A list that does not have the focus leaves the wheel to what it stands on: who scrolls past it
/// does not change it.
///
/// A page is no window: Enter, Escape and close() neither hide nor end it.
class BaseDialog : public QDialog
{
    Q_OBJECT

public:
    /// A modal dialog.
    /// @param form the form's name, such as "112_SelectPort"
    BaseDialog(const QString& form, QWidget* parent);

    /// A page, not yet made.
    BaseDialog() = default;

    /// The page has become visible, or is to show afresh what it shows.
    virtual void getCurrentValues() {}

    /// The page is about to be hidden, or the main window to be closed.
    virtual void setNewValues() {}

    /// Puts the language's texts into all registered controls and the title.
    virtual void translate();

    /// The control of that number in this dialog's own form, not in a dialog inside it; null if
    /// the form has none of that number and kind.
    template <class Control>
    [[nodiscard]] Control* getControl(int id) const
    {
        return qobject_cast<Control*>(m_controls.value(id));
    }

    /// The string number of each translated caption, by control number.
    [[nodiscard]] const QMap<int, int>& translationMap() const { return m_captions; }

    void setVisible(bool visible) override;
    void done(int result) override;

protected:
    /// Makes the page from its form, inside the parent and hidden.
    void createFromForm(const QString& form, QWidget* parent);

    /// Registers the title and captions that translate puts in.
    virtual void setupTranslationMap() {}

    /// Prepares the controls; the captions are translated afterwards.
    virtual void onInitDialog() {}

    /// Makes a control that the form names and the toolkit does not know; null for any other.
    virtual QWidget* createControl(const QString& className, QWidget* parent);

    void setTitleString(int stringNumber) { m_titleString = stringNumber; }
    void addToTranslationMap(int controlId, int stringNumber);
    /// For controls without a caption that says what they are.
    void addAccessibleName(int controlId, int stringNumber);

    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    friend class FormLoader;
    void initialise();
    void loadForm();

    QString m_form;
    bool m_initialised = false;
    int m_titleString = 0;
    QHash<int, QWidget*> m_controls;
    QMap<int, int> m_captions;
    QMap<int, int> m_accessibleNames;
};

} // namespace pelorin
