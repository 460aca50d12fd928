#include "platform/ui/BaseDialog.h"

#include "platform/ui/ColorableTextBox.h"
#include "support/NumberedTexts.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The test form as a dialog or, inside a parent, as a page; tells in which order it was made.
class TestDialog : public BaseDialog
{
public:
    TestDialog() : BaseDialog(u"TEST_DIALOG"_s, nullptr) {}
    explicit TestDialog(QWidget* parent) { createFromForm(u"TEST_DIALOG"_s, parent); }

    void translate() override
    {
        made += u"translate "_s;
        BaseDialog::translate();
    }

    /// All that is translated.
    [[nodiscard]] QString captions() const
    {
        return QStringList{windowTitle(), getControl<QLabel>(1001)->text(),
                           getControl<QWidget>(1002)->property("title").toString(),
                           getControl<QWidget>(1005)->property("plainText").toString(),
                           getControl<QWidget>(1008)->accessibleName()}
            .join(u", "_s);
    }

    QString made;

protected:
    void setupTranslationMap() override
    {
        made += u"map "_s;
        setTitleString(107);
        for (const int id : {1001, 1002, 1005})
            addToTranslationMap(id, 200 + id);
        addAccessibleName(1008, 142);
    }

    void onInitDialog() override { made += isVisible() ? u"init too late "_s : u"init "_s; }
};

const QString kMade = u"map init translate "_s;

} // namespace

class TestBaseDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogIsMadeOnceAndEndedByItsButtonsAndKeys()
    {
        TestDialog dialog;
        QCOMPARE(dialog.made, QString());
        for (const auto& [control, key, result] :
             {std::tuple(1006, Qt::Key_Enter, 1), std::tuple(1006, Qt::Key_Escape, 0),
              std::tuple(1, Qt::Key_Space, 1), std::tuple(2, Qt::Key_Space, 0)}) {
            dialog.show();
            QCOMPARE(dialog.made, kMade);
            dialog.setResult(-1);
            QTest::keyClick(dialog.getControl<QWidget>(control), key);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.result(), result);
        }
    }

    void pageIsMadeOnceHiddenAndNeitherHiddenNorEndedByKeysAndClose()
    {
        QMainWindow window;
        window.resize(1200, 900);
        auto* page = new TestDialog(&window);
        auto* inner = new TestDialog(page);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!page->isVisible());
        page->show();
        QVERIFY(page->isVisible() && !page->isWindow());
        QCOMPARE(page->pos(), QPoint());
        QCOMPARE(page->made, kMade);

        const auto* button = page->getControl<QPushButton>(1);
        QCOMPARE(button->parentWidget(), page);
        QCOMPARE(inner->getControl<QPushButton>(1)->parentWidget(), inner);
        QCOMPARE(page->getControl<QPushButton>(4711), nullptr);
        QCOMPARE(page->getControl<QPushButton>(1001), nullptr);

        const QSignalSpy pressed(button, &QPushButton::clicked);
        const QSignalSpy finished(page, &QDialog::finished);
        for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
            QTest::keyClick(page->getControl<QLineEdit>(1006), key);
        page->close();
        QTest::mouseClick(page->getControl<QPushButton>(2), Qt::LeftButton);
        QVERIFY(page->isVisible() && pressed.isEmpty() && finished.isEmpty());
    }

    void captionsFollowTheLanguage()
    {
        NumberedTexts english(u"en"_s);
        NumberedTexts german(u"de"_s);
        QCoreApplication::installTranslator(&english);
        TestDialog dialog;
        dialog.show();
        QCOMPARE(dialog.captions(), u"en 107, en 1201, en 1202, en 1205, en 142"_s);
        QCoreApplication::installTranslator(&german);
        QCoreApplication::processEvents(); // delivers the change of language
        QCOMPARE(dialog.captions(), u"de 107, de 1201, de 1202, de 1205, de 142"_s);
    }

    void valueBoxShowsPlainTextInItsColours()
    {
        ColorableTextBox box(nullptr);
        box.foreColor(Qt::green);
        box.backColor(Qt::black);
        box.setText(u"<b>1</b>"_s);
        QVERIFY(box.sizeHint().width() >= box.fontMetrics().horizontalAdvance(box.text()));
        QCOMPARE(box.grab().toImage().pixelColor(0, 0), QColor(Qt::black));
        QCOMPARE(box.palette().color(box.foregroundRole()), QColor(Qt::green));
    }
};

QTEST_MAIN(TestBaseDialog)
#include "TestBaseDialog.moc"
