#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>

class QKeyEvent;
class QLineEdit;
class QTableView;

namespace pelorin {

/// Edits one cell of a list in place. One editor serves all lists of a page, so that at most one
/// cell is open over all of them.
///
/// A click on a list first commits the open cell, then opens the clicked one if its item is
/// editable (Qt::ItemIsEditable). F2 opens the list's current cell, or else the first editable
/// one of its row; in the editor it commits, and Up and Down go on to the cell above or below.
/// Escape puts the cell's text back. Enter, Escape and the loss of the focus leave the editor open;
/// where the keys move, Enter goes on to the cell below, Tab to the next one, with Shift back.
/// A cell that is filled while it is open shows its new text if the user has not typed; what the
/// user has typed stays. Removing the row or resetting the list discards the editor; so does
/// committing a cell that can no longer be edited.
class CellEditor : public QObject
{
    Q_OBJECT

public:
    /// What Enter and Tab do while a cell is open.
    enum class Keys { Stay, Move };

    explicit CellEditor(QObject* page, Keys keys = Keys::Stay);

    /// Lets the cells of a list be edited. The list must live as long as the editor.
    void attach(QTableView* view);

    /// Commits an open cell, then opens this one, its text selected and focused, unless it is
    /// not editable.
    void begin(QTableView* view, int row, int column);

    /// Ends editing and puts the text, unaltered, into the cell; does nothing if none is open.
    void commit();

    /// Puts the open cell's own text back in the place of what was typed.
    void revert();

    [[nodiscard]] bool isOpen() const { return m_cell.isValid(); }
    [[nodiscard]] QModelIndex cell() const { return m_cell; }
    /// Shows beside what is typed in the open cell that it will not stay so, and why; nothing for
    /// an empty text.
    void mark(const QString& explanation);
    /// The text of a cell; of the open one that is what has been typed so far.
    [[nodiscard]] QString text(const QTableView& view, int row, int column) const;

Q_SIGNALS:
    /// The text of the open cell has become another one, by the user.
    void typed();
    /// A cell has been committed, whether its text has changed or not.
    void committed(int row, int column);
    /// The user pastes more than the text of one cell into the open one.
    void blockPasted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QLineEdit* edit() const;
    bool editKey(const QKeyEvent& event);
    bool moveToRow(int step);
    bool moveToNext(int step);
    void beginAtCurrentRow(QTableView* view);

    const Keys m_keys;
    QPointer<QTableView> m_view;
    QPersistentModelIndex m_cell; ///< the open cell
};

} // namespace pelorin
