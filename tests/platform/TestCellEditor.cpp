#include "platform/ui/CellEditor.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace pelorin;

namespace {

/// A dialog with two lists as the pages have them: names that cannot be edited, then values.
/// Cells hold their place, "row/column"; row 2 cannot be edited, row 3 not even be selected.
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

    QTableWidget first{8, 2};
    QTableWidget second{8, 3};
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
                if (row == 3)
                    item->setFlags(Qt::NoItemFlags);
                list->setItem(row, column, item);
            }
        }
    }
};

QLineEdit* openEdit(const QTableWidget& list)
{
    for (auto* edit : list.viewport()->findChildren<QLineEdit*>(QStringLiteral("cellEdit")))
        if (edit->isVisible())
            return edit;
    return nullptr;
}

void click(const QTableWidget& list, int row, int column, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(list.viewport(), button, {},
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
    void clickElsewhereCommitsTheTextAsItIs_data();
    void clickElsewhereCommitsTheTextAsItIs();
    void clickOnTheOtherListCommitsIntoTheFirst();
    void whatElseHappensLeavesTheEditorOpen_data();
    void whatElseHappensLeavesTheEditorOpen();
    void f2CommitsAndOpensTheValueOfTheCurrentRow();
    void arrowsGoOnToTheNextEditableRow();
    void filledCellShowsUnlessTheUserHasTyped();
    void cellThatIsGoneOrFixedIsNotCommitted();

private:
    [[nodiscard]] QTableWidget& list() const { return m_lists->first; }
    [[nodiscard]] QString text(int row) const { return list().item(row, 1)->text(); }
    [[nodiscard]] QLineEdit* edit() const { return openEdit(list()); }
    void type(int row, const char* text) const
    {
        click(list(), row, 1);
        QTest::keyClicks(edit(), QLatin1String(text));
    }

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
    list().setHorizontalHeaderLabels({QStringLiteral("Parameter"), QStringLiteral("Value")});
    click(list(), 1, 1, Qt::RightButton);
    QVERIFY(!edit());
    click(list(), 1, 1);
    QVERIFY(m_lists->editor.isOpen());
    QVERIFY(edit()->hasFocus() && edit()->hasFrame());
    QCOMPARE(edit()->selectedText(), QStringLiteral("1/1"));
    QCOMPARE(edit()->alignment(), Qt::AlignCenter);
    QCOMPARE(edit()->property("controlId").toInt(), 5000);
    QCOMPARE(edit()->accessibleName(), QStringLiteral("1/0, Value"));
    QCOMPARE(edit()->geometry(), list().visualItemRect(list().item(1, 1)));
}

void TestCellEditor::clickElsewhereCommitsTheTextAsItIs_data()
{
    QTest::addColumn<QPoint>("cell");
    QTest::newRow("name") << QPoint(0, 1);
    QTest::newRow("fixed value") << QPoint(1, 2);
    QTest::newRow("value that cannot be selected") << QPoint(1, 3);
    QTest::newRow("below the rows") << QPoint();
}

void TestCellEditor::clickElsewhereCommitsTheTextAsItIs()
{
    QFETCH(QPoint, cell);
    QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    for (const auto* typed : {" <b>1,5</b> & % ", ""}) { // untyped it is committed, too
        if (cell.isNull())
            list().setRowCount(1);
        type(0, typed);
        if (cell.isNull())
            QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                              list().viewport()->rect().bottomLeft() + QPoint(9, -9));
        else
            click(list(), cell.y(), cell.x());
        QVERIFY(!edit() && !m_lists->editor.isOpen());
        QCOMPARE(text(0), QStringLiteral(" <b>1,5</b> & % "));
    }
    m_lists->editor.commit();
    QCOMPARE(QList<QVariantList>(committed), (QList<QVariantList>{{0, 1}, {0, 1}}));
}

void TestCellEditor::clickOnTheOtherListCommitsIntoTheFirst()
{
    type(1, "abc");
    click(m_lists->second, 4, 2);
    QCOMPARE(text(1), QStringLiteral("abc"));
    QVERIFY(!edit());
    QCOMPARE(openEdit(m_lists->second)->text(), QStringLiteral("4/2"));
}

