#include "pages/SelectPortDialog.h"

#include "pages/SerialPortComboBox.h"
#include "platform/core/Pacing.h"
#include "platform/core/UserFolders.h"
#include "support/Languages.h"
#include "support/MadeMachine.h"
#include "support/TestRegistry.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

QStringList entries(const QComboBox& list)
{
    QStringList texts;
    for (int index = 0; index < list.count(); ++index)
        texts << list.itemText(index);
    return texts;
}

} // namespace

class TestSelectPortDialog : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    /// What the desktop would show.
    void open(const QUrl& url) { m_opened << url.toLocalFile(); }

private Q_SLOTS:
    void initTestCase()
    {
        Pacing::setSpeeds({50, 1, 1});
        (void)QFile::remove(profilePath());
    }

    void currentPortIsKeptByCancel()
    {
        SelectPortDialog dialog(nullptr, 710, SelectPortDialog::Use::Change, m_devices);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        QCOMPARE(list.currentText(), u"COM710 - simulated, sensor?type=2"_s);
        QVERIFY(!dialog.getControl<QPushButton>(4)->isVisible());
        QTest::keyClick(&list, Qt::Key_End);
        QCOMPARE(m_languages.loadLanguage(2), 1);
        QTRY_COMPARE(list.currentText(), u"COM798 - simuliert, sensor?type=1"_s);
        QCOMPARE(m_languages.loadLanguage(1), 1);
        QTest::mouseClick(dialog.getControl<QPushButton>(2), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(dialog.selectedPort(), 710);
    }

    void openListFollowsWhatIsPluggedInAndOut()
    {
        SelectPortDialog dialog(nullptr, 0, SelectPortDialog::Use::Start, m_devices);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        auto& ok = *dialog.getControl<QPushButton>(1);
        const auto& state = *dialog.getControl<QLabel>(1003);
        const QStringList simulated = entries(list);
        QCOMPARE(simulated.size(), 2);
        QVERIFY(state.text().startsWith(u"No serial adapter is plugged in.") && !ok.isEnabled());
        QTest::mouseClick(&list, Qt::LeftButton);
        QVERIFY(m_machine.plugIn(u"ttyUSB1"_s, "FT232R"));
        const QString adapter = u"COM34 - ttyUSB1, FT232R, Maker, SN1"_s;
        QTRY_COMPARE(entries(list), QStringList(adapter) + simulated);
        QCOMPARE(list.currentText(), adapter);
        QVERIFY(state.text().isEmpty() && ok.isEnabled());

        QVERIFY(m_machine.plugIn(u"ttyUSB0"_s, "Other"));
        const QString other = u"COM33 - ttyUSB0, Other, Maker, SN1"_s;
        QTRY_COMPARE(entries(list), QStringList({other, adapter}) + simulated);
        const QSignalSpy looks(&list, &SerialPortComboBox::refreshed);
        QTRY_VERIFY(looks.size() > 10); // nobody has taken it
        m_machine.plugOut(u"ttyUSB1"_s);
        QTRY_COMPARE(state.text(),
                     adapter + u" is not there. Plug the adapter in, or choose another port."_s);
        QCOMPARE(entries(list), QStringList({other, adapter}) + simulated);
        list.selectPort(33);
        QTRY_COMPARE(entries(list), QStringList(other) + simulated);
        QVERIFY(m_machine.put(u"run/lock/LCK..ttyUSB0"_s, "77"));
        QTRY_COMPARE(state.text(), u"/dev/ttyUSB0 is in use by another program."_s);
        list.hidePopup();
        QTest::mouseClick(dialog.getControl<QPushButton>(4), Qt::LeftButton);
        QCOMPARE(dialog.result(), SelectPortDialog::kWithoutPort);
        m_machine.plugOut(u"ttyUSB0"_s);
    }

    void deviceThatVanishesAtOnceWasTakenByAnotherProgram()
    {
        Pacing::setSpeeds({5, 1, 1});
        SelectPortDialog dialog(nullptr, 0, SelectPortDialog::Use::Start, m_devices);
        dialog.show();
        const auto& state = *dialog.getControl<QLabel>(1003);
        QVERIFY(m_machine.plugIn(u"ttyUSB1"_s, "FT232R"));
        QTRY_VERIFY(state.text().isEmpty());
        m_machine.plugOut(u"ttyUSB1"_s);
        QTRY_VERIFY(state.text().startsWith(u"/dev/ttyUSB1 has vanished right after"));
        QVERIFY(m_machine.plugIn(u"ttyUSB2"_s, "FT232R"));
        QTRY_VERIFY(!state.text().contains(u"vanished"));
        m_machine.plugOut(u"ttyUSB2"_s);
        Pacing::setSpeeds({50, 1, 1});
    }

    void deviceWithoutANumberGetsOneWhenItIsChosen()
    {
        QVERIFY(m_machine.plugIn(u"ttyUSB40"_s, "Fortieth", u"usb-Fortieth"_s));
        SelectPortDialog dialog(nullptr, 710, SelectPortDialog::Use::Change, m_devices);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        QTest::keyClick(&list, Qt::Key_End);
        QCOMPARE(list.currentText(), u"new number - ttyUSB40, Fortieth, Maker, SN1"_s);
        QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
        QCOMPARE(dialog.selectedPort(), 100);
        QCOMPARE(ComPortNames().devicePath(u"COM100"_s), u"/dev/serial/by-id/usb-Fortieth"_s);
        m_machine.plugOut(u"ttyUSB40"_s);
    }

    void absentPortIsShownAndAnotherOneReturnedAfterOk()
    {
        SelectPortDialog dialog(nullptr, 705, SelectPortDialog::Use::Change, m_devices);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        QCOMPARE(list.currentText(), u"COM705"_s);
        QCOMPARE(entries(list).first(), u"COM705"_s);
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        QTest::mouseClick(dialog.getControl<QPushButton>(3), Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(u"file"_s);
        QVERIFY(m_opened.value(0).startsWith(u"/dev"_s) && QDir(m_opened.value(0)).exists());
        QVERIFY(m_opened.size() == 1 && dialog.isVisible());
        QTest::keyClick(&list, Qt::Key_End);
        QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.selectedPort(), 798);
    }

private:
    const MadeMachine m_machine;
    const SerialDevices m_devices{m_machine.root()};
    const TestRegistry m_settings{"[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                  "\"simulator:sensor?type=2\"=\"COM710\"\r\n"
                                  "\"simulator:sensor?type=1\"=\"COM798\"\r\n"};
    Languages m_languages{1};
    QStringList m_opened;
};

QTEST_MAIN(TestSelectPortDialog)
#include "TestSelectPortDialog.moc"
