#include "backup/ReviewDialog.h"
#include "backup/SaveBackupDialog.h"
#include "display/DisplayUnitDialog.h"
#include "pages/AboutDialog.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/ManualCommDialog.h"
#include "pages/PasswordDialog.h"
#include "pages/SelectPortDialog.h"
#include "pages/SettingsDialog.h"
#include "platform/core/LanguageStrings.h"
#include "sensor/BackupFile.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/WaitFor.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include <set>
#include <tuple>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// A text, and the pixels that it needs and has.
using Shown = std::tuple<QString, int, int>;

/// The width that a cell's text needs, of its longest word where its row grows with it.
int neededWidth(const QAbstractItemView& view, const QModelIndex& index, int given)
{
    constexpr int kMargins = 8;
    const auto* table = qobject_cast<const QTableView*>(&view);
    if (!table || table->verticalHeader()->sectionResizeMode(0) != QHeaderView::ResizeToContents)
        return view.sizeHintForIndex(index).width();
    const QFontMetrics metrics(index.data(Qt::FontRole).value<QFont>());
    const QRect area(0, 0, given - kMargins, QWIDGETSIZE_MAX);
    return metrics.boundingRect(area, Qt::TextWordWrap, index.data().toString()).width() + kMargins;
}

QList<Shown> textsOf(const QWidget& widget)
{
    QList<Shown> texts;
    const auto add = [&](const QString& text, int given) {
        texts.append({text, widget.fontMetrics().horizontalAdvance(text), given});
    };
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const QVariant text =
        widget.property(qobject_cast<const QGroupBox*>(&widget) ? "title" : "text");
    if (label && label->wordWrap()) {
        texts.append({label->text(), label->heightForWidth(label->width()), label->height()});
    } else if (qobject_cast<const QLineEdit*>(&widget)) {
        texts.append({text.toString(), 0, 0});
    } else if (!text.toString().isEmpty()) {
        texts.append({text.toString(), widget.minimumSizeHint().width(), widget.width()});
        texts.append({text.toString(), widget.minimumSizeHint().height(), widget.height()});
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        constexpr auto kField = QStyle::SC_ComboBoxEditField;
        const QRect field =
            combo->style()->subControlRect(QStyle::CC_ComboBox, &option, kField, combo);
        for (int index = 0; index < combo->count(); ++index)
            add(combo->itemText(index), field.width());
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int index = 0; index < tabs->count(); ++index)
            add(tabs->tabText(index), tabs->tabRect(index).width());
    } else if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) {
        for (int section = 0; section < header->count(); ++section)
            add(header->model()->headerData(section, header->orientation()).toString(),
                header->sectionSize(section));
    } else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        const int columns = view->model()->columnCount();
        for (int cell = 0; cell < qMin(view->model()->rowCount(), 100) * columns; ++cell) {
            const auto index = view->model()->index(cell / columns, cell % columns);
            const int given = qMin(view->visualRect(index).width(), view->viewport()->width());
            texts.append({index.data().toString(), neededWidth(*view, index, given), given});
        }
    } else if (const auto* note = qobject_cast<const QPlainTextEdit*>(&widget)) {
        texts.append({note->toPlainText(), note->verticalScrollBar()->maximum(), 0});
    } else if (const auto* bar = qobject_cast<const QMenuBar*>(&widget)) {
        texts.append({u"menu bar"_s, bar->sizeHint().width(), bar->width()});
    }
    return texts;
}

/// A letter that two captions claim, by each further one.
QStringList doubledMnemonics(const QStringList& captions)
{
    QStringList doubled;
    QString taken;
    for (const QString& caption : captions) {
        const QString letter = QKeySequence::mnemonic(caption).toString().right(1);
        if (!letter.isEmpty() && taken.contains(letter))
            doubled << letter + u" again in "_s + caption;
        taken += letter;
    }
    return doubled;
}

