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

void click(const QTableWidget& list, int row, int column)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row, column)).center());
}

} // namespace

class TestCellEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_lists.reset(); }

    void clickOpensTheWholeCellSelectedAndFocused();
    void clickOnAFixedCellOnlyCommits();
    void clickBesideTheRowsOnlyCommits();
    void clickOnTheOtherListCommitsIntoTheFirst();
    void unchangedTextIsCommittedToo();
    void typedTextIsCommittedUnaltered();
    void otherButtonsLeaveTheEditorOpen();
    void keysThatEndDialogsNeitherCommitNorClose_data();
    void keysThatEndDialogsNeitherCommitNorClose();
    void lossOfFocusDoesNotCommit();
    void movingInTheListDoesNotCommit();
    void typingInTheListOpensNothing();
    void f2CommitsAndOpensTheValueOfTheCurrentRow();
    void arrowsGoOnToTheNextEditableRow();
    void editorStaysOverItsCell();
    void filledCellShowsInAnEditorThatIsNotTyped();
    void filledCellDoesNotReplaceTypedText();
    void removedRowDiscardsTheEditor();
    void editorTellsWhichCellItEdits();

private:
    QString text(int row, int column) const { return m_lists->first.item(row, column)->text(); }
    QLineEdit* edit() const { return openEdit(m_lists->first); }

    std::unique_ptr<Lists> m_lists;
};

void TestCellEditor::init()
{
    m_lists = std::make_unique<Lists>();
    m_lists->show();
    QVERIFY(QTest::qWaitForWindowActive(m_lists.get()));
}

void TestCellEditor::clickOpensTheWholeCellSelectedAndFocused()
{
    click(m_lists->first, 1, 1);

    QVERIFY(m_lists->editor.isOpen());
    QVERIFY(edit());
    QVERIFY(edit()->hasFocus());
    QVERIFY(edit()->hasFrame());
    QCOMPARE(edit()->selectedText(), QStringLiteral("1/1"));
    QCOMPARE(edit()->alignment(), Qt::AlignCenter);
    QCOMPARE(edit()->property("controlId").toInt(), 5000);
    QCOMPARE(edit()->geometry(), m_lists->first.visualItemRect(m_lists->first.item(1, 1)));
}

void TestCellEditor::clickOnAFixedCellOnlyCommits()
{
    m_lists->first.item(3, 1)->setFlags(Qt::NoItemFlags);
    for (const auto& [row, column] : {std::pair(1, 0), std::pair(2, 1), std::pair(3, 1)}) {
        click(m_lists->first, 0, 1);
        QTest::keyClicks(edit(), QStringLiteral("x%1").arg(row));
        click(m_lists->first, row, column);

        QVERIFY(!m_lists->editor.isOpen());
        QVERIFY(!edit());
        QCOMPARE(text(0, 1), QStringLiteral("x%1").arg(row));
    }
}

void TestCellEditor::clickBesideTheRowsOnlyCommits()
{
    m_lists->first.setRowCount(3);
    click(m_lists->first, 0, 1);
    QTest::keyClicks(edit(), QStringLiteral("7.5"));
    QWidget* viewport = m_lists->first.viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(10, viewport->height() - 5));

    QVERIFY(!edit());
    QCOMPARE(text(0, 1), QStringLiteral("7.5"));
}

void TestCellEditor::clickOnTheOtherListCommitsIntoTheFirst()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    click(m_lists->first, 3, 1);
    QTest::keyClicks(edit(), QStringLiteral("abc"));
    click(m_lists->second, 4, 2);

    QCOMPARE(text(3, 1), QStringLiteral("abc"));
    QVERIFY(!edit());
    QVERIFY(openEdit(m_lists->second));
    QCOMPARE(openEdit(m_lists->second)->text(), QStringLiteral("4/2"));
    QCOMPARE(committed.count(), 1);
    QCOMPARE(committed.first(), (QVariantList{3, 1}));
}

void TestCellEditor::unchangedTextIsCommittedToo()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    click(m_lists->first, 1, 1);
    m_lists->editor.commit();
    m_lists->editor.commit();

    QCOMPARE(committed.count(), 1);
    QCOMPARE(text(1, 1), QStringLiteral("1/1"));
}

void TestCellEditor::typedTextIsCommittedUnaltered()
{
    click(m_lists->first, 1, 1);
    QTest::keyClicks(edit(), QStringLiteral(" <b>1,5</b> & % "));
    m_lists->editor.commit();

    QCOMPARE(text(1, 1), QStringLiteral(" <b>1,5</b> & % "));
}

void TestCellEditor::otherButtonsLeaveTheEditorOpen()
{
    click(m_lists->first, 1, 1);
    QTest::mouseClick(m_lists->first.viewport(), Qt::RightButton, {}, QPoint(10, 10));
    QVERIFY(edit());

    m_lists->editor.commit();
    QTest::mouseClick(m_lists->first.viewport(), Qt::RightButton, {},
                      m_lists->first.visualItemRect(m_lists->first.item(1, 1)).center());
    QVERIFY(!edit());
}

void TestCellEditor::keysThatEndDialogsNeitherCommitNorClose_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("Escape") << Qt::Key_Escape;
}

void TestCellEditor::keysThatEndDialogsNeitherCommitNorClose()
{
    QFETCH(Qt::Key, key);
    QSignalSpy pressed(&m_lists->ok, &QPushButton::clicked);
    click(m_lists->first, 1, 1);
    QTest::keyClicks(edit(), QStringLiteral("12"));
    QTest::keyClick(edit(), key);

    QVERIFY(edit());
    QCOMPARE(edit()->text(), QStringLiteral("12"));
    QCOMPARE(text(1, 1), QStringLiteral("1/1"));
    QVERIFY(m_lists->isVisible());
    QCOMPARE(pressed.count(), 0);
}

