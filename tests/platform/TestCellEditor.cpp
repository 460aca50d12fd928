#include "platform/ui/CellEditor.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace pelorin;
using namespace Qt::StringLiterals;

namespace {

/// A dialog with two lists as the pages have them: names that cannot be edited, then values.
/// Cells hold their place, "row/column"; row 2 cannot be edited, row 3 not even be selected.
struct Lists : QDialog
{
    Lists()
    {
        auto* layout = new QVBoxLayout(this);
        for (QTableWidget* list : {&first, &second}) {
            layout->addWidget(list);
            editor.attach(list);
            for (int index = 0; index < 16; ++index) {
                const int row = index / 2;
                auto* item = new QTableWidgetItem(u"%1/%2"_s.arg(row).arg(index % 2));
                if (index % 2 == 0 || row == 2)
                    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
                if (row == 3)
                    item->setFlags(Qt::NoItemFlags);
                list->setItem(row, index % 2, item);
            }
        }
        layout->addWidget(&ok);
        ok.setDefault(true);
        resize(420, 700);
        show();
        (void)QTest::qWaitForWindowActive(this);
    }

    [[nodiscard]] QPoint cell(int row, int column) const
    {
        return first.visualItemRect(first.item(row, column)).center();
    }
    [[nodiscard]] QString text(int row) const { return first.item(row, 1)->text(); }

    /// The edit box of either list, the first one's if both have one.
    [[nodiscard]] QLineEdit* edit() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return findChild<QLineEdit*>(u"cellEdit"_s);
    }

    void click(QPoint place, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(first.viewport(), button, {}, place);
    }
    void type(int row, const QString& typed) const
    {
        click(cell(row, 1));
        QTest::keyClicks(edit(), typed);
    }

    QTableWidget first{8, 2};
    QTableWidget second{8, 2};
    QPushButton ok{u"OK"_s};
    CellEditor editor{this};
};

} // namespace

class TestCellEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickOpensTheWholeCellSelectedAndFocused()
    {
        Lists lists;
        lists.first.setHorizontalHeaderLabels({u"Parameter"_s, u"Value"_s});
        lists.click(lists.cell(1, 1), Qt::RightButton);
        QVERIFY(!lists.edit());
        lists.click(lists.cell(1, 1));
        const QLineEdit& edit = *lists.edit();
        QVERIFY(lists.editor.isOpen() && edit.hasFocus());
        QCOMPARE(edit.selectedText(), u"1/1"_s);
        QCOMPARE(edit.property("controlId").toInt(), 5000);
        QCOMPARE(edit.accessibleName(), u"1/0, Value"_s);
        QCOMPARE(edit.geometry(), lists.first.visualItemRect(lists.first.item(1, 1)));
    }

    void clickElsewhereCommitsTheTextAsItIs()
    {
        const Lists lists; // the places: a name, a fixed value, one not to be selected, no row
        QSignalSpy committed(&lists.editor, &CellEditor::committed);
        for (const QPoint place : {lists.cell(1, 0), lists.cell(2, 1), lists.cell(3, 1),
                                   lists.first.viewport()->rect().bottomLeft() + QPoint(9, -1)}) {
            for (const QString& typed : {u" <b>1,5</b> & % "_s, QString()}) { // or untyped
                lists.type(0, typed);
                lists.click(place);
                QVERIFY(!lists.edit() && !lists.editor.isOpen());
                QCOMPARE(lists.text(0), u" <b>1,5</b> & % "_s);
                QCOMPARE(committed.takeFirst(), (QVariantList{0, 1}));
            }
            lists.first.item(0, 1)->setText({});
        }
        lists.type(1, u"abc"_s);
        QTest::mouseClick(lists.second.viewport(), Qt::LeftButton, {}, lists.cell(4, 1));
        QCOMPARE(lists.text(1), u"abc"_s);
        QCOMPARE(lists.edit()->text(), u"4/1"_s);
        QCOMPARE(committed.count(), 1);
    }

    void whatElseHappensLeavesTheEditorOpen()
    {
        Lists lists;
        const QSignalSpy pressed(&lists.ok, &QPushButton::clicked);
        lists.type(0, u"12"_s);
        const auto isAsTyped = [&] {
            return lists.edit() && lists.edit()->text() == u"12" && lists.text(0) == u"0/1" &&
                   lists.isVisible() && pressed.isEmpty();
        };
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}) {
            QTest::keyClick(lists.edit(), key);
            QVERIFY2(isAsTyped(), qPrintable(QKeySequence(key).toString()));
        }
        lists.ok.setFocus();
        lists.click(lists.cell(1, 0), Qt::RightButton);
        QVERIFY(isAsTyped());
        lists.first.setFocus();
        QTest::keyClick(&lists.first, Qt::Key_Down);
        QVERIFY(isAsTyped());
    }

    void keysOpenTheCurrentRowAndTheOnesAboveAndBelow()
    {
        Lists lists;
        lists.first.setFocus();
        lists.first.setCurrentCell(4, 0);
        QTest::keyClick(&lists.first, Qt::Key_X); // opens nothing
        QVERIFY(!lists.edit());
        QTest::keyClick(&lists.first, Qt::Key_F2);
        QCOMPARE(lists.edit()->text(), u"4/1"_s);
        QTest::keyClicks(lists.edit(), u"four"_s);
        QTest::keyClick(lists.edit(), Qt::Key_Up); // row 3 cannot be edited
        QCOMPARE(lists.edit()->text(), u"four"_s);
        QTest::keyClick(lists.edit(), Qt::Key_Down);
        QCOMPARE(lists.text(4), u"four"_s);
        QCOMPARE(lists.edit()->selectedText(), u"5/1"_s);
        QTest::keyClick(lists.edit(), Qt::Key_Up);
        QCOMPARE(lists.edit()->selectedText(), u"four"_s);
        QTest::keyClicks(lists.edit(), u"9"_s);
        QTest::keyClick(lists.edit(), Qt::Key_F2);
        QVERIFY(!lists.edit() && lists.first.hasFocus());
        QCOMPARE(lists.text(4), u"9"_s);
        lists.first.setCurrentCell(2, 0);
        QTest::keyClick(&lists.first, Qt::Key_F2);
        QVERIFY(!lists.edit());
    }

    void cellThatChangesMeanwhileLosesNothingThatWasTyped()
    {
        Lists lists;
        const QSignalSpy committed(&lists.editor, &CellEditor::committed);
        lists.type(1, {});
        lists.first.item(1, 1)->setText(u"FACTORY1"_s);
        QCOMPARE(lists.edit()->selectedText(), u"FACTORY1"_s);
        QTest::keyClicks(lists.edit(), u"25.3"_s);
        lists.first.item(1, 1)->setText(u"20.0"_s);
        QCOMPARE(lists.edit()->text(), u"25.3"_s);
        lists.first.removeRow(1);
        QVERIFY(!lists.edit() && !lists.editor.isOpen());
        lists.editor.commit();

        lists.type(0, u"fixed"_s);
        lists.first.item(0, 1)->setFlags(Qt::ItemIsEnabled); // no longer to be edited
        lists.editor.commit();
        QVERIFY(!lists.edit() && !lists.editor.isOpen());
        QCOMPARE(lists.text(0), u"0/1"_s);
        QVERIFY(committed.isEmpty());
    }
};

QTEST_MAIN(TestCellEditor)
#include "TestCellEditor.moc"
