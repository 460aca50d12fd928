#include "pages/SelectPortDialog.h"

#include "pages/SerialPortComboBox.h"
#include "support/Languages.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QDesktopServices>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

/// The last ports of the list; the machine may have others before them.
QStringList lastPorts(const QComboBox& list, int count)
{
    QStringList texts;
    for (int index = list.count() - count; index < list.count(); ++index)
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
    void currentPortIsKeptByCancel()
    {
        SelectPortDialog dialog(nullptr, 710);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        QCOMPARE(list.currentText(), u"COM710 - simulated, sensor?type=2"_s);
        QTest::keyClick(&list, Qt::Key_End);
        QCOMPARE(m_languages.loadLanguage(2), 1);
        const QStringList german{u"COM798 - simuliert, sensor?type=1"_s};
        QVERIFY(waitFor([&] { return lastPorts(list, 1) == german; }));
        QCOMPARE(m_languages.loadLanguage(1), 1);

        QVERIFY(m_folder.put(u"plug"_s, {})); // is there when the list opens
        QTest::mouseClick(&list, Qt::LeftButton);
        list.hidePopup();
        QCOMPARE(lastPorts(list, 3),
                 QStringList({u"COM703 - plug"_s, u"COM710 - simulated, sensor?type=2"_s,
                              u"COM798 - simulated, sensor?type=1"_s}));
        QCOMPARE(list.getSelectedPort(), 798);
        QTest::mouseClick(dialog.getControl<QPushButton>(2), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(dialog.selectedPort(), 710);
    }

    void absentPortIsShownAndAnotherOneReturnedAfterOk()
    {
        SelectPortDialog dialog(nullptr, 705);
        dialog.show();
        auto& list = *dialog.getControl<SerialPortComboBox>(1001);
        QCOMPARE(list.currentText(), u"COM705"_s);
        QCOMPARE(lastPorts(list, 3).first(), u"COM705"_s);
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
    const TestFolder m_folder;
    const TestRegistry m_settings{
        u"[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
        "\"simulator:sensor?type=2\"=\"COM710\"\r\n\"%1\"=\"COM703\"\r\n"
        "\"simulator:sensor?type=1\"=\"COM798\"\r\n"_s.arg(m_folder.path(u"plug"_s))
            .toUtf8()};
    Languages m_languages{1};
    QStringList m_opened;
};

QTEST_MAIN(TestSelectPortDialog)
#include "TestSelectPortDialog.moc"
