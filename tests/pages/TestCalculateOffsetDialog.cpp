#include "pages/CalculateOffsetDialog.h"

#include "support/Languages.h"
#include "support/ModalAnswer.h"
#include "support/TestRegistry.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <limits>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

constexpr int kSeDistance = 1031;
constexpr int kStroke = 1033;
constexpr int kDeadZone = 1037;

/// A package of the settings.
/// @param values lines such as "Name"="Rod"
QByteArray package(int number, const QByteArray& values)
{
    return "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Package Parameters\\Package" +
           QByteArray::number(number) + "]\r\n" + values + "\r\n";
}

QByteArray package(int number, const char* name, const char* seDistance, const char* inactiveZone)
{
    return package(number, QByteArrayLiteral("\"Name\"=\"") + name + "\"\r\n\"SEDistance\"=\"" +
                               seDistance + "\"\r\n\"InactiveZone\"=\"" + inactiveZone + "\"");
}

/// The dialog, used as a user uses it.
struct Rig
{
    explicit Rig(bool reverse, double stroke = 0) : dialog(nullptr, reverse, stroke)
    {
        dialog.show();
    }

    QLineEdit* edit(int id) { return dialog.getControl<QLineEdit>(id); }
    QComboBox* packages() { return dialog.getControl<QComboBox>(1041); }
    void press(int id) { QTest::mouseClick(dialog.getControl<QPushButton>(id), Qt::LeftButton); }

    /// Replaces an entry, where the dialog lets the user do so.
    void enter(int id, const QString& text)
    {
        edit(id)->selectAll();
        if (edit(id)->isEnabled())
            QTest::keyClick(edit(id), Qt::Key_Delete);
        if (edit(id)->isEnabled())
            QTest::keyClicks(edit(id), text);
    }

    /// Goes down the list of packages by the keyboard.
    void choose(const QString& name)
    {
        QTest::keyClick(packages(), Qt::Key_Home);
        for (int step = 1; step < packages()->count() && packages()->currentText() != name; ++step)
            QTest::keyClick(packages(), Qt::Key_Down);
    }

    /// The SE distance, the stroke length and the dead zone.
    QString entries()
    {
        return edit(kSeDistance)->text() + QLatin1Char(' ') + edit(kStroke)->text() +
               QLatin1Char(' ') + edit(kDeadZone)->text();
    }

    CalculateOffsetDialog dialog;
};

} // namespace

class TestCalculateOffsetDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void offsetFollowsFromTheEntries_data();
    void offsetFollowsFromTheEntries();
    void missingEntryIsAskedFor();
    void directionDecidesWhatIsEntered();
    void packagesAreOfferedUpToTheFirstGap();
    void chosenPackageFillsTheDistances();
    void languageKeepsTheEntriesAndCancelCalculatesNothing();

private:
    Languages m_languages{1};
};

void TestCalculateOffsetDialog::offsetFollowsFromTheEntries_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QString>("entries"); // SE distance, stroke, dead zone
    QTest::addColumn<double>("offset");
    const auto row = [](const char* name, const QLocale& locale, bool reverse, const char* entries,
                        double offset) {
        QTest::newRow(name) << locale << reverse << QString::fromLatin1(entries) << offset;
    };
    const QLocale english = QLocale::c();
    const QLocale german(QLocale::German, QLocale::Germany);
    row("forward", english, false, "50.8|1000|63.5", -50.8);
    row("forward with the SE distance alone", english, false, "50.8||", -50.8);
    row("reverse", english, true, "50.8|1000|63.5", 1114.3);
    row("point where a comma is usual", german, true, "50.8|1000.0|63.5", 1114.3);
    row("comma where it is usual", german, true, "50,8|1000,0|63,5", 1114.3);
    row("comma where it is not usual", english, false, "50,8||", kNan);
    row("SE distance no number", english, true, "50mm|1000|63.5", kNan);
    row("stroke no number", english, true, "50.8|1.000.0|63.5", kNan);
    row("dead zone no number", english, true, "50.8|1000|-", kNan);
    row("negative distance", english, false, "-3||", 3.0);
}

void TestCalculateOffsetDialog::offsetFollowsFromTheEntries()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, reverse);
    QFETCH(QString, entries);
    QLocale::setDefault(locale);
    Rig rig(reverse, 700);
    const QStringList texts = entries.split(QLatin1Char('|'));
    rig.enter(kSeDistance, texts[0]);
    rig.enter(kStroke, texts[1]);
    rig.enter(kDeadZone, texts[2]);
    rig.press(1);
    QCOMPARE(rig.dialog.result(), int(QDialog::Accepted));
    QTEST(rig.dialog.offset(), "offset");
}