/// Presses Tab until all that it leads to has had the focus. A cell that is open is closed before:
/// from there Tab leads to the next cell.
std::set<const QWidget*> reachedByTab(QWidget& window)
{
    for (auto* cell : window.findChildren<QLineEdit*>(u"cellEdit"_s)) {
        if (cell->isVisible())
            QTest::keyClick(cell, Qt::Key_F2);
    }
    std::set<const QWidget*> reached;
    for (int key = 0; key < 60 && window.focusWidget(); ++key) {
        reached.insert(window.focusWidget());
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    return reached;
}

/// Whether a screen reader could tell a control from others of its kind. A list's name is its
/// value.
bool isNamed(QWidget& widget)
{
    auto& part = *QAccessible::queryAccessibleInterface(&widget);
    const bool hasName =
        part.role() != QAccessible::ComboBox && !part.text(QAccessible::Name).isEmpty();
    return !part.state().focusable || hasName || !part.relations(QAccessible::Label).isEmpty();
}

/// What a user could not read of a window that is shown, not understand or not reach with the
/// keyboard, a line each.
/// @param foreign texts that are wrong
QString faultsOf(QWidget& window, const QStringList& foreign)
{
    const auto reached = reachedByTab(window);
    QStringList faults;
    QStringList captions;
    for (QWidget* widget : window.findChildren<QWidget*>() + QList<QWidget*>{&window}) {
        const auto require = [&](bool holds, const QString& fault) {
            if (!holds)
                faults << window.objectName() + u' ' + widget->objectName() + u": "_s + fault;
        };
        QStringList items;
        for (const QAction* action : widget->actions())
            items << action->text();
        faults << doubledMnemonics(items);
        require(widget != &window || !window.windowTitle().isEmpty(), u"no title"_s);
        QStringList texts{widget->accessibleName(), widget->accessibleDescription(),
                          widget->toolTip(), widget->windowTitle()};
        for (const auto& [text, needed, given] : textsOf(*widget)) {
            texts << text;
            require(!widget->isVisible() || needed <= given,
                    u"cut by %1: "_s.arg(needed - given) + text);
        }
        for (const QString& text : texts + items)
            require((text.left(1) != u'*' || text == u"****") && !foreign.contains(text),
                    u"not translated: "_s + text);
        const auto* dialog = qobject_cast<const BaseDialog*>(widget);
        for (const auto& [control, number] :
             dialog ? dialog->translationMap().toStdMap() : std::map<int, int>())
            require(dialog->getControl<QWidget>(control) && !languageString(number).isEmpty(),
                    u"no caption %1"_s.arg(number));
        if (!widget->isVisible())
            continue;
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (qobject_cast<const QAbstractButton*>(widget) || (label && label->buddy()))
            captions << texts.last();
        const bool isReached = !(widget->focusPolicy() & Qt::TabFocus) || !widget->isEnabled() ||
                               widget->focusProxy() || reached.contains(widget);
        require(isReached, u"not reached"_s);
        require(isNamed(*widget), u"no name"_s);
    }
    return (faults + doubledMnemonics(captions)).join(u'\n');
}

/// Enters something wherever a window takes it.
void fill(QWidget& window)
{
    const auto shown = [&window]<class Control>(Control* /*kind*/) {
        QList<Control*> controls = window.findChildren<Control*>();
        controls.removeIf([](const Control* control) { return !control->isVisible(); });
        return controls;
    };
    for (const auto* list : shown(static_cast<QTableWidget*>(nullptr)))
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(0, 1)).center());
    for (auto* combo : shown(static_cast<QComboBox*>(nullptr)))
        QTest::keyClick(combo, Qt::Key_Down);
    for (auto* edit : shown(static_cast<QLineEdit*>(nullptr))) {
        QTest::keyClick(edit, Qt::Key_7);
        QTest::keyClick(edit, Qt::Key_Down); // from a cell to the one below
    }
}

/// What has been entered in a window.
QString entriesOf(const QWidget& window)
{
    QStringList entries;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* edit = qobject_cast<const QLineEdit*>(widget);
        entries << (edit && !edit->isReadOnly() ? edit->text() : QString());
        for (const char* choice : {"currentIndex", "checked"})
            entries << widget->property(choice).toString();
        const auto* list = qobject_cast<const QTableWidget*>(widget);
        for (int row = 0; list && row < list->rowCount(); ++row) {
            if (list->item(row, 1)->flags().testFlag(Qt::ItemIsEditable))
                entries << list->item(row, 1)->text();
        }
    }
    return entries.join(u' ').simplified();
}

QStringList textsOfLanguage()
{
    QStringList texts;
    for (int number = 100; number < 2000; ++number)
        texts << languageString(number);
    return texts;
}

} // namespace

