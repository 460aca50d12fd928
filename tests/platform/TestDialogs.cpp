#include "platform/ui/BaseDialog.h"
#include "platform/ui/CellEditor.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/KeptChoice.h"
#include "platform/ui/MessageBox.h"
#include "support/FileDialogUser.h"
#include "support/ModalAnswer.h"
#include "support/TestFolder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <memory>
#include <tuple>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

using Box = QMessageBox;

namespace {

/// The test form as a dialog or, inside a parent, as a page; tells in which order it was made.
class TestDialog : public BaseDialog
{
public:
    TestDialog() : BaseDialog(u"TEST_DIALOG"_s, nullptr) {}
    explicit TestDialog(QWidget* parent) { createFromForm(u"TEST_DIALOG"_s, parent); }
    void translate() override { made += u"translate"_s; }

    QString made;

protected:
    void setupTranslationMap() override { made += u"map "_s; }
    void onInitDialog() override { made += isVisible() ? u"init too late "_s : u"init "_s; }
};

/// A dialog with two lists as the pages have them: names that cannot be edited, then values.
/// In the first one row 2 cannot be edited, row 3 not even be selected.
struct Lists : QDialog
{
    Lists()
    {
        resize(420, 700);
        auto* layout = new QVBoxLayout(this);
        for (QTableWidget* list : {&first, &second}) {
            layout->addWidget(list);
            editor.attach(list);
            for (int row = 0; row < 8; ++row) {
                list->setItem(row, 0, new QTableWidgetItem(u"name %1"_s.arg(row)));
                list->setItem(row, 1, new QTableWidgetItem(u"value %1"_s.arg(row)));
                list->item(row, 0)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            }
        }
        first.item(2, 1)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        first.item(3, 1)->setFlags(Qt::NoItemFlags);
        layout->addWidget(&ok);
        ok.setDefault(true);
        show();
        first.setFocus();
        (void)QTest::qWaitForWindowActive(this);
    }

    [[nodiscard]] QString text(int row) const { return first.item(row, 1)->text(); }
    /// The edit box of either list, the first one's if both have one.
    [[nodiscard]] QLineEdit* edit() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return findChild<QLineEdit*>(u"cellEdit"_s);
    }
    /// What the edit box holds, in brackets if it is selected; "none" without one.
    [[nodiscard]] QString open() const
    {
        const QString text = edit() ? edit()->text() : u"none"_s;
        return edit() && edit()->selectedText() == text ? u'[' + text + u']' : text;
    }

    static void click(const QTableWidget& list, int row, int column,
                      Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint cell(list.columnViewportPosition(column), list.rowHeight(0) * row);
        QTest::mouseClick(list.viewport(), button, {}, cell + QPoint(9, 9));
    }
    void type(int row, const QString& typed) const
    {
        click(first, row, 1);
        QTest::keyClicks(edit(), typed);
    }

    QTableWidget first{8, 2};
    QTableWidget second{8, 2};
    QPushButton ok{u"OK"_s};
    CellEditor editor{this};
};

} // namespace

