#include "platform/ui/CellEditor.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace pelorin;

namespace {

/// A dialog with two lists as the pages have them: names that cannot be edited, then values.
class Lists : public QDialog
{
public:
    Lists()
    {
        auto* layout = new QVBoxLayout(this);
        for (QTableWidget* list : {&first, &second}) {
            layout->addWidget(list);
            fill(list);
            editor.attach(list);
        }
        layout->addWidget(&ok);
        ok.setDefault(true);
        resize(420, 500);
    }

    QTableWidget first{20, 2};
    QTableWidget second{20, 3};
    QPushButton ok{QStringLiteral("OK")};
    CellEditor editor{this};

private:
    /// Row 2 has no value that can be edited.
    static void fill(QTableWidget* list)
    {
        for (int row = 0; row < list->rowCount(); ++row) {
            for (int column = 0; column < list->columnCount(); ++column) {
                auto* item = new QTableWidgetItem(QStringLiteral("%1/%2").arg(row).arg(column));
                item->setTextAlignment(column == 0 ? Qt::AlignLeft : Qt::AlignCenter);
                if (column == 0 || row == 2)
                    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
                list->setItem(row, column, item);
            }
        }
    }
};

QLineEdit* openEdit(const QTableWidget& list)
{
    const auto edits = list.viewport()->findChildren<QLineEdit*>(QStringLiteral("cellEdit"));
    for (QLineEdit* edit : edits) {
        if (edit->isVisible())
            return edit;
    }
    return nullptr;
}

} // namespace

class TestCellEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_lists.reset(); }

    void clickOpensTheWholeCellSelectedAndFocused();
    void clickElsewhereCommitsWhatWasTyped();
    void clickOnTheOtherListCommitsIntoTheFirst();
    void unchangedTextIsCommittedOnce();
    void keysThatEndDialogsNeitherCommitNorClose();
    void leavingTheEditorDoesNotCommit();
    void nothingButAClickAndF2OpensOrCommits();
    void f2CommitsAndOpensTheValueOfTheCurrentRow();
    void arrowsGoOnToTheNextEditableRow();
    void editorStaysOverItsCell();
    void filledCellShowsUnlessTheUserHasTyped_data();
    void filledCellShowsUnlessTheUserHasTyped();
    void removedRowDiscardsTheEditor();

private:
    [[nodiscard]] QTableWidget& list() const { return m_lists->first; }
    [[nodiscard]] QLineEdit* edit() const { return openEdit(list()); }
    [[nodiscard]] QString text(int row) const { return list().item(row, 1)->text(); }
    void click(QTableWidget& list, int row, int column, Qt::MouseButton button = Qt::LeftButton);
    void openAndType(int row, const QString& text);

    std::unique_ptr<Lists> m_lists;
};

void TestCellEditor::init()
{
    m_lists = std::make_unique<Lists>();
    m_lists->show();
    QVERIFY(QTest::qWaitForWindowActive(m_lists.get()));
}

void TestCellEditor::click(QTableWidget& list, int row, int column, Qt::MouseButton button)
{
    QTest::mouseClick(list.viewport(), button, {},
                      list.visualItemRect(list.item(row, column)).center());
}

void TestCellEditor::openAndType(int row, const QString& text)
{
    click(list(), row, 1);
    QTest::keyClicks(edit(), text);
}

void TestCellEditor::clickOpensTheWholeCellSelectedAndFocused()
{
    list().setHorizontalHeaderLabels({QStringLiteral("Parameter"), QStringLiteral("Value")});
    list().item(1, 0)->setText(QStringLiteral("Offset"));
    click(list(), 1, 1);

    QVERIFY(m_lists->editor.isOpen());
    QVERIFY(edit()->hasFocus());
    QCOMPARE(edit()->selectedText(), QStringLiteral("1/1"));
    QCOMPARE(edit()->alignment(), Qt::AlignCenter);
    QCOMPARE(edit()->property("controlId").toInt(), 5000);
    QCOMPARE(edit()->geometry(), list().visualItemRect(list().item(1, 1)));
    QCOMPARE(edit()->accessibleName(), QStringLiteral("Offset, Value"));
}

void TestCellEditor::clickElsewhereCommitsWhatWasTyped()
{
    list().setRowCount(4);
    list().item(3, 1)->setFlags(Qt::NoItemFlags);
    const std::function<void()> clicks[] = {
        [this] { click(list(), 1, 0); }, // a name
        [this] { click(list(), 2, 1); }, // a value that cannot be edited
        [this] { click(list(), 3, 1); }, // a greyed one
        [this] {
            QWidget* viewport = list().viewport();
            QTest::mouseClick(viewport, Qt::LeftButton, {}, {10, viewport->height() - 5});
        }};
    int round = 0;
    for (const auto& clickElsewhere : clicks) {
        const QString typed = QStringLiteral(" <b>1,5</b> & % %1").arg(++round);
        openAndType(0, typed);
        clickElsewhere();
        QVERIFY(!m_lists->editor.isOpen());
        QVERIFY(!edit());
        QCOMPARE(text(0), typed);
    }
}

