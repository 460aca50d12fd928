#include "platform/ui/MessageBox.h"

#include "support/ModalAnswer.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Button = QMessageBox::StandardButton;
using Buttons = QMessageBox::StandardButtons;

const QString kText = QStringLiteral("<b>F</b> & \"P\" &amp;\n%1");

void compareTexts(const QMessageBox& box)
{
    QCOMPARE(box.windowTitle(), QStringLiteral("Pelorin"));
    QCOMPARE(box.text(), kText);
    QCOMPARE(box.textFormat(), Qt::PlainText);
    QCOMPARE(box.icon(), QMessageBox::Warning);
}

/// The answer to a box on which the steps are done.
Button answered(Buttons buttons, std::function<void(QMessageBox&)> steps)
{
    const ModalAnswer<QMessageBox> answer(std::move(steps));
    return messageBox(nullptr, kText, buttons, QMessageBox::Warning);
}

} // namespace

class TestMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(QStringLiteral("Pelorin")); }
    void answerIsTheButtonClickedOrMeant_data();
    void answerIsTheButtonClickedOrMeant();
    void boxEndsWithItsParent();
    void shownMessageWaitsForNobody();
};

void TestMessageBox::answerIsTheButtonClickedOrMeant_data()
{
    QTest::addColumn<QList<Button>>("buttons");
    QTest::addColumn<Button>("enter");
    QTest::addColumn<Button>("escape");
    const auto row = [](const char* title, const QList<Button>& buttons, Button enter,
                        Button escape) { QTest::newRow(title) << buttons << enter << escape; };
    using Box = QMessageBox;
    row("OK", {Box::Ok}, Box::Ok, Box::Ok);
    row("OK and Cancel", {Box::Ok, Box::Cancel}, Box::Ok, Box::Cancel);
    row("Yes and No", {Box::Yes, Box::No}, Box::Yes, Box::No);
    row("Retry and Cancel", {Box::Retry, Box::Cancel}, Box::Retry, Box::Cancel);
    row("Abort, Retry and Ignore", {Box::Abort, Box::Retry, Box::Ignore}, Box::Retry, Box::Abort);
}

void TestMessageBox::answerIsTheButtonClickedOrMeant()
{
    QFETCH(QList<Button>, buttons);
    QFETCH(Button, enter);
    QFETCH(Button, escape);
    Buttons all;
    for (const Button button : buttons)
        all |= button;

    for (const Button button : buttons) {
        const auto click = [button, all](QMessageBox& box) {
            compareTexts(box);
            QCOMPARE(box.standardButtons(), all);
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        };
        QCOMPARE(answered(all, click), button);
    }
    QCOMPARE(answered(all, [](auto& box) { QTest::keyClick(&box, Qt::Key_Enter); }), enter);
    QCOMPARE(answered(all, [](auto& box) { QTest::keyClick(&box, Qt::Key_Escape); }), escape);
    QCOMPARE(answered(all, [](auto& box) { box.close(); }), escape);
}

void TestMessageBox::boxEndsWithItsParent()
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    const ModalAnswer<QMessageBox> answer([&parent](QMessageBox&) { parent.reset(); });
    QCOMPARE(
        messageBox(parent.get(), kText, QMessageBox::Yes | QMessageBox::No, QMessageBox::Question),
        QMessageBox::No);
    QVERIFY(!parent);
}

void TestMessageBox::shownMessageWaitsForNobody()
{
    QWidget parent;
    parent.show();
    const QPointer<QMessageBox> box = showMessageBox(&parent, kText, QMessageBox::Warning);
    QCOMPARE(QApplication::activeModalWidget(), box.data());
    compareTexts(*box);
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    QTRY_VERIFY(!box);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestMessageBox)
#include "TestMessageBox.moc"
