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

#include <cmath>
#include <limits>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

constexpr int kSeDistance = 1031;
constexpr int kStroke = 1033;
constexpr int kDeadZone = 1037;

/// A package of the settings; a null text leaves its value out.
QByteArray package(int number, const char* name, const char* seDistance, const char* inactiveZone)
{
    QByteArray text = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Package Parameters"
                      "\\Package" +
                      QByteArray::number(number) + "]\r\n";
    const auto value = [&text](const char* key, const char* content) {
        if (content)
            text += QByteArrayLiteral("\"") + key + "\"=\"" + content + "\"\r\n";
    };
    value("Name", name);
    value("SEDistance", seDistance);
    value("InactiveZone", inactiveZone);
    return text;
}

QLineEdit* edit(const CalculateOffsetDialog& dialog, int id)
{
    return dialog.getControl<QLineEdit>(id);
}

QComboBox* packages(const CalculateOffsetDialog& dialog)
{
    return dialog.getControl<QComboBox>(1041);
}

/// Replaces an entry as a user does, where the dialog lets him.
void enter(const CalculateOffsetDialog& dialog, int id, const QString& text)
{
    if (!edit(dialog, id)->isEnabled())
        return;
    QTest::keyClick(edit(dialog, id), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit(dialog, id), Qt::Key_Delete);
    QTest::keyClicks(edit(dialog, id), text);
}

void press(const CalculateOffsetDialog& dialog, int id)
{
    QTest::mouseClick(dialog.getControl<QPushButton>(id), Qt::LeftButton);
}

/// Goes down the list of packages by the keyboard.
void choosePackage(const CalculateOffsetDialog& dialog, const QString& name)
{
    QTest::keyClick(packages(dialog), Qt::Key_Home);
    for (int step = 1; step < packages(dialog)->count(); ++step)
        if (packages(dialog)->currentText() != name)
            QTest::keyClick(packages(dialog), Qt::Key_Down);
}

QStringList packageNames(const CalculateOffsetDialog& dialog)
{
    QStringList names;
    for (int index = 0; index < packages(dialog)->count(); ++index)
        names << packages(dialog)->itemText(index);
    return names;
}

} // namespace

class TestCalculateOffsetDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void offsetFollowsFromTheEntries_data();
    void offsetFollowsFromTheEntries();
    void missingEntryIsAskedFor_data();
    void missingEntryIsAskedFor();
    void strokeLengthGivenIsShown_data();
    void strokeLengthGivenIsShown();
    void onlyTheReverseDirectionNeedsStrokeAndDeadZone();
    void packagesAreOfferedUpToTheFirstGap();
    void withoutPackagesTheListIsEmpty();
    void laterPackageOfTheSameNameCounts();
    void chosenPackageFillsTheDistances_data();
    void chosenPackageFillsTheDistances();
    void packageGoneMeanwhileChangesNothing();
    void cancelCalculatesNothing();
    void changeOfLanguageKeepsTheEntries();

private:
    Languages m_languages{1};
};

void TestCalculateOffsetDialog::offsetFollowsFromTheEntries_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<double>("offset");
    const auto row = [](const char* name, const QLocale& locale, bool reverse,
                        const QStringList& entries, double offset) {
        QTest::newRow(name) << locale << reverse << entries << offset;
    };
    const auto list = [](const char* seDistance, const char* stroke, const char* deadZone) {
        return QStringList{QLatin1String(seDistance), QLatin1String(stroke),
                           QLatin1String(deadZone)};
    };
    const QLocale english = QLocale::c();
    const QLocale german(QLocale::German, QLocale::Germany);
    row("forward", english, false, list("50.8", "1000", "63.5"), -50.8);
    row("forward with the SE distance alone", english, false, list("50.8", "", ""), -50.8);
    row("reverse", english, true, list("50.8", "1000", "63.5"), 1114.3);
    row("point where a comma is usual", german, true, list("50.8", "1000.0", "63.5"), 1114.3);
    row("comma where it is usual", german, true, list("50,8", "1000,0", "63,5"), 1114.3);
    row("comma where it is not usual", english, false, list("50,8", "", ""), kNan);
    row("SE distance no number", english, true, list("50mm", "1000", "63.5"), kNan);
    row("stroke no number", english, true, list("50.8", "1.000.0", "63.5"), kNan);
    row("dead zone no number", english, true, list("50.8", "1000", "-"), kNan);
    row("negative distance", english, false, list("-3", "", ""), 3.0);
}

