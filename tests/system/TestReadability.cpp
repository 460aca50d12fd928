#include "backup/BackupProgressDialog.h"
#include "display/DisplayUnitDialog.h"
#include "pages/AboutDialog.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/ManualCommDialog.h"
#include "pages/PasswordDialog.h"
#include "pages/SelectPortDialog.h"
#include "sensor/BackupFile.h"
#include "support/MainWindowRig.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTest>

#include <functional>
#include <memory>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QList<int> kLanguages{1, 2, 4, 8, 16};

/// The text that a size is too small for, with both sizes; nothing if it fits.
QStringList cut(const QString& text, int needed, int given)
{
    if (needed <= given)
        return {};
    return {QStringLiteral("\"%1\" needs %2, has %3").arg(text).arg(needed).arg(given)};
}

QStringList cutLabel(const QLabel& label)
{
    if (label.text().isEmpty())
        return {};
    if (label.wordWrap())
        return cut(label.text(), label.heightForWidth(label.width()), label.height());
    return cut(label.text(), label.sizeHint().width(), label.width());
}

QStringList cutItems(const QComboBox& combo)
{
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const int given =
        combo.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo)
            .width();
    QStringList faults;
    for (int index = 0; index < combo.count(); ++index)
        faults << cut(combo.itemText(index),
                      combo.fontMetrics().horizontalAdvance(combo.itemText(index)), given);
    return faults;
}

QStringList cutCells(const QAbstractItemView& view)
{
    QStringList faults;
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < qMin(model.rowCount(), 100); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            const int given = qobject_cast<const QListView*>(&view)
                                  ? view.viewport()->width()
                                  : view.visualRect(index).width();
            faults << cut(index.data().toString(), view.sizeHintForIndex(index).width(), given);
        }
    }
    return faults;
}

QStringList cutSections(const QHeaderView& header)
{
    QStringList faults;
    for (int section = 0; header.orientation() == Qt::Horizontal && section < header.count();
         ++section) {
        const QString text =
            header.model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
        faults << cut(text, header.fontMetrics().horizontalAdvance(text),
                      header.sectionSize(section));
    }
    return faults;
}

QStringList cutTabs(const QTabBar& tabs)
{
    QStringList faults;
    for (int index = 0; index < tabs.count(); ++index)
        faults << cut(tabs.tabText(index),
                      tabs.fontMetrics().horizontalAdvance(tabs.tabText(index)),
                      tabs.tabRect(index).width());
    return faults;
}

QStringList cutTexts(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return cutLabel(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return cut(button->text(), button->sizeHint().width(), button->width()) +
               cut(button->text(), button->sizeHint().height(), button->height());
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return cutItems(*combo);
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return cut(group->title(), group->minimumSizeHint().width(), group->width());
    if (const auto* header = qobject_cast<const QHeaderView*>(&widget))
        return cutSections(*header);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        return cutCells(*view);
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        return cutTabs(*tabs);
    if (const auto* bar = qobject_cast<const QMenuBar*>(&widget))
        return cut(QStringLiteral("menu bar"), bar->sizeHint().width(), bar->width());
    if (const auto* note = qobject_cast<const QPlainTextEdit*>(&widget); note && note->isReadOnly())
        return cut(note->toPlainText(), note->verticalScrollBar()->maximum(), 0);
    return {};
}

/// A letter that two captions claim, by each further one.
QStringList doubledMnemonics(const QStringList& captions)
{
    QStringList doubled;
    QString taken;
    for (const QString& caption : captions) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        const QString letter = key.toString().right(1);
        if (!letter.isEmpty() && taken.contains(letter))
            doubled << letter + QStringLiteral(" again in ") + caption;
        taken += letter;
    }
    return doubled;
}

/// Controls that a screen reader could announce by their kind alone.
QStringList namelessParts(QAccessibleInterface* part)
{
    QStringList nameless;
    const auto state = part->state();
    if (state.focusable && !state.invisible && part->text(QAccessible::Name).isEmpty() &&
        part->relations(QAccessible::Label).isEmpty())
        nameless << QStringLiteral("no name: ") +
                        QLatin1String(part->object() ? part->object()->metaObject()->className()
                                                     : "part") +
                        QLatin1Char(' ') +
                        (part->object() ? part->object()->objectName() : QString());
    for (int child = 0; child < part->childCount(); ++child) {
        if (auto* next = part->child(child); next && next->role() != QAccessible::Cell)
            nameless << namelessParts(next);
    }
    return nameless;
}

/// Controls that the Tab key does not lead to.
QStringList unreachableControls(QWidget& window)
{
    constexpr int kMostControls = 60;
    QList<const QWidget*> reached{window.focusWidget()};
    for (int key = 0; key < kMostControls && window.focusWidget(); ++key) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        reached << window.focusWidget();
    }
    QStringList unreachable;
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const bool wanted = widget->isVisible() && widget->isEnabled() && !widget->focusProxy() &&
                            (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (wanted && !reached.contains(widget))
            unreachable << QStringLiteral("not reached: ") + widget->objectName() +
                               QLatin1String(widget->metaObject()->className());
    }
    return unreachable;
}

