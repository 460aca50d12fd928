#include "pages/SelectPortDialog.h"

#include "pages/SerialPortComboBox.h"
#include "support/Languages.h"
#include "support/ModalAnswer.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

/// Receives what the desktop would show.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

class TestSelectPortDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void presentPortsAreListedByNumberAndTheCurrentOneIsKeptByCancel();
    void absentPortIsShownAndAnotherOneReturnedAfterOk();
    void portPluggedInMeanwhileIsThereWhenTheListOpens();
    void changeOfLanguageKeepsTheChoice();
    void deviceManagerShowsTheDevicesAndLeavesTheDialogOpen();

private:
    [[nodiscard]] QString device(const char* name) const
    {
        return m_folder.filePath(QLatin1String(name));
    }

    [[nodiscard]] bool plugIn(const char* name) const
    {
        return QFile(device(name)).open(QIODevice::WriteOnly);
    }

    QTemporaryDir m_folder;
    Languages m_languages{1};
};

namespace {

SerialPortComboBox* portList(const SelectPortDialog& dialog)
{
    return dialog.getControl<SerialPortComboBox>(1001);
}

/// Goes through the list by the keyboard until a port is selected.
void choose(const SelectPortDialog& dialog, int port)
{
    SerialPortComboBox* const list = portList(dialog);
    QTest::keyClick(list, Qt::Key_Home);
    for (int step = 0; step < list->count() && list->getSelectedPort() != port; ++step)
        QTest::keyClick(list, Qt::Key_Down);
}

/// The ports of this test, numbered from 700 on; the machine may have others.
QStringList portsOfTest(const SelectPortDialog& dialog)
{
    QStringList texts;
    for (int index = 0; index < portList(dialog)->count(); ++index)
        texts << portList(dialog)->itemText(index);
    return texts.filter(QRegularExpression(QStringLiteral("^COM7\\d\\d")));
}

} // namespace

void TestSelectPortDialog::initTestCase()
{
    QFile settings(device("pelorin.reg"));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    const QByteArray text =
        QStringLiteral("Windows Registry Editor Version 5.00\r\n\r\n"
                       "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                       "\"%1\"=\"COM710\"\r\n"
                       "\"%2\"=\"COM702\"\r\n"
                       "\"%3\"=\"COM703\"\r\n"
                       "\"simulator:sensor?type=1\"=\"COM798\"\r\n")
            .arg(device("plugTen"), device("plugTwo"), device("plugLater"))
            .toUtf8();
    QCOMPARE(settings.write(text), text.size());
    QVERIFY(plugIn("plugTen"));
    QVERIFY(plugIn("plugTwo"));
    qputenv("PELORIN_REGISTRY", settings.fileName().toUtf8());
}

void TestSelectPortDialog::presentPortsAreListedByNumberAndTheCurrentOneIsKeptByCancel()
{
    SelectPortDialog dialog(nullptr, 710);
    ModalAnswer<SelectPortDialog> answer([](SelectPortDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Select Communications Port"));
        QCOMPARE(portList(shown)->currentText(), QStringLiteral("COM710 - plugTen"));
        QCOMPARE(
            portsOfTest(shown),
            QStringList({QStringLiteral("COM702 - plugTwo"), QStringLiteral("COM710 - plugTen"),
                         QStringLiteral("COM798 - simulated, sensor?type=1")}));
        choose(shown, 798);
        QCOMPARE(portList(shown)->getSelectedPort(), 798);
        QTest::mouseClick(shown.getControl<QPushButton>(2), Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(answer.wasShown());
    QCOMPARE(dialog.selectedPort(), 710);
}

void TestSelectPortDialog::absentPortIsShownAndAnotherOneReturnedAfterOk()
{
    SelectPortDialog dialog(nullptr, 705);
    ModalAnswer<SelectPortDialog> answer([](SelectPortDialog& shown) {
        QCOMPARE(portList(shown)->currentText(), QStringLiteral("COM705"));
        QCOMPARE(portList(shown)->getSelectedPort(), 705);
        QCOMPARE(portsOfTest(shown).value(1), QStringLiteral("COM705"));
        choose(shown, 798);
        QTest::mouseClick(shown.getControl<QPushButton>(1), Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answer.wasShown());
    QCOMPARE(dialog.selectedPort(), 798);
}

void TestSelectPortDialog::portPluggedInMeanwhileIsThereWhenTheListOpens()
{
    SelectPortDialog dialog(nullptr, 702);
    dialog.show();
    choose(dialog, 710);
    QVERIFY(plugIn("plugLater"));
    QTest::mouseClick(portList(dialog), Qt::LeftButton);
    portList(dialog)->hidePopup();
    QVERIFY(QFile::remove(device("plugLater")));

    QCOMPARE(portsOfTest(dialog).value(1), QStringLiteral("COM703 - plugLater"));
    QCOMPARE(portList(dialog)->getSelectedPort(), 710);
}

void TestSelectPortDialog::changeOfLanguageKeepsTheChoice()
{
    SelectPortDialog dialog(nullptr, 702);
    dialog.show();
    choose(dialog, 798);
    QCOMPARE(m_languages.loadLanguage(2), 1);
    QTRY_COMPARE(dialog.getControl<QPushButton>(2)->text(), QStringLiteral("Abbrechen"));
    const QString shown = portList(dialog)->currentText();
    QCOMPARE(m_languages.loadLanguage(1), 1);

    QCOMPARE(shown, QStringLiteral("COM798 - simuliert, sensor?type=1"));
    QCOMPARE(portList(dialog)->getSelectedPort(), 798);
}

void TestSelectPortDialog::deviceManagerShowsTheDevicesAndLeavesTheDialogOpen()
{
    const Desktop desktop;
    SelectPortDialog dialog(nullptr, 702);
    ModalAnswer<SelectPortDialog> answer([&desktop](SelectPortDialog& shown) {
        auto* button = shown.getControl<QPushButton>(3);
        QCOMPARE(button->text(), QStringLiteral("Device Manager"));
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(desktop.opened.size(), 1);
        QVERIFY(desktop.opened.first().toLocalFile().startsWith(QLatin1String("/dev")));
        QVERIFY(QDir(desktop.opened.first().toLocalFile()).exists());
        QVERIFY(shown.isVisible());
        shown.reject();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(answer.wasShown());
}

QTEST_MAIN(TestSelectPortDialog)
#include "TestSelectPortDialog.moc"