void TestCalculateOffsetDialog::offsetFollowsFromTheEntries()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, reverse);
    QFETCH(QStringList, entries);
    QFETCH(double, offset);
    QLocale::setDefault(locale);
    CalculateOffsetDialog dialog(nullptr, reverse, 700);
    ModalAnswer<CalculateOffsetDialog> answer([&entries](CalculateOffsetDialog& shown) {
        enter(shown, kSeDistance, entries[0]);
        enter(shown, kStroke, entries[1]);
        enter(shown, kDeadZone, entries[2]);
        press(shown, 1);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.offset(), offset);
}

void TestCalculateOffsetDialog::missingEntryIsAskedFor_data()
{
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QList<int>>("filled");
    QTest::addColumn<int>("missing");
    QTest::newRow("forward") << false << QList<int>{} << kSeDistance;
    QTest::newRow("reverse, all") << true << QList<int>{} << kSeDistance;
    QTest::newRow("reverse, stroke and dead zone") << true << QList<int>{kSeDistance} << kStroke;
    QTest::newRow("reverse, dead zone") << true << QList<int>{kSeDistance, kStroke} << kDeadZone;
    QTest::newRow("reverse, SE distance") << true << QList<int>{kStroke, kDeadZone} << kSeDistance;
}

void TestCalculateOffsetDialog::missingEntryIsAskedFor()
{
    QFETCH(bool, reverse);
    QFETCH(QList<int>, filled);
    QFETCH(int, missing);
    CalculateOffsetDialog dialog(nullptr, reverse, 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (const int id : filled)
        enter(dialog, id, QStringLiteral("1"));

    QString message;
    ModalAnswer<QMessageBox> answer([&message](QMessageBox& box) {
        message = box.text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    press(dialog, 1);
    QCOMPARE(message, QStringLiteral("A value is missing. Please complete it first."));
    QVERIFY(dialog.isVisible());
    QTRY_COMPARE(dialog.focusWidget(), edit(dialog, missing));
}

void TestCalculateOffsetDialog::strokeLengthGivenIsShown_data()
{
    QTest::addColumn<double>("stroke");
    QTest::addColumn<QString>("text");
    QTest::newRow("known") << 1000.0 << QStringLiteral("1000.0");
    QTest::newRow("with a fraction") << 12.34 << QStringLiteral("12.3");
    QTest::newRow("not known") << 0.0 << QString();
}

void TestCalculateOffsetDialog::strokeLengthGivenIsShown()
{
    QFETCH(double, stroke);
    CalculateOffsetDialog dialog(nullptr, true, stroke);
    dialog.show();
    QTEST(edit(dialog, kStroke)->text(), "text");
    QCOMPARE(edit(dialog, kSeDistance)->text(), QString());
    QCOMPARE(edit(dialog, kDeadZone)->text(), QString());
}

void TestCalculateOffsetDialog::onlyTheReverseDirectionNeedsStrokeAndDeadZone()
{
    for (const bool reverse : {false, true}) {
        CalculateOffsetDialog dialog(nullptr, reverse, 1000);
        dialog.show();
        QVERIFY(edit(dialog, kSeDistance)->isEnabled());
        QCOMPARE(edit(dialog, kStroke)->isEnabled(), reverse);
        QCOMPARE(edit(dialog, kDeadZone)->isEnabled(), reverse);
        QCOMPARE(dialog.focusWidget(), edit(dialog, kSeDistance));
    }
}

void TestCalculateOffsetDialog::packagesAreOfferedUpToTheFirstGap()
{
    const TestRegistry settings(package(0, "Rod", "50.8", "63.5") +
                                package(1, "Profile", "28.0", "82.0") +
                                package(3, "Behind the gap", "1.0", "2.0"));
    CalculateOffsetDialog dialog(nullptr, false, 0);
    dialog.show();
    QCOMPARE(packageNames(dialog), QStringList({QStringLiteral("Profile"), QStringLiteral("Rod")}));
    QCOMPARE(packages(dialog)->currentIndex(), -1);
}

void TestCalculateOffsetDialog::withoutPackagesTheListIsEmpty()
{
    const TestRegistry settings(package(1, "Not the first", "1.0", "2.0"));
    CalculateOffsetDialog dialog(nullptr, false, 0);
    dialog.show();
    QCOMPARE(packageNames(dialog), QStringList());
}

void TestCalculateOffsetDialog::laterPackageOfTheSameNameCounts()
{
    const TestRegistry settings(package(0, "Rod", "50.8", "63.5") +
                                package(1, "rod", "11.0", "12.0") +
                                package(2, "Rod", "30.0", "60.0"));
    CalculateOffsetDialog dialog(nullptr, true, 0);
    dialog.show();
    QCOMPARE(packages(dialog)->count(), 2);
    choosePackage(dialog, QStringLiteral("Rod"));
    QCOMPARE(edit(dialog, kSeDistance)->text(), QStringLiteral("30.000"));
    QCOMPARE(edit(dialog, kDeadZone)->text(), QStringLiteral("60.000"));
    choosePackage(dialog, QStringLiteral("rod"));
    QCOMPARE(edit(dialog, kSeDistance)->text(), QStringLiteral("11.000"));
}

void TestCalculateOffsetDialog::chosenPackageFillsTheDistances_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("seDistance");
    QTest::addColumn<QString>("deadZone");
    const auto row = [](const char* name, const QByteArray& settings, const char* seDistance,
                        const char* deadZone) {
        QTest::newRow(name) << settings << QString::fromLatin1(seDistance)
                            << QString::fromLatin1(deadZone);
    };
    row("whole", package(0, "Rod", "50.8", "63.5"), "50.800", "63.500");
    row("blank or sign in front", package(0, "Rod", "  50.8", "+63.5"), "50.800", "63.500");
    row("unit behind", package(0, "Rod", "50.8mm", "63,5"), "50.800", "63.000");
    row("no numbers", package(0, "Rod", "long", ""), "0.000", "0.000");
    row("values missing", package(0, "Rod", nullptr, nullptr), "0.000", "0.000");
    row("no name", package(0, nullptr, "50.8", "63.5"), "50.800", "63.500");
}

/// Also in the forward direction, in which the dead zone cannot be edited.
void TestCalculateOffsetDialog::chosenPackageFillsTheDistances()
{
    QFETCH(QByteArray, settings);
    const TestRegistry registry(settings);
    for (const bool reverse : {false, true}) {
        CalculateOffsetDialog dialog(nullptr, reverse, 1000);
        dialog.show();
        QTest::keyClick(packages(dialog), Qt::Key_Home);
        QTEST(edit(dialog, kSeDistance)->text(), "seDistance");
        QTEST(edit(dialog, kDeadZone)->text(), "deadZone");
        QCOMPARE(edit(dialog, kStroke)->text(), QStringLiteral("1000.0"));
    }
}

void TestCalculateOffsetDialog::packageGoneMeanwhileChangesNothing()
{
    const TestRegistry settings(package(0, "Rod", "50.8", "63.5"));
    CalculateOffsetDialog dialog(nullptr, false, 0);
    dialog.show();
    enter(dialog, kSeDistance, QStringLiteral("7"));
    settings.write(package(0, "Profile", "28.0", "82.0"));
    choosePackage(dialog, QStringLiteral("Rod"));
    QCOMPARE(packages(dialog)->currentText(), QStringLiteral("Rod"));
    QCOMPARE(edit(dialog, kSeDistance)->text(), QStringLiteral("7"));
}

void TestCalculateOffsetDialog::cancelCalculatesNothing()
{
    CalculateOffsetDialog dialog(nullptr, false, 0);
    ModalAnswer<CalculateOffsetDialog> answer([](CalculateOffsetDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Calculate Offset"));
        enter(shown, kSeDistance, QStringLiteral("50.8"));
        press(shown, 2);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.offset(), 0.0);
}

void TestCalculateOffsetDialog::changeOfLanguageKeepsTheEntries()
{
    const TestRegistry settings(package(0, "Rod", "50.8", "63.5"));
    CalculateOffsetDialog dialog(nullptr, true, 1000);
    dialog.show();
    choosePackage(dialog, QStringLiteral("Rod"));
    enter(dialog, kStroke, QStringLiteral("700"));
    QCOMPARE(m_languages.loadLanguage(2), 1);
    QTRY_COMPARE(dialog.windowTitle(), QStringLiteral("Offset berechnen"));
    QCOMPARE(m_languages.loadLanguage(1), 1);

    QCOMPARE(packages(dialog)->currentText(), QStringLiteral("Rod"));
    QCOMPARE(edit(dialog, kSeDistance)->text(), QStringLiteral("50.800"));
    QCOMPARE(edit(dialog, kStroke)->text(), QStringLiteral("700"));
}

QTEST_MAIN(TestCalculateOffsetDialog)
#include "TestCalculateOffsetDialog.moc"