/// What a user could not read of a window that is shown, or not reach with the keyboard, a line
/// each.
QString unusable(QWidget& window)
{
    QStringList faults;
    QStringList captions;
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible())
            continue;
        for (const QString& fault : cutTexts(*widget))
            faults << widget->objectName() + QStringLiteral(": ") + fault;
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            captions << button->text();
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            captions << label->text();
    }
    faults << doubledMnemonics(captions)
           << namelessParts(QAccessible::queryAccessibleInterface(&window))
           << unreachableControls(window);
    return faults.join(QLatin1Char('\n'));
}

} // namespace

/// Walks every window of the program in every language on the smallest screen, for texts that are
/// cut, letters that two captions claim, and controls without a name.
class TestReadability : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPageCanBeRead_data();
    void everyPageCanBeRead();
    void everyMenuCanBeRead_data() { everyPageCanBeRead_data(); }
    void everyMenuCanBeRead();
    void everyDialogCanBeRead_data();
    void everyDialogCanBeRead();

private:
    std::unique_ptr<MainWindowRig> m_rig;
};

void TestReadability::initTestCase()
{
    m_rig = std::make_unique<MainWindowRig>(
        SimulatedSensor::Options{.type = 2},
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
        "\"EnableQDL3\"=dword:00000001\r\n\"EnableTempComp\"=dword:00000001\r\n"
        "\"QDL3Comport\"=\"simulator:display\"\r\n");
    QVERIFY(m_rig->startConnected());
}

void TestReadability::everyPageCanBeRead_data()
{
    QTest::addColumn<int>("language");
    for (const int code : kLanguages)
        QTest::addRow("language %d", code) << code;
}

void TestReadability::everyPageCanBeRead()
{
    QFETCH(int, language);
    QCOMPARE(m_rig->languages().loadLanguage(language), 1);
    QCOMPARE(m_rig->pageList().count(), 6);
    for (int row = 0; row < 6; ++row) {
        QVERIFY(m_rig->window().currentPage() == row || m_rig->choosePage(row));
        QTest::qWait(0); // the layout follows the texts
        QCOMPARE(unusable(m_rig->window()), QString());
    }
}

void TestReadability::everyMenuCanBeRead()
{
    QFETCH(int, language);
    QCOMPARE(m_rig->languages().loadLanguage(language), 1);
    QCoreApplication::processEvents();
    QStringList tops;
    for (const QAction* top : m_rig->window().menuBar()->actions()) {
        tops << top->text();
        QStringList items;
        for (const QAction* item : top->menu() ? top->menu()->actions() : QList<QAction*>())
            items << item->text();
        QCOMPARE(doubledMnemonics(items), QStringList());
    }
    QCOMPARE(tops.size(), 6);
    QCOMPARE(doubledMnemonics(tops), QStringList());
}

using MakeDialog = std::function<std::unique_ptr<QDialog>(MainWindowRig&)>;

void TestReadability::everyDialogCanBeRead_data()
{
    QTest::addColumn<MakeDialog>("make");
    const auto row = [](const char* name, const MakeDialog& make) { QTest::newRow(name) << make; };
    row("about", [](auto& rig) { return std::make_unique<AboutDialog>(&rig.window()); });
    row("offset", [](auto& rig) {
        return std::make_unique<CalculateOffsetDialog>(&rig.window(), true, 1250.0);
    });
    row("password", [](auto& rig) { return std::make_unique<PasswordDialog>(&rig.window(), 240); });
    row("display unit", [](auto& rig) {
        return std::make_unique<DisplayUnitDialog>(&rig.window(), rig.factory(),
                                                   rig.link().portNumber());
    });
    row("manual communications",
        [](auto& rig) { return std::make_unique<ManualCommDialog>(&rig.window(), rig.runner()); });
    row("port", [](auto& rig) { return std::make_unique<SelectPortDialog>(&rig.window(), 7); });
    row("backup", [](auto& rig) {
        static BackupFile file{QString()};                     // neither opened nor saved
        rig.sensor().setFault({SimulatedFault::Kind::Silent}); // the dialog stays for a while
        static FormatRestore formats{rig.runner(), rig.formats()};
        return std::make_unique<BackupProgressDialog>(&rig.window(), rig.runner(), formats, file,
                                                      BackupProgressDialog::Mode::Backup);
    });
}

void TestReadability::everyDialogCanBeRead()
{
    QFETCH(MakeDialog, make);
    for (const int language : kLanguages) {
        QCOMPARE(m_rig->languages().loadLanguage(language), 1);
        QVERIFY(m_rig->waitIdle()); // of the dialog before
        const std::unique_ptr<QDialog> dialog = make(*m_rig);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        QCOMPARE(unusable(*dialog), QString());
        QVERIFY(dialog->frameGeometry().width() <= 1280 && dialog->frameGeometry().height() <= 720);
    }
}

QTEST_MAIN(TestReadability)
#include "TestReadability.moc"