void TestCalculateOffsetDialog::missingEntryIsAskedFor()
{
    for (const auto& [reverse, filled, missing] :
         {std::tuple(false, QList<int>{}, kSeDistance),
          std::tuple(true, QList<int>{kSeDistance}, kStroke),
          std::tuple(true, QList<int>{kSeDistance, kStroke}, kDeadZone),
          std::tuple(true, QList<int>{kStroke, kDeadZone}, kSeDistance)}) {
        Rig rig(reverse);
        QVERIFY(QTest::qWaitForWindowActive(&rig.dialog));
        for (const int id : filled)
            rig.enter(id, QStringLiteral("1"));
        QString message;
        const ModalAnswer<QMessageBox> answer([&message](QMessageBox& box) {
            message = box.text();
            box.accept();
        });
        rig.press(1);
        QCOMPARE(message, QStringLiteral("A value is missing. Please complete it first."));
        QVERIFY(rig.dialog.isVisible());
        QTRY_COMPARE(rig.dialog.focusWidget(), rig.edit(missing));
    }
}

void TestCalculateOffsetDialog::directionDecidesWhatIsEntered()
{
    for (const bool reverse : {false, true}) {
        Rig rig(reverse, reverse ? 1012.34 : 0);
        QVERIFY(rig.edit(kSeDistance)->isEnabled());
        QCOMPARE(rig.edit(kStroke)->isEnabled(), reverse);
        QCOMPARE(rig.edit(kDeadZone)->isEnabled(), reverse);
        QCOMPARE(rig.dialog.focusWidget(), rig.edit(kSeDistance));
        QCOMPARE(rig.entries(), QString::fromLatin1(reverse ? " 1012.3 " : "  "));
    }
}

/// One of the same name replaces the earlier one.
void TestCalculateOffsetDialog::packagesAreOfferedUpToTheFirstGap()
{
    const TestRegistry settings(
        package(0, "Rod", "50.8", "63.5") + package(1, "Profile", "28.0", "82.0") +
        package(2, "Rod", "30.0", "60.0") + package(4, "Behind the gap", "1.0", "2.0"));
    Rig rig(true);
    QCOMPARE(rig.packages()->count(), 2);
    QCOMPARE(rig.packages()->itemText(0), QStringLiteral("Profile"));
    QCOMPARE(rig.packages()->currentIndex(), -1);
    rig.choose(QStringLiteral("Rod"));
    QCOMPARE(rig.entries(), QStringLiteral("30.000  60.000"));

    settings.write(package(0, "rod", "1.0", "2.0")); // the list is older
    rig.choose(QStringLiteral("Profile"));
    rig.choose(QStringLiteral("Rod"));
    QCOMPARE(rig.entries(), QStringLiteral("30.000  60.000"));
    settings.write(package(1, "Not the first", "1.0", "2.0"));
    QCOMPARE(Rig(false).packages()->count(), 0);
}

/// Also in the forward direction, in which the dead zone cannot be edited.
void TestCalculateOffsetDialog::chosenPackageFillsTheDistances()
{
    for (const auto& [settings, entries] :
         {std::pair(package(0, "Rod", "  50.8", "+63.5"), "50.800 1000.0 63.500"),
          std::pair(package(0, "Rod", "50.8mm", "63,5"), "50.800 1000.0 63.000"),
          std::pair(package(0, "Rod", "long", ""), "0.000 1000.0 0.000"),
          std::pair(package(0, "\"Name\"=\"Rod\""), "0.000 1000.0 0.000"),
          std::pair(package(0, "\"SEDistance\"=\"50.8\""), "50.800 1000.0 0.000")}) {
        const TestRegistry registry(settings);
        for (const bool reverse : {false, true}) {
            Rig rig(reverse, 1000);
            QTest::keyClick(rig.packages(), Qt::Key_Home);
            QCOMPARE(rig.entries(), QString::fromLatin1(entries));
        }
    }
}

void TestCalculateOffsetDialog::languageKeepsTheEntriesAndCancelCalculatesNothing()
{
    const TestRegistry settings(package(0, "Rod", "50.8", "63.5"));
    Rig rig(true, 1000);
    rig.choose(QStringLiteral("Rod"));
    QCOMPARE(m_languages.loadLanguage(2), 1);
    QTRY_COMPARE(rig.dialog.windowTitle(), QStringLiteral("Offset berechnen"));
    QCOMPARE(m_languages.loadLanguage(1), 1);
    QCOMPARE(rig.packages()->currentText(), QStringLiteral("Rod"));
    QCOMPARE(rig.entries(), QStringLiteral("50.800 1000.0 63.500"));
    rig.press(2);
    QVERIFY(!rig.dialog.isVisible());
    QCOMPARE(rig.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(rig.dialog.offset(), 0.0);
}

QTEST_MAIN(TestCalculateOffsetDialog)
#include "TestCalculateOffsetDialog.moc"
