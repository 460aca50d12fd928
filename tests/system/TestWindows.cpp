#include "backup/BackupProgressDialog.h"
#include "display/DisplayUnitDialog.h"
#include "pages/AboutDialog.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/ManualCommDialog.h"
#include "pages/PasswordDialog.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/ui/Pictures.h"
#include "sensor/BackupFile.h"
#include "support/MainWindowRig.h"
#include "support/Rows.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTableWidget>

#include <set>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QRegularExpression kUntranslated(u"^\\*[^*]"_s);

/// A text, and the pixels that it needs and has.
struct Shown
{
    QString text;
    int needed = 0;
    int given = 0;
};

QList<Shown> textsOf(const QWidget& widget)
{
    QList<Shown> texts;
    const auto add = [&](const QString& text, int given) {
        texts.append({text, widget.fontMetrics().horizontalAdvance(text), given});
    };
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const auto* group = qobject_cast<const QGroupBox*>(&widget);
    if (label && label->wordWrap()) {
        texts.append({label->text(), label->heightForWidth(label->width()), label->height()});
    } else if (label || group || qobject_cast<const QAbstractButton*>(&widget)) {
        const QString text = widget.property(group ? "title" : "text").toString();
        texts.append({text, widget.minimumSizeHint().width(), widget.width()});
        texts.append({text, widget.minimumSizeHint().height(), widget.height()});
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        texts.append({edit->text()});
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
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
        const bool isList = qobject_cast<const QListView*>(view);
        for (int cell = 0;
             cell < qMin(view->model()->rowCount(), 100) * view->model()->columnCount(); ++cell) {
            const auto index = view->model()->index(cell / view->model()->columnCount(),
                                                    cell % view->model()->columnCount());
            const QRect place = isList ? view->viewport()->rect() : view->visualRect(index);
            texts.append(
                {index.data().toString(), view->sizeHintForIndex(index).width(), place.width()});
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

/// Controls that a screen reader could announce by their kind alone. A list's name is its value.
QStringList namelessParts(QAccessibleInterface& part)
{
    QStringList nameless;
    const bool isNamed =
        part.role() != QAccessible::ComboBox && !part.text(QAccessible::Name).isEmpty();
    if (part.state().focusable && !part.state().invisible && !isNamed &&
        part.relations(QAccessible::Label).isEmpty())
        nameless << u"no name: "_s + (part.object() ? part.object()->objectName() : QString());
    for (int child = 0; child < part.childCount(); ++child) {
        if (auto* next = part.child(child); next && next->role() != QAccessible::Cell)
            nameless << namelessParts(*next);
    }
    return nameless;
}

/// Controls that the Tab key does not lead to.
QStringList unreachableControls(QWidget& window)
{
    constexpr int kMostControls = 60;
    std::set<const QWidget*> reached;
    for (int key = 0; key < kMostControls && window.focusWidget(); ++key) {
        reached.insert(window.focusWidget());
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    QStringList unreachable;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool wanted = widget->isVisible() && widget->isEnabled() && !widget->focusProxy() &&
                            (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (wanted && !reached.contains(widget))
            unreachable << u"not reached: "_s + widget->objectName();
    }
    return unreachable;
}

/// What a user could not read of a window that is shown, not understand or not reach with the
/// keyboard, a line each.
/// @param foreign texts of the language before
QString faultsOf(QWidget& window, const std::set<QString>& foreign)
{
    QStringList faults;
    QStringList captions;
    auto widgets = window.findChildren<QWidget*>();
    widgets << &window;
    for (const QWidget* widget : widgets) {
        const QString name = widget->objectName() + u": "_s;
        QStringList items;
        for (const QAction* action : widget->actions())
            items << action->text();
        QStringList texts = items;
        texts << widget->accessibleName() << widget->accessibleDescription() << widget->toolTip();
        texts << widget->windowTitle();
        for (const auto& [text, needed, given] : textsOf(*widget)) {
            texts << text;
            if (widget->isVisible() && needed > given)
                faults << name + u"\"%1\" needs %2, has %3"_s.arg(text).arg(needed).arg(given);
        }
        for (const QString& text : texts) {
            if (kUntranslated.match(text).hasMatch() || foreign.contains(text))
                faults << name + u"not translated: "_s + text;
        }
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (widget->isVisible() && (button || (label && label->buddy())))
            captions << texts.last();
        const auto* dialog = qobject_cast<const BaseDialog*>(widget);
        const auto map = dialog ? dialog->translationMap() : QMap<int, int>();
        for (auto caption = map.cbegin(); caption != map.cend(); ++caption) {
            if (!dialog->getControl<QWidget>(caption.key()) || languageString(*caption).isEmpty())
                faults << name + u"no caption for "_s + QString::number(caption.key());
        }
        faults << doubledMnemonics(items);
    }
    if (window.windowTitle().isEmpty())
        faults << u"no title"_s;
    faults << doubledMnemonics(captions)
           << namelessParts(*QAccessible::queryAccessibleInterface(&window))
           << unreachableControls(window);
    return faults.join(u'\n');
}

/// Enters something wherever a window takes it.
void fill(QWidget& window)
{
    for (const auto* list : window.findChildren<QTableWidget*>())
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(0, 1)).center());
    for (auto* combo : window.findChildren<QComboBox*>())
        QTest::keyClick(combo, Qt::Key_Down);
    for (auto* edit : window.findChildren<QLineEdit*>())
        QTest::keyClick(edit, Qt::Key_7);
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

std::set<QString> textsOfLanguage()
{
    std::set<QString> texts;
    for (int number = 100; number < 400; ++number)
        texts.insert(languageString(number));
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
    void initTestCase()
    {
        m_rig = std::make_unique<MainWindowRig>(
            SimulatedSensor::Options{.type = 2},
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
            "\"EnableQDL3\"=dword:00000001\r\n\"EnableTempComp\"=dword:00000001\r\n"
            "\"QDL3Comport\"=\"simulator:display\"\r\n");
        QVERIFY(m_rig->startConnected());
    }

    void everyPageCanBeUsedInEveryLanguage()
    {
        PelorinMainWindow& window = m_rig->window();
        QCOMPARE(m_rig->pageList().count(), 6);
        for (int row = 0; row < 6; ++row) {
            QVERIFY(window.currentPage() == row || m_rig->choosePage(row));
            fill(window);
            const QString entries = entriesOf(window);
            for (const int language : {2, 4, 8, 16, 1}) {
                const auto foreign = speak(language);
                QCOMPARE(entriesOf(window), entries);
                QCOMPARE(faultsOf(window, foreign), QString());
            }
        }
    }

    void everyDialogCanBeUsedInEveryLanguage()
    {
        struct Row
        {
            const char* name;
            std::function<QDialog*(QWidget* window)> make;
        };
        BackupFile file{QString()}; // neither opened nor saved
        const FormatRestore formats{m_rig->runner(), m_rig->formats()};
        const std::vector<Row> rows{
            {"about", [](QWidget* window) { return new AboutDialog(window); }},
            {"offset",
             [](QWidget* window) { return new CalculateOffsetDialog(window, true, 1250); }},
            {"password", [](QWidget* window) { return new PasswordDialog(window, 240); }},
            {"port", [](QWidget* window) { return new SelectPortDialog(window, 7); }},
            {"display unit",
             [this](QWidget* window) {
                 return new DisplayUnitDialog(window, m_rig->factory(), 7);
             }},
            {"manual communications",
             [this](QWidget* window) { return new ManualCommDialog(window, m_rig->runner()); }},
            {"backup", [&](QWidget* window) {
                 m_rig->sensor().setFault({SimulatedFault::Kind::Silent}); // it stays for a while
                 return new BackupProgressDialog(window, m_rig->runner(), formats, file,
                                                 BackupProgressDialog::Mode::Backup);
             }}};
        forEachRow(rows, [this](const Row& row) {
            for (const int language : {2, 4, 8, 16, 1}) {
                QVERIFY(m_rig->waitIdle()); // of the dialog before
                const std::unique_ptr<QDialog> dialog(row.make(&m_rig->window()));
                dialog->show();
                QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
                QCOMPARE(faultsOf(*dialog, {}), QString());
                const QSize size = dialog->frameGeometry().size();
                QCOMPARE(size.boundedTo({1280, 720}), size);
                fill(*dialog);
                const QString entries = entriesOf(*dialog);
                const auto foreign = speak(language);
                QCOMPARE(entriesOf(*dialog), entries);
                QCOMPARE(faultsOf(*dialog, foreign), QString());
            }
        });
    }

    void aboutShowsNameVersionAndIcon()
    {
        AboutDialog dialog(nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        for (const auto& [id, text] : {std::pair(1038, u"Pelorin"_s), std::pair(1039, u"1.06"_s)}) {
            QCOMPARE(dialog.getControl<QLineEdit>(id)->text(), text);
            QVERIFY(dialog.getControl<QLineEdit>(id)->isReadOnly());
        }
        QVERIFY(!dialog.getControl<QLabel>(1040)->pixmap(Qt::ReturnByValue).isNull());
        QVERIFY(dialog.getControl<QWidget>(1)->hasFocus());
        for (const int size : {16, 24, 32, 48, 64, 128, 256})
            QVERIFY(programIcon().availableSizes().contains(QSize(size, size)));
        for (const char* name : {"BMP_PELORIN_INFO", "BMP_PELORIN_WRENCH", "BMP_PELORIN_REDLED",
                                 "BMP_PELORIN_GREENLED", "BMP_PELORIN_GRAYLED"})
            QVERIFY(picture(QLatin1String(name)).availableSizes().size() >
                    1); // for fine screens, too
    }

private:
    /// Changes the language. @return the texts that are no longer right
    [[nodiscard]] std::set<QString> speak(int language)
    {
        std::set<QString> foreign = textsOfLanguage();
        if (m_rig->languages().loadLanguage(language) != 1)
            qFatal("No language %d", language);
        for (int pass = 0; pass < 4; ++pass) // status and layout follow the texts
            QCoreApplication::processEvents();
        for (const QString& text : textsOfLanguage())
            foreign.erase(text);
        return foreign;
    }

    std::unique_ptr<MainWindowRig> m_rig;
};

QTEST_MAIN(TestWindows)
#include "TestWindows.moc"
