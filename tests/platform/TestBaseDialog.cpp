#include "platform/ui/BaseDialog.h"

#include "platform/ui/ColorableTextBox.h"
#include "support/ModalAnswer.h"
#include "support/NumberedTexts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// The test form as a dialog or as a page; tells in which order it was made.
class TestDialog : public BaseDialog
{
public:
    explicit TestDialog(QWidget* parent = nullptr)
        : BaseDialog(QStringLiteral("TEST_DIALOG"), parent)
    {
    }

    static TestDialog* page(QWidget* parent)
    {
        auto* page = new TestDialog(Unmade());
        page->createFromForm(QStringLiteral("TEST_DIALOG"), parent);
        return page;
    }

    void translate() override
    {
        made << QStringLiteral("translate");
        BaseDialog::translate();
    }

    QStringList made;

protected:
    void setupTranslationMap() override
    {
        made << QStringLiteral("map");
        setTitleString(107);
        for (const int id : {1001, 1002, 1003, 1004, 1005, 1, 2})
            addToTranslationMap(id, 200 + id);
        addAccessibleName(1008, 142);
    }

    void onInitDialog() override
    {
        made << QStringLiteral("init");
        QVERIFY(!isVisible());
        getControl<ColorableTextBox>(1008)->foreColor(QColor(0, 255, 0));
        getControl<ColorableTextBox>(1008)->backColor(Qt::black);
    }

private:
    struct Unmade
    {
    };
    explicit TestDialog(Unmade) {}
};

/// A language for the time of a scope.
class Language : public NumberedTexts
{
public:
    explicit Language(const QString& name) : NumberedTexts(name)
    {
        QCoreApplication::installTranslator(this);
    }
};

} // namespace

class TestBaseDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogIsMadeOnceBeforeItIsShown();
    void pageIsMadeOnceAndHidden();
    void everyKindOfCaptionIsTranslated();
    void changeOfLanguageKeepsWhatTheUserEntered();
    void controlsAreThoseOfTheOwnForm();
    void okAndCancelEndTheDialog_data();
    void okAndCancelEndTheDialog();
    void keysAndCloseNeverHideAPage_data();
    void keysAndCloseNeverHideAPage();
    void pageStaysWhereItsParentPutsIt();
    void valueBoxShowsItsColours();
};

void TestBaseDialog::dialogIsMadeOnceBeforeItIsShown()
{
    TestDialog dialog;
    QCOMPARE(dialog.made, QStringList());

    for (int round = 0; round < 2; ++round) {
        ModalAnswer<TestDialog> answer([](TestDialog& shown) { shown.reject(); });
        dialog.exec();
        QVERIFY(answer.wasShown());
    }
    QCOMPARE(dialog.made, QStringList({QStringLiteral("map"), QStringLiteral("init"),
                                       QStringLiteral("translate")}));
}

void TestBaseDialog::pageIsMadeOnceAndHidden()
{
    QMainWindow window;
    TestDialog* page = TestDialog::page(&window);
    const QStringList made = page->made;
    window.show();

    QCOMPARE(made, QStringList({QStringLiteral("map"), QStringLiteral("init"),
                                QStringLiteral("translate")}));
    QVERIFY(!page->isVisible());
    page->show();
    QVERIFY(page->isVisible());
    QCOMPARE(page->made, made);
    QCOMPARE(page->objectName(), QStringLiteral("TEST_DIALOG"));
}

void TestBaseDialog::everyKindOfCaptionIsTranslated()
{
    const Language english(QStringLiteral("en"));
    TestDialog dialog;
    dialog.show();

    QCOMPARE(dialog.windowTitle(), QStringLiteral("en 107"));
    QCOMPARE(dialog.getControl<QLabel>(1001)->text(), QStringLiteral("en 1201"));
    QCOMPARE(dialog.getControl<QGroupBox>(1002)->title(), QStringLiteral("en 1202"));
    QCOMPARE(dialog.getControl<QCheckBox>(1003)->text(), QStringLiteral("en 1203"));
    QCOMPARE(dialog.getControl<QLineEdit>(1004)->text(), QStringLiteral("en 1204"));
    QCOMPARE(dialog.getControl<QPlainTextEdit>(1005)->toPlainText(), QStringLiteral("en 1205"));
    QCOMPARE(dialog.getControl<QPushButton>(1)->text(), QStringLiteral("en 201"));
    QCOMPARE(dialog.getControl<QWidget>(1008)->accessibleName(), QStringLiteral("en 142"));
}

