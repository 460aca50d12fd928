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

/// The steps in which a dialog is made.
const QStringList kMade = {QStringLiteral("map"), QStringLiteral("init"),
                           QStringLiteral("translate")};

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
    void pageIsMadeOnceHiddenAndWhereItsParentPutsIt();
    void changeOfLanguageKeepsWhatTheUserEntered();
    void controlsAreThoseOfTheOwnForm();
    void okAndCancelEndTheDialog_data();
    void okAndCancelEndTheDialog();
    void keysAndCloseNeverHideAPage();
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
    QCOMPARE(dialog.made, kMade);
}

void TestBaseDialog::pageIsMadeOnceHiddenAndWhereItsParentPutsIt()
{
    QMainWindow window;
    window.resize(1200, 900);
    TestDialog* page = TestDialog::page(&window);
    window.show();
    QVERIFY(!page->isVisible());
    page->show();
    QVERIFY(page->isVisible());
    QVERIFY(!page->isWindow());
    QCOMPARE(page->pos(), QPoint(0, 0));
    QCOMPARE(page->made, kMade);
    QCOMPARE(page->objectName(), QStringLiteral("TEST_DIALOG"));
}

void TestBaseDialog::changeOfLanguageKeepsWhatTheUserEntered()
{
    const Language english(QStringLiteral("en"));
    TestDialog dialog;
    dialog.show();
    auto* edit = dialog.getControl<QLineEdit>(1006);
    auto* combo = dialog.getControl<QComboBox>(1007);
    const auto captions = [&dialog] {
        return QStringList{dialog.windowTitle(),
                           dialog.getControl<QLabel>(1001)->text(),
                           dialog.getControl<QGroupBox>(1002)->title(),
                           dialog.getControl<QCheckBox>(1003)->text(),
                           dialog.getControl<QLineEdit>(1004)->text(),
                           dialog.getControl<QPlainTextEdit>(1005)->toPlainText(),
                           dialog.getControl<QPushButton>(1)->text(),
                           dialog.getControl<QWidget>(1008)->accessibleName()};
    };
    const QString expected =
        QStringLiteral("en 107|en 1201|en 1202|en 1203|en 1204|en 1205|en 201|en 142");
    QCOMPARE(captions().join(QLatin1Char('|')), expected);
    QVERIFY(QTest::qWaitForWindowActive(&dialog)); // an edit that comes later drops its selection
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("12.5"));
    edit->setSelection(1, 2);
    combo->setCurrentIndex(1);
    dialog.getControl<QCheckBox>(1003)->setChecked(true);

    const Language german(QStringLiteral("de"));
    QTRY_COMPARE(dialog.windowTitle(), QStringLiteral("de 107"));
    QCOMPARE(captions().join(QLatin1Char('|')),
             QString(expected).replace(QLatin1String("en"), QLatin1String("de")));
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

void TestBaseDialog::keysAndCloseNeverHideAPage()
{
    QMainWindow window;
    TestDialog* page = TestDialog::page(&window);
    window.setCentralWidget(page);
    page->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSignalSpy pressed(page->getControl<QPushButton>(1), &QPushButton::clicked);
    QSignalSpy finished(page, &QDialog::finished);

    page->getControl<QLineEdit>(1006)->setFocus();
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        QVERIFY(page->isVisible());
    }
    page->close();
    QVERIFY(page->isVisible());
    QCOMPARE(pressed.count(), 0);
    QTest::mouseClick(page->getControl<QPushButton>(2), Qt::LeftButton);
    QVERIFY(page->isVisible());
    QCOMPARE(finished.count(), 0);
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