void TestCellEditor::clickOnTheOtherListCommitsIntoTheFirst()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    openAndType(3, QStringLiteral("abc"));
    click(m_lists->second, 4, 2);

    QCOMPARE(text(3), QStringLiteral("abc"));
    QVERIFY(!edit());
    QCOMPARE(openEdit(m_lists->second)->text(), QStringLiteral("4/2"));
    QCOMPARE(committed.count(), 1);
    QCOMPARE(committed.first(), (QVariantList{3, 1}));
}

void TestCellEditor::unchangedTextIsCommittedOnce()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    click(list(), 1, 1);
    m_lists->editor.commit();
    m_lists->editor.commit();
    QCOMPARE(committed.count(), 1);
    QCOMPARE(text(1), QStringLiteral("1/1"));
}

void TestCellEditor::keysThatEndDialogsNeitherCommitNorClose()
{
    QSignalSpy pressed(&m_lists->ok, &QPushButton::clicked);
    openAndType(1, QStringLiteral("12"));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(edit(), key);
        QVERIFY(edit());
        QCOMPARE(edit()->text(), QStringLiteral("12"));
        QCOMPARE(text(1), QStringLiteral("1/1"));
        QVERIFY(m_lists->isVisible());
    }
    QCOMPARE(pressed.count(), 0);
}

void TestCellEditor::leavingTheEditorDoesNotCommit()
{
    openAndType(1, QStringLiteral("12"));
    QTest::keyClick(edit(), Qt::Key_Tab);
    QVERIFY(!edit()->hasFocus());
    QVERIFY(!list().hasFocus());
    QCOMPARE(list().currentRow(), 1);

    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    QCOMPARE(list().currentRow(), 3);
    QVERIFY(edit());
    QCOMPARE(text(1), QStringLiteral("1/1"));
}

void TestCellEditor::nothingButAClickAndF2OpensOrCommits()
{
    list().setFocus();
    list().setCurrentCell(4, 1);
    QTest::keyClick(&list(), Qt::Key_5);
    click(list(), 4, 1, Qt::RightButton);
    QVERIFY(!edit());

    click(list(), 1, 1);
    click(list(), 2, 0, Qt::RightButton);
    QVERIFY(edit());
}

void TestCellEditor::f2CommitsAndOpensTheValueOfTheCurrentRow()
{
    list().setFocus();
    list().setCurrentCell(4, 0);
    QTest::keyClick(&list(), Qt::Key_F2);
    QCOMPARE(edit()->text(), QStringLiteral("4/1"));

    QTest::keyClicks(edit(), QStringLiteral("9"));
    QTest::keyClick(edit(), Qt::Key_F2);
    QVERIFY(!edit());
    QCOMPARE(text(4), QStringLiteral("9"));
    QVERIFY(list().hasFocus());

    list().setCurrentCell(2, 0);
    QTest::keyClick(&list(), Qt::Key_F2);
    QVERIFY(!edit());
}

void TestCellEditor::arrowsGoOnToTheNextEditableRow()
{
    openAndType(4, QStringLiteral("four"));
    QTest::keyClick(edit(), Qt::Key_Up);
    QCOMPARE(text(4), QStringLiteral("four"));
    QCOMPARE(edit()->selectedText(), QStringLiteral("3/1"));
    QTest::keyClick(edit(), Qt::Key_Up); // row 2 cannot be edited
    QCOMPARE(edit()->text(), QStringLiteral("3/1"));
    QTest::keyClick(edit(), Qt::Key_Down);
    QCOMPARE(edit()->text(), QStringLiteral("four"));
}

void TestCellEditor::editorStaysOverItsCell()
{
    const auto cell = [this] { return list().visualItemRect(list().item(3, 1)); };
    click(list(), 3, 1);
    list().horizontalHeader()->resizeSection(0, 150);
    QTRY_COMPARE(edit()->geometry(), cell());
    list().verticalScrollBar()->setValue(2);
    QTRY_COMPARE(edit()->geometry(), cell());
    list().horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_lists->resize(700, 600);
    QTRY_COMPARE(edit()->geometry(), cell());
    QVERIFY(edit()->width() > 250);
}

void TestCellEditor::filledCellShowsUnlessTheUserHasTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing typed") << QString() << "FACTORY1";
    QTest::newRow("typed") << "25.3"
                           << "25.3";
}

void TestCellEditor::filledCellShowsUnlessTheUserHasTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    openAndType(1, typed);
    list().item(1, 1)->setText(QStringLiteral("FACTORY1"));
    list().item(0, 1)->setText(QStringLiteral("other"));
    QCOMPARE(edit()->text(), shown);
    QCOMPARE(edit()->hasSelectedText(), typed.isEmpty());
    m_lists->editor.commit();
    QCOMPARE(text(1), shown);
}

void TestCellEditor::removedRowDiscardsTheEditor()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    click(list(), 1, 1);
    list().removeRow(1);
    QVERIFY(!m_lists->editor.isOpen());
    QVERIFY(!edit());
    m_lists->editor.commit();
    QCOMPARE(committed.count(), 0);
}

QTEST_MAIN(TestCellEditor)
#include "TestCellEditor.moc"
