#include "platform/ui/MessageBox.h"

#include "support/ModalAnswer.h"
#include "support/Rows.h"

#include <QPointer>
#include <QPushButton>

#include <memory>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

using Box = QMessageBox;

namespace {

const QString kText = u"<b>F</b> & \"P\" &amp;\n%1"_s;

/// The answer to a box on which the steps are done.
Box::StandardButton answered(Box::StandardButtons buttons, std::function<void(Box&)> steps)
{
    const ModalAnswer<Box> answer(std::move(steps));
    return messageBox(nullptr, kText, buttons, Box::Warning);
}

} // namespace

class TestMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Pelorin"_s); }

    void answerIsTheButtonClickedOrMeant()
    {
        struct Row
        {
            const char* name;
            Box::StandardButtons buttons;
            Box::StandardButton enter;
            Box::StandardButton escape;
        };
        forEachRow(std::vector<Row>{{"OK", Box::Ok, Box::Ok, Box::Ok},
                                    {"OK and Cancel", Box::Ok | Box::Cancel, Box::Ok, Box::Cancel},
                                    {"Yes and No", Box::Yes | Box::No, Box::Yes, Box::No},
                                    {"Abort", Box::Abort | Box::Retry | Box::Ignore, Box::Retry,
                                     Box::Abort}},
                   [](const auto& row) {
                       const auto enter = [](Box& box) { QTest::keyClick(&box, Qt::Key_Enter); };
                       const auto escape = [](Box& box) { QTest::keyClick(&box, Qt::Key_Escape); };
                       QCOMPARE(answered(row.buttons, enter), row.enter);
                       QCOMPARE(answered(row.buttons, escape), row.escape);
                       QCOMPARE(answered(row.buttons, [](Box& box) { box.close(); }), row.escape);
                   });
    }

    void boxEndsWithItsParent()
    {
        auto parent = std::make_unique<QWidget>();
        parent->show();
        const ModalAnswer<Box> answer([&parent](Box&) { parent.reset(); });
        QCOMPARE(messageBox(parent.get(), kText, Box::Yes | Box::No, Box::Question), Box::No);
    }

    void shownMessageIsPlainTextAndWaitsForNobody()
    {
        QWidget parent;
        parent.show();
        const QPointer<Box> box = showMessageBox(&parent, kText, Box::Warning);
        QCOMPARE(QApplication::activeModalWidget(), box.data());
        QCOMPARE(box->windowTitle(), u"Pelorin"_s);
        QCOMPARE(box->text(), kText);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->icon(), Box::Warning);
        QTest::mouseClick(box->button(Box::Ok), Qt::LeftButton);
        QTRY_VERIFY(!box);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestMessageBox)
#include "TestMessageBox.moc"