void TestCellEditor::whatElseHappensLeavesTheEditorOpen_data()
{
    QTest::addColumn<std::function<void(Lists&)>>("event");
    const auto key = [](Qt::Key code) {
        return [code](Lists& lists) { QTest::keyClick(openEdit(lists.first), code); };
    };
    const auto row = [](const char* name, const std::function<void(Lists&)>& event) {
        QTest::newRow(name) << event;
    };
    row("Return", key(Qt::Key_Return));
    row("Enter", key(Qt::Key_Enter));
    row("Escape", key(Qt::Key_Escape));
    row("Tab", key(Qt::Key_Tab));
    row("focus", [](Lists& lists) { lists.ok.setFocus(); });
    row("right click", [](Lists& lists) { click(lists.first, 1, 0, Qt::RightButton); });
    row("another row", [](Lists& lists) {
        lists.first.setFocus();
        QTest::keyClick(&lists.first, Qt::Key_Down);
    });
}

void TestCellEditor::whatElseHappensLeavesTheEditorOpen()
{
    QFETCH(std::function<void(Lists&)>, event);
    const QSignalSpy pressed(&m_lists->ok, &QPushButton::clicked);
    type(0, "12");
    event(*m_lists);
    QCOMPARE(edit()->text(), QStringLiteral("12"));
    QCOMPARE(text(0), QStringLiteral("0/1"));
    QVERIFY(m_lists->isVisible() && pressed.isEmpty());
}

void TestCellEditor::f2CommitsAndOpensTheValueOfTheCurrentRow()
{
    list().setFocus();
    list().setCurrentCell(4, 0);
    QTest::keyClick(&list(), Qt::Key_X); // opens nothing
    QVERIFY(!edit());
    QTest::keyClick(&list(), Qt::Key_F2);
    QCOMPARE(edit()->text(), QStringLiteral("4/1"));
    QTest::keyClicks(edit(), QStringLiteral("9"));
    QTest::keyClick(edit(), Qt::Key_F2);
    QVERIFY(!edit() && list().hasFocus());
    QCOMPARE(text(4), QStringLiteral("9"));

    list().setCurrentCell(2, 0);
    QTest::keyClick(&list(), Qt::Key_F2);
    QVERIFY(!edit());
}

void TestCellEditor::arrowsGoOnToTheNextEditableRow()
{
    type(5, "five");
    QTest::keyClick(edit(), Qt::Key_Up);
    QCOMPARE(text(5), QStringLiteral("five"));
    QCOMPARE(edit()->selectedText(), QStringLiteral("4/1"));
    QTest::keyClick(edit(), Qt::Key_Up); // row 3 cannot be edited
    QCOMPARE(edit()->text(), QStringLiteral("4/1"));
    QTest::keyClick(edit(), Qt::Key_Down);
    QCOMPARE(edit()->text(), QStringLiteral("five"));
}

void TestCellEditor::filledCellShowsUnlessTheUserHasTyped()
{
    click(list(), 1, 1);
    list().item(1, 1)->setText(QStringLiteral("FACTORY1"));
    QCOMPARE(edit()->selectedText(), QStringLiteral("FACTORY1"));
    QTest::keyClicks(edit(), QStringLiteral("25.3"));
    list().item(1, 1)->setText(QStringLiteral("20.0"));
    QCOMPARE(edit()->text(), QStringLiteral("25.3"));
}

void TestCellEditor::cellThatIsGoneOrFixedIsNotCommitted()
{
    const QSignalSpy committed(&m_lists->editor, &CellEditor::committed);
    type(1, "gone");
    list().removeRow(1);
    QVERIFY(!edit() && !m_lists->editor.isOpen());
    m_lists->editor.commit();

    type(0, "fixed");
    list().item(0, 1)->setFlags(Qt::ItemIsEnabled);
    m_lists->editor.commit();
    QVERIFY(!edit() && !m_lists->editor.isOpen());
    QCOMPARE(text(0), QStringLiteral("0/1"));
    QVERIFY(committed.isEmpty());
}

QTEST_MAIN(TestCellEditor)
#include "TestCellEditor.moc"
