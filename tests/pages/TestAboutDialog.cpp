#include "pages/AboutDialog.h"

#include "support/Languages.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

class TestAboutDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameVersionAndIconAreShownInEveryLanguage_data();
    void nameVersionAndIconAreShownInEveryLanguage();
};

void TestAboutDialog::nameVersionAndIconAreShownInEveryLanguage_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << 1 << QStringLiteral("About Pelorin");
    QTest::newRow("German") << 2 << QStringLiteral("Über Pelorin");
}

void TestAboutDialog::nameVersionAndIconAreShownInEveryLanguage()
{
    QFETCH(int, code);
    QFETCH(QString, title);
    const Languages languages(code);

    AboutDialog dialog(nullptr);
    ModalAnswer<AboutDialog> answer([&title](AboutDialog& shown) {
        QCOMPARE(shown.windowTitle(), title);
        QVERIFY(shown.getControl<QPushButton>(1)->hasFocus());
        for (const auto& [id, text] : {std::pair(1038, "Pelorin"), std::pair(1039, "1.06")}) {
            auto* edit = shown.getControl<QLineEdit>(id);
            QTest::keyClicks(edit, QStringLiteral("x"));
            QCOMPARE(edit->text(), QLatin1String(text));
            QCOMPARE(edit->alignment(), Qt::AlignCenter);
        }
        QVERIFY(!shown.getControl<QLabel>(1040)->pixmap(Qt::ReturnByValue).isNull());
        QTest::mouseClick(shown.getControl<QPushButton>(1), Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answer.wasShown());
}

QTEST_MAIN(TestAboutDialog)
#include "TestAboutDialog.moc"