void TestBaseDialog::changeOfLanguageKeepsWhatTheUserEntered()
{
    const Language english(QStringLiteral("en"));
    TestDialog dialog;
    dialog.show();
    auto* edit = dialog.getControl<QLineEdit>(1006);
    auto* combo = dialog.getControl<QComboBox>(1007);
    QTest::keyClicks(edit, QStringLiteral("12.5"));
    edit->setSelection(1, 2);
    combo->setCurrentIndex(1);
    dialog.getControl<QCheckBox>(1003)->setChecked(true);

    const Language german(QStringLiteral("de"));
    QTRY_COMPARE(dialog.windowTitle(), QStringLiteral("de 107"));
    QCOMPARE(dialog.getControl<QLabel>(1001)->text(), QStringLiteral("de 1201"));
    QCOMPARE(edit->text(), QStringLiteral("12.5"));
    QCOMPARE(edit->selectedText(), QStringLiteral("2."));
    QCOMPARE(combo->currentText(), QStringLiteral("25"));
    QVERIFY(dialog.getControl<QCheckBox>(1003)->isChecked());
}

void TestBaseDialog::controlsAreThoseOfTheOwnForm()
{
    QMainWindow window;
    TestDialog* outer = TestDialog::page(&window);
    TestDialog* inner = TestDialog::page(outer);

    QCOMPARE(outer->getControl<QLabel>(1001)->parentWidget(), outer);
    QCOMPARE(inner->getControl<QLabel>(1001)->parentWidget(), inner);
    QCOMPARE(outer->getControl<QLabel>(4711), nullptr);
    QCOMPARE(outer->getControl<QComboBox>(1001), nullptr);
}

void TestBaseDialog::okAndCancelEndTheDialog_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("result");
    QTest::newRow("OK clicked") << 1 << Qt::Key() << int(QDialog::Accepted);
    QTest::newRow("Cancel clicked") << 2 << Qt::Key() << int(QDialog::Rejected);
    QTest::newRow("Enter") << 0 << Qt::Key_Enter << int(QDialog::Accepted);
    QTest::newRow("Escape") << 0 << Qt::Key_Escape << int(QDialog::Rejected);
}

void TestBaseDialog::okAndCancelEndTheDialog()
{
    QFETCH(int, button);
    QFETCH(Qt::Key, key);
    QFETCH(int, result);

    TestDialog dialog;
    ModalAnswer<TestDialog> answer([button, key](TestDialog& shown) {
        if (button != 0) {
            QTest::mouseClick(shown.getControl<QPushButton>(button), Qt::LeftButton);
        } else {
            QTest::keyClick(shown.getControl<QLineEdit>(1006), key);
        }
    });
    QCOMPARE(dialog.exec(), result);
    QVERIFY(answer.wasShown());
}

void TestBaseDialog::keysAndCloseNeverHideAPage_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("no key") << Qt::Key();
}

void TestBaseDialog::keysAndCloseNeverHideAPage()
{
    QFETCH(Qt::Key, key);
    QMainWindow window;
    TestDialog* page = TestDialog::page(&window);
    window.setCentralWidget(page);
    page->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSignalSpy pressed(page->getControl<QPushButton>(1), &QPushButton::clicked);
    QSignalSpy finished(page, &QDialog::finished);

    page->getControl<QLineEdit>(1006)->setFocus();
    if (key != Qt::Key()) {
        QTest::keyClick(QApplication::focusWidget(), key);
    } else {
        page->close();
    }

    QVERIFY(page->isVisible());
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(finished.count(), 0);

    QTest::mouseClick(page->getControl<QPushButton>(2), Qt::LeftButton);
    QVERIFY(page->isVisible());
}

void TestBaseDialog::pageStaysWhereItsParentPutsIt()
{
    QMainWindow window;
    window.resize(1200, 900);
    TestDialog* page = TestDialog::page(&window);
    window.show();
    page->show();

    QCOMPARE(page->pos(), QPoint(0, 0));
    QVERIFY(!page->isWindow());
}

void TestBaseDialog::valueBoxShowsItsColours()
{
    TestDialog dialog;
    dialog.show();
    auto* box = dialog.getControl<ColorableTextBox>(1008);
    box->setText(QStringLiteral("<b>123.456</b>"));
    const QImage picture = box->grab().toImage();

    QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::black));
    bool green = false;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y)
            green = green || picture.pixelColor(x, y) == QColor(0, 255, 0);
    }
    QVERIFY(green);
    QVERIFY(box->sizeHint().width() >
            box->fontMetrics().horizontalAdvance(QStringLiteral("<b>123.456</b>")) - 1);
}

QTEST_MAIN(TestBaseDialog)
#include "TestBaseDialog.moc"
