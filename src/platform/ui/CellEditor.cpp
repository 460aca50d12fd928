#include "platform/ui/CellEditor.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>

#include <utility>

namespace pelorin {

namespace {

constexpr int kEditControlId = 5000;

/// Makes the edit box and keeps it over its cell. It never ends editing by itself.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override
    {
        auto* edit = new QLineEdit(parent);
        edit->setObjectName(QStringLiteral("cellEdit"));
        edit->setProperty("controlId", kEditControlId);
        edit->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        const QString row = index.siblingAtColumn(0).data().toString();
        const QString column = index.model()->headerData(index.column(), Qt::Horizontal).toString();
        edit->setAccessibleName(QStringLiteral("%1, %2").arg(row, column));
        return edit;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        auto* edit = qobject_cast<QLineEdit*>(editor);
        const QString text = index.data(Qt::EditRole).toString();
        if (edit->isModified() || edit->text() == text)
            return;
        edit->setText(text);
        edit->selectAll();
    }

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override
    {
        editor->setGeometry(option.rect);
    }

protected:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

} // namespace

CellEditor::CellEditor(QObject* page, Keys keys) : QObject(page), m_keys(keys) {}

void CellEditor::attach(QTableView* view)
{
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setTabKeyNavigation(false);
    view->setItemDelegate(new CellDelegate(view));
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    connect(view, &QTableView::clicked, this,
            [this, view](const QModelIndex& index) { begin(view, index.row(), index.column()); });
}

void CellEditor::begin(QTableView* view, int row, int column)
{
    commit();
    const QModelIndex index = view->model()->index(row, column);
    if (!index.flags().testFlag(Qt::ItemIsEditable))
        return;

    view->setCurrentIndex(index);
    view->scrollTo(index);
    m_view = view;
    m_cell = index;
    view->openPersistentEditor(index);
    edit()->installEventFilter(this);
    connect(edit(), &QLineEdit::textEdited, this, &CellEditor::typed);
    edit()->setFocus();
    edit()->selectAll();
}

void CellEditor::commit()
{
    if (!isOpen())
        return;
    QTableView* const view = m_view;
    const QString text = edit()->text();
    const QModelIndex cell = std::exchange(m_cell, QPersistentModelIndex());
    view->closePersistentEditor(cell);
    if (!cell.flags().testFlag(Qt::ItemIsEditable))
        return; // no longer: another sensor has no such value
    view->model()->setData(cell, text, Qt::EditRole);
    Q_EMIT committed(cell.row(), cell.column());
}

void CellEditor::revert()
{
    if (!isOpen() || !edit()->isModified())
        return;
    edit()->setText(m_cell.data(Qt::EditRole).toString());
    edit()->selectAll();
    Q_EMIT typed();
}

QString CellEditor::text(const QTableView& view, int row, int column) const
{
    const QModelIndex cell = view.model()->index(row, column);
    return isOpen() && m_cell == cell ? edit()->text() : cell.data(Qt::EditRole).toString();
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (isOpen() && watched == edit())
            return editKey(*key);
        auto* view = qobject_cast<QTableView*>(watched);
        if (view && key->key() == Qt::Key_F2) {
            beginAtCurrentRow(view);
            return true;
        }
    } else if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        auto* view = qobject_cast<QTableView*>(watched->parent());
        if (view && watched == view->viewport() && mouse->button() == Qt::LeftButton &&
            !view->indexAt(mouse->position().toPoint()).flags().testFlag(Qt::ItemIsEnabled))
            commit(); // what the view does not report as clicked
    }
    return QObject::eventFilter(watched, event);
}

QLineEdit* CellEditor::edit() const
{
    return qobject_cast<QLineEdit*>(m_view->indexWidget(m_cell));
}

void CellEditor::mark(const QString& explanation)
{
    if (!isOpen())
        return;
    QLineEdit* box = edit();
    qDeleteAll(box->actions());
    if (!explanation.isEmpty()) {
        const QIcon warning = box->style()->standardIcon(QStyle::SP_MessageBoxWarning);
        box->addAction(warning, QLineEdit::TrailingPosition)->setToolTip(explanation);
    }
    box->setAccessibleDescription(explanation);
    QToolTip::showText(box->mapToGlobal(box->rect().bottomLeft()), explanation, box);
}

/// @return true if the key goes no further
bool CellEditor::editKey(const QKeyEvent& event)
{
    if (m_keys == Keys::Move && event.matches(QKeySequence::Paste) &&
        QGuiApplication::clipboard()->text().contains(
            QRegularExpression(QStringLiteral("[\t\n]")))) {
        Q_EMIT blockPasted();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_keys == Keys::Move && !moveToRow(event.modifiers() & Qt::ShiftModifier ? -1 : 1)) {
            commit();
            m_view->setFocus();
        }
        return true; // would press a button of the dialog
    case Qt::Key_Tab:
        return m_keys == Keys::Move && moveToNext(1);
    case Qt::Key_Backtab:
        return m_keys == Keys::Move && moveToNext(-1);
    case Qt::Key_Escape:
        revert();
        return true; // would close the dialog
    case Qt::Key_F2:
        commit();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        (void)moveToRow(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    default:
        return false;
    }
}

/// @return false if there is no such cell that can be edited
bool CellEditor::moveToRow(int step)
{
    const QModelIndex next = m_cell.sibling(m_cell.row() + step, m_cell.column());
    if (!next.flags().testFlag(Qt::ItemIsEditable))
        return false;
    begin(m_view, next.row(), next.column());
    return true;
}

/// The next cell that can be edited, row by row.
/// @return false if there is none
bool CellEditor::moveToNext(int step)
{
    const int columns = m_view->model()->columnCount();
    int at = m_cell.row() * columns + m_cell.column() + step;
    for (; at >= 0 && at / columns < m_view->model()->rowCount(); at += step) {
        if (m_cell.sibling(at / columns, at % columns).flags().testFlag(Qt::ItemIsEditable)) {
            begin(m_view, at / columns, at % columns);
            return true;
        }
    }
    return false;
}

void CellEditor::beginAtCurrentRow(QTableView* view)
{
    QModelIndex cell = view->currentIndex();
    for (int column = 0; !cell.flags().testFlag(Qt::ItemIsEditable); ++column) {
        if (column == view->model()->columnCount())
            return;
        cell = cell.siblingAtColumn(column);
    }
    begin(view, cell.row(), cell.column());
}

} // namespace pelorin
