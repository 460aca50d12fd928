#include "platform/ui/MessageBox.h"

#include "support/ModalAnswer.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Buttons = QMessageBox::StandardButtons;

constexpr Buttons kOkCancel = QMessageBox::Ok | QMessageBox::Cancel;
constexpr Buttons kYesNo = QMessageBox::Yes | QMessageBox::No;
constexpr Buttons kRetryCancel = QMessageBox::Retry | QMessageBox::Cancel;
constexpr Buttons kAbortRetryIgnore = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;

} // namespace

class TestMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(QStringLiteral("Pelorin")); }
    void boxSaysTheTextAsItStands();
    void clickedButtonIsTheAnswer_data();
    void clickedButtonIsTheAnswer();
    void enterGoesOnAndEscapeDoesNothingMore_data();
    void enterGoesOnAndEscapeDoesNothingMore();
    void boxEndsWithItsParent();
    void shownMessageWaitsForNobody();
};

void TestMessageBox::boxSaysTheTextAsItStands()
{
    const QString text = QStringLiteral("<b>F</b> & \"P\" &amp;\n%1");
    ModalAnswer<QMessageBox> answer([&text](QMessageBox& box) {
        QCOMPARE(box.windowTitle(), QStringLiteral("Pelorin"));
        QCOMPARE(box.text(), text);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.icon(), QMessageBox::Warning);
        box.reject();
    });
    messageBox(nullptr, text, QMessageBox::Ok, QMessageBox::Warning);
    QVERIFY(answer.wasShown());
}

void TestMessageBox::clickedButtonIsTheAnswer_data()
{
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<QMessageBox::StandardButton>("clicked");
    QTest::newRow("OK") << Buttons(QMessageBox::Ok) << QMessageBox::Ok;
    QTest::newRow("OK of OK and Cancel") << kOkCancel << QMessageBox::Ok;
    QTest::newRow("Cancel of OK and Cancel") << kOkCancel << QMessageBox::Cancel;
    QTest::newRow("Yes of Yes and No") << kYesNo << QMessageBox::Yes;
    QTest::newRow("No of Yes and No") << kYesNo << QMessageBox::No;
    QTest::newRow("Retry of Retry and Cancel") << kRetryCancel << QMessageBox::Retry;
    QTest::newRow("Cancel of Retry and Cancel") << kRetryCancel << QMessageBox::Cancel;
    QTest::newRow("Abort of three") << kAbortRetryIgnore << QMessageBox::Abort;
    QTest::newRow("Retry of three") << kAbortRetryIgnore << QMessageBox::Retry;
    QTest::newRow("Ignore of three") << kAbortRetryIgnore << QMessageBox::Ignore;
}

void TestMessageBox::clickedButtonIsTheAnswer()
{
    QFETCH(Buttons, buttons);
    QFETCH(QMessageBox::StandardButton, clicked);
    ModalAnswer<QMessageBox> answer([buttons, clicked](QMessageBox& box) {
        QCOMPARE(box.standardButtons(), buttons);
        QTest::mouseClick(box.button(clicked), Qt::LeftButton);
    });
    QCOMPARE(messageBox(nullptr, QStringLiteral("?"), buttons, QMessageBox::Question), clicked);
    QVERIFY(answer.wasShown());
}

void TestMessageBox::enterGoesOnAndEscapeDoesNothingMore_data()
{
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<QMessageBox::StandardButton>("enter");
    QTest::addColumn<QMessageBox::StandardButton>("escape");
    QTest::newRow("OK") << Buttons(QMessageBox::Ok) << QMessageBox::Ok << QMessageBox::Ok;
    QTest::newRow("OK and Cancel") << kOkCancel << QMessageBox::Ok << QMessageBox::Cancel;
    QTest::newRow("Yes and No") << kYesNo << QMessageBox::Yes << QMessageBox::No;
    QTest::newRow("Retry and Cancel") << kRetryCancel << QMessageBox::Retry << QMessageBox::Cancel;
    QTest::newRow("Abort, Retry and Ignore")
        << kAbortRetryIgnore << QMessageBox::Retry << QMessageBox::Abort;
}

void TestMessageBox::enterGoesOnAndEscapeDoesNothingMore()
{
    QFETCH(Buttons, buttons);
    QFETCH(QMessageBox::StandardButton, enter);
    QFETCH(QMessageBox::StandardButton, escape);

    const auto answerWith = [buttons](const std::function<void(QMessageBox&)>& steps) {
        const ModalAnswer<QMessageBox> answer(steps);
        return messageBox(nullptr, QStringLiteral("?"), buttons, QMessageBox::Question);
    };
    QCOMPARE(answerWith([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Enter); }), enter);
    QCOMPARE(answerWith([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), escape);
    QCOMPARE(answerWith([](QMessageBox& box) { box.close(); }), escape);
}

void TestMessageBox::boxEndsWithItsParent()
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    const ModalAnswer<QMessageBox> answer([&parent](QMessageBox&) { parent.reset(); });
    QCOMPARE(messageBox(parent.get(), QStringLiteral("?"), kYesNo, QMessageBox::Question),
             QMessageBox::No);
    QVERIFY(!parent);
}

void TestMessageBox::shownMessageWaitsForNobody()
{
    QWidget parent;
    parent.show();
    const QString text = QStringLiteral("<b>Error = 19</b>");
    const QPointer<QMessageBox> box = showMessageBox(&parent, text, QMessageBox::Warning);
    QCOMPARE(QApplication::activeModalWidget(), box.data());
    QCOMPARE(box->windowTitle(), QStringLiteral("Pelorin"));
    QCOMPARE(box->text(), text);
    QCOMPARE(box->textFormat(), Qt::PlainText);
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    QTRY_VERIFY(!box);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestMessageBox)
#include "TestMessageBox.moc"