/// Walks every window of the program in every language on the smallest screen, for texts that are
/// cut or stay in another language, entries that a change of language loses, letters that two
/// captions claim, and controls without a name.
class TestWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_rig.startConnected()); }

    void everyPageCanBeUsedInEveryLanguage()
    {
        PelorinMainWindow& window = m_rig.window();
        QCOMPARE(m_rig.pageList().count(), 6);
        for (int row = 0; row < 6; ++row) {
            const ModalAnswer<QMessageBox> discard([](QMessageBox& box) {
                QTest::mouseClick(box.findChild<QAbstractButton*>(u"answer1"_s), Qt::LeftButton);
            });
            QVERIFY(window.currentPage() == row || m_rig.choosePage(row));
            fill(window);
            for (const int language : {2, 4, 8, 16, 1})
                changeLanguage(window, language);
        }
    }

    void everyDialogCanBeUsedInEveryLanguage()
    {
        QWidget* const window = &m_rig.window();
        SequenceRunner& runner = m_rig.runner();
        SendHistory history;
        BackupFile file{QString()}; // neither opened nor saved
        const FormatRestore formats{runner, m_rig.formats()};
        const auto makeDisplay = [&] { return new DisplayUnitDialog(window, m_rig.factory(), 7); };
        const auto makeBackup = [&] {
            m_rig.sensor().setFault({SimulatedFault::Kind::Silent}); // it stays for a while
            return new SaveBackupDialog(window, runner, formats, file);
        };
        const auto makeReview = [&] {
            return new ReviewDialog(window, {ReviewDialog::Purpose::Restore,
                                             u"backup.dat"_s,
                                             2,
                                             {{'D', "4A0519"}, {'U', "283000"}},
                                             {{'D', "4E0519"}, {'U', "256000"}}});
        };
        const auto makeSettings = [&](int tab) {
            auto* dialog = new SettingsDialog(window, {{7, u"/dev/ttyS6"_s}, "3A0102", {}, {}});
            dialog->show();
            dialog->findChild<QTabWidget*>()->setCurrentIndex(tab);
            return dialog;
        };
        const std::vector<std::function<QDialog*()>> makers{
            [&] { return new AboutDialog(window); },
            [&] { return new CalculateOffsetDialog(window, true, 1250); },
            [&] { return new PasswordDialog(window, 240); },
            [&] { return new SelectPortDialog(window, 7); },
            [&] { return new ManualCommDialog(window, runner, history); },
            [&] { return makeSettings(0); },
            [&] { return makeSettings(1); },
            [&] { return makeSettings(2); },
            [&] { return makeSettings(3); },
            [&] { return makeSettings(4); },
            makeDisplay,
            makeReview,
            makeBackup};
        for (const auto& make : makers) {
            for (const int language : {2, 4, 8, 16, 1}) {
                QVERIFY(m_rig.waitIdle()); // of the dialog before
                const std::unique_ptr<QDialog> dialog(make());
                dialog->show();
                QVERIFY(waitFor([&] { return dialog->isActiveWindow() && dialog->focusWidget(); }));
                QCOMPARE(faultsOf(*dialog, {}), QString());
                QVERIFY(QRect(0, 0, 1280, 720).contains(QRect({}, dialog->frameGeometry().size())));
                fill(*dialog);
                changeLanguage(*dialog, language);
            }
        }
    }

    void aboutShowsVersionIconAndOrigin()
    {
        QCoreApplication::setApplicationVersion(u"0123456789ab"_s);
        AboutDialog dialog(nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), u"About Pelorin"_s);
        QCOMPARE(dialog.getControl<QLineEdit>(1039)->text(), u"1.06"_s);
        QVERIFY(!dialog.getControl<QLabel>(1040)->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(dialog.getControl<QLineEdit>(1043)->text(), u"MIT"_s);
        QCOMPARE(dialog.getControl<QLineEdit>(1045)->text(), u"0123456789ab"_s);
        QVERIFY(dialog.getControl<QLineEdit>(1045)->isVisible());
        QCOMPARE(dialog.getControl<QLineEdit>(1047)->text(), QLatin1String(qVersion()));
    }

private:
    /// Changes the language of a window, which must have no fault then and keep its entries.
    void changeLanguage(QWidget& window, int language)
    {
        QStringList foreign = textsOfLanguage();
        const QString entries = entriesOf(window);
        QCOMPARE(m_rig.languages().loadLanguage(language), 1);
        for (int pass = 0; pass < 4; ++pass) // status and layout follow the texts
            QCoreApplication::processEvents();
        for (const QString& text : textsOfLanguage())
            foreign.removeAll(text);
        QCOMPARE(entriesOf(window), entries);
        QCOMPARE(faultsOf(window, foreign), QString());
    }

    MainWindowRig m_rig{
        {.type = 2},
        kProductKey + "\"EnableQDL3\"=\"1\"\r\n\"EnableTempComp\"=\"1\"\r\n"
                      "\"QDL3Comport\"=\"simulator:display\"\r\n"
                      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Package Parameters"
                      "\\Package0]\r\n\"Name\"=\"Rod\"\r\n"
                      "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                      "\"/dev/none\"=\"COM9\"\r\n"};
};

QTEST_MAIN(TestWindows)
#include "TestWindows.moc"