void TestCellEditor::lossOfFocusDoesNotCommit()
{
    click(m_lists->first, 1, 1);
    QTest::keyClicks(edit(), QStringLiteral("12"));
    m_lists->ok.setFocus();
    QVERIFY(edit());
    QCOMPARE(text(1, 1), QStringLiteral("1/1"));

    edit()->setFocus();
    QTest::keyClick(edit(), Qt::Key_Tab);
    QVERIFY(edit());
    QVERIFY(!edit()->hasFocus());
    QVERIFY(!m_lists->first.hasFocus());
    QCOMPARE(m_lists->first.currentRow(), 1);
    QCOMPARE(text(1, 1), QStringLiteral("1/1"));
}

void TestCellEditor::movingInTheListDoesNotCommit()
{
    click(m_lists->first, 1, 1);
    QTest::keyClicks(edit(), QStringLiteral("12"));
    m_lists->first.setFocus();
    QTest::keyClick(&m_lists->first, Qt::Key_Down);
    QTest::keyClick(&m_lists->first, Qt::Key_Down);

    QCOMPARE(m_lists->first.currentRow(), 3);
    QVERIFY(edit());
    QCOMPARE(text(1, 1), QStringLiteral("1/1"));
}

void TestCellEditor::typingInTheListOpensNothing()
{
    m_lists->first.setFocus();
    m_lists->first.setCurrentCell(4, 1);
    QTest::keyClick(&m_lists->first, Qt::Key_5);

    QVERIFY(!edit());
    QCOMPARE(text(4, 1), QStringLiteral("4/1"));
}

void TestCellEditor::f2CommitsAndOpensTheValueOfTheCurrentRow()
{
    m_lists->first.setFocus();
    m_lists->first.setCurrentCell(4, 0);
    QTest::keyClick(&m_lists->first, Qt::Key_F2);
    QVERIFY(edit());
    QCOMPARE(edit()->text(), QStringLiteral("4/1"));

    QTest::keyClicks(edit(), QStringLiteral("9"));
    QTest::keyClick(edit(), Qt::Key_F2);
    QVERIFY(!edit());
    QCOMPARE(text(4, 1), QStringLiteral("9"));
    QVERIFY(m_lists->first.hasFocus());

    m_lists->first.setCurrentCell(2, 0);
    QTest::keyClick(&m_lists->first, Qt::Key_F2);
    QVERIFY(!edit());
}

void TestCellEditor::arrowsGoOnToTheNextEditableRow()
{
    click(m_lists->first, 4, 1);
    QTest::keyClicks(edit(), QStringLiteral("four"));
    QTest::keyClick(edit(), Qt::Key_Up);
    QCOMPARE(text(4, 1), QStringLiteral("four"));
    QCOMPARE(edit()->selectedText(), QStringLiteral("3/1"));

    QTest::keyClick(edit(), Qt::Key_Up); // row 2 cannot be edited
    QCOMPARE(edit()->text(), QStringLiteral("3/1"));

    QTest::keyClick(edit(), Qt::Key_Down);
    QCOMPARE(edit()->text(), QStringLiteral("four"));
}

void TestCellEditor::editorStaysOverItsCell()
{
    QTableWidget& list = m_lists->first;
    const auto cell = [&list] { return list.visualItemRect(list.item(3, 1)); };
    click(list, 3, 1);

    list.horizontalHeader()->resizeSection(0, 150);
    QTRY_COMPARE(edit()->geometry(), cell());
    list.verticalScrollBar()->setValue(2);
    QTRY_COMPARE(edit()->geometry(), cell());
    list.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_lists->resize(700, 600);
    QTRY_COMPARE(edit()->geometry(), cell());
    QVERIFY(edit()->width() > 250);
}

void TestCellEditor::filledCellShowsInAnEditorThatIsNotTyped()
{
    click(m_lists->first, 1, 1);
    m_lists->first.item(1, 1)->setText(QStringLiteral("FACTORY1"));
    QCOMPARE(edit()->selectedText(), QStringLiteral("FACTORY1"));
    m_lists->first.item(0, 1)->setText(QStringLiteral("other"));

    m_lists->editor.commit();
    QCOMPARE(text(1, 1), QStringLiteral("FACTORY1"));
}

void TestCellEditor::filledCellDoesNotReplaceTypedText()
{
    click(m_lists->first, 1, 1);
    QTest::keyClicks(edit(), QStringLiteral("25.3"));
    m_lists->first.item(1, 1)->setText(QStringLiteral("20.0"));
    QCOMPARE(edit()->text(), QStringLiteral("25.3"));

    m_lists->editor.commit();
    QCOMPARE(text(1, 1), QStringLiteral("25.3"));
}

void TestCellEditor::removedRowDiscardsTheEditor()
{
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    click(m_lists->first, 1, 1);
    m_lists->first.removeRow(1);

    QVERIFY(!m_lists->editor.isOpen());
    QVERIFY(!edit());
    m_lists->editor.commit();
    QCOMPARE(committed.count(), 0);
}

void TestCellEditor::editorTellsWhichCellItEdits()
{
    m_lists->first.setHorizontalHeaderLabels(
        {QStringLiteral("Parameter"), QStringLiteral("Value")});
    m_lists->first.item(1, 0)->setText(QStringLiteral("Offset"));
    click(m_lists->first, 1, 1);

    QCOMPARE(edit()->accessibleName(), QStringLiteral("Offset, Value"));
}

QTEST_MAIN(TestCellEditor)
#include "TestCellEditor.moc"