/// What all dialogs, pages and message boxes have in common.
class TestDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileDialogBeginsWhereTheLastFileWasAndOffersIt()
    {
        const TestFolder folder;
        QVERIFY(folder.put(u"first.dat"_s, "1") && folder.put(u"second.dat"_s, "2"));
        const auto choose = [](const QString& typed,
                               const std::function<void(QFileDialog&)>& look) {
            const FileDialogUser user(typed, look);
            return chooseFile(nullptr, QFileDialog::AcceptOpen, {}, u"Backup (*.dat)"_s, u"dat"_s,
                              true);
        };
        const QString first = folder.path(u"first.dat"_s);
        QCOMPARE(choose(first, {}), first);
        QCOMPARE(choose(u"second.dat"_s, {}), folder.path(u"second.dat"_s)); // in the same folder
        QString offered;
        (void)choose(first, [&](QFileDialog& dialog) {
            auto& list = *dialog.findChild<QComboBox*>(u"recentFiles"_s);
            Q_EMIT list.activated(1);
            offered = list.itemText(1) + dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text();
        });
        QCOMPARE(offered, first + first);

        const FileDialogUser saves(folder.path(u"report"_s), [](QFileDialog& dialog) {
            QTest::keyClick(dialog.findChild<QComboBox*>(u"fileTypeCombo"_s), Qt::Key_End);
        });
        QCOMPARE(chooseFile(nullptr, QFileDialog::AcceptSave, {},
                            u"Web pages (*.html);;Documents (*.pdf)"_s, u"html"_s),
                 folder.path(u"report.pdf"_s));
    }

    void whatTheUserChoosesIsKeptAndWhatTheProgramChoosesIsNot()
    {
        struct Controls
        {
            Controls()
            {
                list.addItem(u"ten"_s, 10);
                list.addItem(u"sixty"_s, 60);
                keepChoice(box, u"Box"_s);
                keepChoice(list, u"List"_s);
            }
            QCheckBox box;
            QComboBox list;
        };
        const TestFolder folder;
        QVERIFY(folder.put(u"plain"_s, {}));
        qputenv("PELORIN_PROFILE", folder.path(u"Pelorin.ini"_s).toUtf8());
        {
            Controls controls;
            QVERIFY(!controls.box.isChecked() && controls.list.currentIndex() == 0);
            controls.box.click();
            QTest::keyClick(&controls.list, Qt::Key_Down);
            controls.box.setChecked(false);
        }
        Controls later;
        QVERIFY(later.box.isChecked() && later.list.currentIndex() == 1);
        qputenv("PELORIN_PROFILE", folder.path(u"plain/Pelorin.ini"_s).toUtf8());
        int told = 0;
        for (int click = 0; click < 2; ++click) {
            later.box.click();
            if (QWidget* box = QApplication::activeModalWidget())
                told += box->close() ? 1 : 0;
        }
        QCOMPARE(told, 1);
        qunsetenv("PELORIN_PROFILE");
    }

    void dialogIsMadeOnceAndEndedByItsButtonsAndKeys()
    {
        TestDialog dialog;
        QCOMPARE(dialog.made, QString());
        for (const auto& [control, key, result] :
             {std::tuple(1006, Qt::Key_Enter, 1), std::tuple(1006, Qt::Key_Escape, 0),
              std::tuple(1, Qt::Key_Space, 1), std::tuple(2, Qt::Key_Space, 0)}) {
            dialog.show();
            QCOMPARE(dialog.made, u"map init translate"_s);
            dialog.setResult(-1);
            QTest::keyClick(dialog.getControl<QWidget>(control), key);
            QVERIFY(!dialog.isVisible() && dialog.result() == result);
        }
    }

    void pageIsMadeOnceHiddenAndNeitherHiddenNorEndedByKeysAndClose()
    {
        QWidget window;
        window.resize(1200, 900);
        auto* page = new TestDialog(&window);
        auto* inner = new TestDialog(page);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window) && !page->isVisible());
        page->show();
        QVERIFY(page->isVisible() && !page->isWindow() && page->pos().isNull());
        QCOMPARE(page->made, u"map init translate"_s);

        auto* button = page->getControl<QPushButton>(1);
        QCOMPARE(button->parentWidget(), page);
        QCOMPARE(inner->getControl<QPushButton>(1)->parentWidget(), inner);
        QVERIFY(!page->getControl<QPushButton>(4711) && !page->getControl<QPushButton>(1006));

        const QSignalSpy pressed(button, &QPushButton::clicked);
        const QSignalSpy finished(page, &QDialog::finished);
        for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
            QTest::keyClick(page->getControl<QWidget>(1006), key);
        page->close();
        QTest::mouseClick(page->getControl<QWidget>(2), Qt::LeftButton);
        QVERIFY(page->isVisible() && pressed.isEmpty() && finished.isEmpty());
    }

    void enterAndEscapeMeanTheButtonThatFits()
    {
        for (const auto& [buttons, enter, escape] :
             {std::tuple(Box::StandardButtons(Box::Ok), Box::Ok, Box::Ok),
              std::tuple(Box::Ok | Box::Cancel, Box::Ok, Box::Cancel),
              std::tuple(Box::Yes | Box::No, Box::Yes, Box::No),
              std::tuple(Box::Retry | Box::Cancel, Box::Retry, Box::Cancel),
              std::tuple(Box::Abort | Box::Retry | Box::Ignore, Box::Retry, Box::Abort)}) {
            const auto answered = [all = buttons](const std::function<void(Box&)>& steps) {
                const ModalAnswer<Box> answer(steps);
                return messageBox(nullptr, u"?"_s, all, Box::Question);
            };
            QCOMPARE(answered([](Box& box) { QTest::keyClick(&box, Qt::Key_Enter); }), enter);
            QCOMPARE(answered([](Box& box) { QTest::keyClick(&box, Qt::Key_Escape); }), escape);
            QCOMPARE(answered([](Box& box) { box.close(); }), escape);
        }
    }

    void messageIsPlainTextWaitsForNobodyAndEndsWithItsParent()
    {
        QWidget parent;
        parent.show();
        const QString text = u"<b>F</b> & \"P\" &amp;\n%1"_s;
        const QPointer<Box> box = showMessageBox(&parent, text, Box::Warning);
        QCOMPARE(QApplication::activeModalWidget(), box.data());
        QCOMPARE(std::tuple(box->windowTitle(), box->text(), box->textFormat(), box->icon()),
                 std::tuple(qAppName(), text, Qt::PlainText, Box::Warning));
        QTest::mouseClick(box->button(Box::Ok), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!box);

        auto owner = std::make_unique<QWidget>();
        owner->show();
        const ModalAnswer<Box> answer([&owner](Box&) { owner.reset(); });
        QCOMPARE(messageBox(owner.get(), u"?"_s, Box::Yes | Box::No, Box::Question), Box::No);
    }

    void clickOpensTheCellAndWhatElseHappensLeavesItOpen()
    {
        Lists lists;
        const QSignalSpy pressed(&lists.ok, &QPushButton::clicked);
        lists.first.setHorizontalHeaderLabels({u"Parameter"_s, u"Value"_s});
        Lists::click(lists.first, 0, 1, Qt::RightButton);
        QCOMPARE(lists.open(), u"none"_s);
        Lists::click(lists.first, 0, 1);
        QCOMPARE(lists.open(), u"[value 0]"_s);
        QCOMPARE(lists.edit()->accessibleName(), u"name 0, Value"_s);
        QCOMPARE(lists.edit()->geometry(), lists.first.visualItemRect(lists.first.item(0, 1)));

        QTest::keyClick(lists.focusWidget(), Qt::Key_7);
        QTest::keyClick(lists.focusWidget(), Qt::Key_Escape); // puts back what was there
        QCOMPARE(lists.edit()->text(), u"value 0"_s);
        lists.edit()->selectAll();
        QTest::keyClick(lists.focusWidget(), Qt::Key_1);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab})
            QTest::keyClick(lists.focusWidget(), key);
        lists.ok.setFocus();
        Lists::click(lists.first, 3, 1, Qt::RightButton);
        QTest::keyClick(&lists.first, Qt::Key_Down);
        QCOMPARE(lists.open(), u"1"_s);
        QCOMPARE(lists.text(0), u"value 0"_s);
        QVERIFY(lists.isVisible() && pressed.isEmpty());
    }

    void clickElsewhereCommitsTheTextAsItIs()
    {
        const Lists lists; // the places: a name, a fixed value, one not to be selected, no row
        const QSignalSpy committed(&lists.editor, &CellEditor::committed);
        for (const auto& [row, column] :
             {std::pair(1, 0), std::pair(2, 1), std::pair(3, 1), std::pair(8, 1)}) {
            for (const QString& typed : {u" <b>1,5</b> & % "_s, QString()}) { // or untyped
                lists.type(0, typed);
                Lists::click(lists.first, row, column);
                QCOMPARE(lists.open(), u"none"_s);
                QCOMPARE(lists.text(0), u" <b>1,5</b> & % "_s);
            }
            lists.first.item(0, 1)->setText({});
        }
        QCOMPARE(QList<QVariantList>(committed), QList<QVariantList>(8, {0, 1}));
        lists.type(1, u"abc"_s);
        Lists::click(lists.second, 4, 1);
        QCOMPARE(lists.text(1), u"abc"_s);
        QCOMPARE(lists.open(), u"[value 4]"_s);
        QCOMPARE(committed.count(), 9);
    }

    void keysOpenTheCurrentRowAndTheOnesAboveAndBelow()
    {
        Lists lists;
        lists.first.setCurrentCell(4, 0);
        for (const auto& [key, open, committed] :
             {std::tuple(Qt::Key_X, "none", "value 4"),
              std::tuple(Qt::Key_F2, "[value 4]", "value 4"),
              std::tuple(Qt::Key_Up, "[value 4]", "value 4"), // row 3 cannot be edited
              std::tuple(Qt::Key_5, "5", "value 4"), std::tuple(Qt::Key_Down, "[value 5]", "5"),
              std::tuple(Qt::Key_Up, "[5]", "5"), std::tuple(Qt::Key_6, "6", "5"),
              std::tuple(Qt::Key_F2, "none", "6")}) {
            QTest::keyClick(lists.focusWidget(), key);
            QCOMPARE(lists.open(), QLatin1String(open));
            QCOMPARE(lists.text(4), QLatin1String(committed));
        }
        QCOMPARE(lists.focusWidget(), &lists.first);
        lists.first.setCurrentCell(2, 0);
        QTest::keyClick(&lists.first, Qt::Key_F2);
        QCOMPARE(lists.open(), u"none"_s);
    }

    void cellThatChangesMeanwhileLosesNothingThatWasTyped()
    {
        Lists lists;
        const QSignalSpy committed(&lists.editor, &CellEditor::committed);
        lists.type(1, {});
        lists.first.item(1, 1)->setText(u"FACTORY1"_s);
        QCOMPARE(lists.open(), u"[FACTORY1]"_s);
        QTest::keyClick(lists.edit(), Qt::Key_2);
        lists.first.item(1, 1)->setText(u"20.0"_s);
        QCOMPARE(lists.open(), u"2"_s);
        lists.first.removeRow(1);
        QVERIFY(!lists.edit() && !lists.editor.isOpen());
        lists.editor.commit();

        lists.type(0, u"fixed"_s);
        lists.first.item(0, 1)->setFlags(Qt::ItemIsEnabled); // no longer to be edited
        lists.editor.commit();
        QVERIFY(!lists.edit() && !lists.editor.isOpen() && committed.isEmpty());
        QCOMPARE(lists.text(0), u"value 0"_s);
    }
};

QTEST_MAIN(TestDialogs)
#include "TestDialogs.moc"
