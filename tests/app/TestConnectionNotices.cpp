#include "app/Commands.h"
#include "app/NoticeStrip.h"
#include "support/ChangedVariable.h"
#include "support/FileContent.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/TestFolder.h"

#include <QAction>
#include <QMenu>
#include <QMessageBox>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The sensor answers with revision 3A, which is in no range.
const QByteArray kOtherBounds = QByteArray(kSimulatedBounds).replace("0003", "0005");
const QString kByHand = u"Revision 3A used as type 2, chosen by hand"_s;

struct Rig : MainWindowRig
{
    Rig() { settings().write(kOtherBounds + kPlainWrites); }

    [[nodiscard]] bool isNotIdentified()
    {
        start();
        return waitFor([this] { return noticeText().startsWith(u"Not identified: "); }) &&
               waitIdle();
    }
    /// The items of the menu that offers types.
    [[nodiscard]] QStringList types()
    {
        QMenu& menu = *page<QPushButton>("noticeButton2").menu();
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction* item : menu.actions())
            texts << item->text();
        texts.removeAll(QString());
        return texts;
    }
    void choose(const QString& text)
    {
        for (QAction* item : page<QPushButton>("noticeButton2").menu()->actions()) {
            if (item->text() == text)
                return item->trigger();
        }
    }
    [[nodiscard]] bool isConnected(qsizetype times)
    {
        return waitFor([&] { return connects() == times && link().isIdentified(); }) && waitIdle();
    }
};

} // namespace

class TestConnectionNotices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeChosenByHandHoldsForDeviceAndRevision()
    {
        Rig rig;
        QVERIFY(rig.isNotIdentified());
        QCOMPARE(rig.noticeText(),
                 u"Not identified: the sensor answered with firmware revision 3A (decimal 58). "
                 "Ranges set: type 0: 10 to 1F, type 1: 20 to 2F, type 2: 50 to 5F."_s);
        QCOMPARE(rig.types(),
                 QStringList({u"Type 0"_s, u"Type 1"_s, u"Type 2"_s,
                              u"Always type 1: from now on 20 to 3A, so far 20 to 2F"_s,
                              u"Always type 2: from now on 3A to 5F, so far 50 to 5F"_s}));
        rig.choose(u"Type 2"_s);
        QVERIFY(rig.isConnected(1));
        const QString chosen = u"Firmware revision 3A is used as type 2: chosen by hand."_s;
        QCOMPARE(rig.noticeText(), chosen);
        auto& strip = rig.page<NoticeStrip>();
        strip.show({.text = [] { return u"Verified"_s; }});
        strip.clear();
        QCOMPARE(rig.noticeText(), chosen); // which an outcome only covers
        QVERIFY(rig.clickCommand(kConnectCommand));
        QVERIFY(rig.isConnected(2));
        const QStringList lines = rig.logged();
        QCOMPARE(lines.count(kByHand), 2);
        QCOMPARE(lines.at(lines.lastIndexOf(u"SSI Type: 2"_s) - 1), kByHand);

        (void)rig.types();
        rig.choose(u"Type 1"_s); // the other one was wrong
        QVERIFY(waitFor([&rig] { return rig.noticeText().contains(u"as type 1"_s); }));
        QVERIFY(rig.waitIdle());

        // Another revision answers, then the first one again.
        QVERIFY(rig.link().isTypeByHand());
        rig.sensor().setParameter('V', "4A0203");
        QVERIFY(rig.clickCommand(kConnectCommand));
        QVERIFY(waitFor([&rig] { return rig.noticeText().contains(u"revision 4A"); }));
        rig.sensor().setParameter('V', "3A0203");
        QVERIFY(rig.waitIdle() && rig.clickCommand(kConnectCommand));
        QVERIFY(waitFor([&rig] { return rig.noticeText().contains(u"revision 3A"); }));
        QVERIFY(!rig.link().isIdentified());
    }

    void typeChosenForGoodWidensItsRange()
    {
        Rig rig;
        QVERIFY(rig.isNotIdentified());
        (void)rig.types();
        rig.choose(u"Always type 2: from now on 3A to 5F, so far 50 to 5F"_s);
        QVERIFY(rig.isConnected(1));
        QCOMPARE(rig.noticeText(), QString());
        QVERIFY(!rig.logged().contains(kByHand) && !rig.link().isTypeByHand());
        QVERIFY(contentOf(rig.settings().path()).contains("\"Type2Low\"=dword:0000003a\r\n"));
    }

    /// The site's has no ranges.
    void copyOfTheSitesSettingsIsMadeOnlyIfTheUserWantsIt()
    {
        const TestFolder folder;
        Rig rig;
        const ChangedVariable config("XDG_CONFIG_HOME", folder.path({}).toUtf8());
        qunsetenv("PELORIN_REGISTRY");
        const QString own = folder.path(u"pelorin/pelorin.reg"_s);
        QVERIFY(rig.isNotIdentified());
        for (const auto* answer : {"answer1", "answer0"}) {
            const ModalAnswer<QMessageBox> box([&](QMessageBox& question) {
                QVERIFY(question.text().contains(own));
                QTest::mouseClick(question.findChild<QWidget*>(QLatin1String(answer)),
                                  Qt::LeftButton);
            });
            (void)rig.types();
            rig.choose(u"Always type 2: from now on 3A to 3A, so far none"_s);
            QVERIFY(waitFor([&box] { return box.wasShown(); }) && rig.waitIdle());
            QCOMPARE(contentOf(own).contains("\"Type2High\"=dword:0000003a"),
                     answer == std::string_view("answer0"));
        }
        QVERIFY(rig.isConnected(1));
    }
};

QTEST_MAIN(TestConnectionNotices)
#include "TestConnectionNotices.moc"
