#include "Tour.h"

#include "app/PelorinMainWindow.h"
#include "platform/core/LanguageStrings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace pelorin {

namespace {

void say(const QString& line)
{
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

[[noreturn]] void fail(const QString& what)
{
    say(QStringLiteral("The tour failed: ") + what);
    if (const QWidget* dialog = QApplication::activeModalWidget())
        say(QStringLiteral("This dialog is open: ") + dialog->windowTitle());
    std::_Exit(EXIT_FAILURE); // a dialog may be open inside a step
}

QString textOfWidget(const QWidget* widget)
{
    if (const auto* list = qobject_cast<const QComboBox*>(widget))
        return list->currentText();
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return edit->text();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget))
        return edit->toPlainText();
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label ? label->text() : QString();
}

} // namespace

Tour::Tour(PelorinMainWindow& window, QDir folder) : m_window(window), m_folder(std::move(folder))
{
}

void Tour::run(const std::vector<Step>& steps)
{
    m_steps = steps;
    m_waiting.start();
    QTimer::singleShot(0, this, &Tour::next);
    while (m_at < m_steps.size()) // a click that opened a dialog returns in here
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Tour::next()
{
    if (m_at == m_steps.size())
        return;
    constexpr int kPollPeriod = 10; // ms
    // Before the step: it may open a dialog that returns only after steps to come.
    QTimer::singleShot(kPollPeriod, this, &Tour::next);
    const Step step = m_steps[m_at];
    if (!step.ready()) {
        if (m_waiting.hasExpired(kTimeLimit))
            fail(step.name);
        return;
    }
    ++m_at;
    m_idlePasses = 0;
    m_waiting.restart();
    if (step.act)
        step.act();
}

Tour::Step Tour::page(int caption)
{
    return step(QStringLiteral("page %1").arg(languageString(caption)), [this, caption] {
        auto& list = find<QListWidget>("pageList");
        const auto found = list.findItems(languageString(caption), Qt::MatchExactly);
        if (found.isEmpty())
            fail(QStringLiteral("there is no page %1").arg(languageString(caption)));
        m_wantedPage = list.row(found.first());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualItemRect(found.first()).center());
    });
}

Tour::Step Tour::command(int command)
{
    return step(QStringLiteral("command %1").arg(command), [this, command] {
        m_wantedPage = -1;
        QMenuBar& bar = *m_window.menuBar();
        for (QAction* top : bar.actions()) {
            for (QAction* item : top->menu() ? top->menu()->actions() : QList<QAction*>()) {
                if (item->isSeparator() || item->data().toInt() != command)
                    continue;
                QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(top).center());
                QTest::mouseClick(top->menu(), Qt::LeftButton, {},
                                  top->menu()->actionGeometry(item).center());
                return;
            }
        }
        fail(QStringLiteral("there is no menu item %1").arg(command));
    });
}

Tour::Step Tour::click(const char* control)
{
    return step(QStringLiteral("click on %1").arg(QLatin1String(control)),
                [this, control] { QTest::mouseClick(&findWidget(control), Qt::LeftButton); });
}

Tour::Step Tour::item(const char* button, int item)
{
    return step(QStringLiteral("item %1 of ").arg(item) + QLatin1String(button),
                [this, button, item] {
                    QMenu& menu = *find<QPushButton>(button).menu();
                    menu.popup(QCursor::pos()); // the button itself would wait for its end
                    QTest::mouseClick(&menu, Qt::LeftButton, {},
                                      menu.actionGeometry(menu.actions().at(item)).center());
                });
}

Tour::Step Tour::cell(const char* list, int row, int column, const QString& text)
{
    const QString name = QStringLiteral("cell %1, %2 of %3");
    return step(name.arg(row).arg(column).arg(QLatin1String(list)), [=, this] {
        auto& table = find<QTableWidget>(list);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(table.item(row, column)).center());
        if (text.isEmpty())
            return;
        const auto edits = table.viewport()->findChildren<QLineEdit*>();
        QWidget* editor = table.indexWidget(table.model()->index(row, column));
        if (!editor && !edits.isEmpty())
            editor = edits.last(); // the ones before are closed
        if (!editor)
            fail(QStringLiteral("a value does not open"));
        QTest::keyClicks(editor, text);
    });
}

Tour::Step Tour::type(const char* edit, const QString& text)
{
    return step(QStringLiteral("typing in %1").arg(QLatin1String(edit)), [this, edit, text] {
        QWidget& widget = findWidget(edit);
        QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&widget, text);
    });
}

Tour::Step Tour::key(const char* control, Qt::Key key)
{
    return step(QStringLiteral("a key in %1").arg(QLatin1String(control)),
                [this, control, key] { QTest::keyClick(&findWidget(control), key); });
}

Tour::Step Tour::tab(int index)
{
    return step(QStringLiteral("tab %1").arg(index), [this, index] {
        auto& bar = *top().findChild<QTabBar*>();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
    });
}

Tour::Step Tour::file(const QString& name)
{
    const auto dialog = [] {
        return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    };
    return {QStringLiteral("file dialog for %1").arg(name), [=] { return dialog() != nullptr; },
            [=, this] {
                auto* edit = dialog()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                edit->setText(path(name));
                QTest::keyClick(edit, Qt::Key_Return);
            }};
}

Tour::Step Tour::box()
{
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    return {QStringLiteral("message box"), [box] { return box() != nullptr; },
            [box] {
                say(QStringLiteral("  ") + box()->text());
                box()->reject();
            }};
}

Tour::Step Tour::answer(int button)
{
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    return {QStringLiteral("answer %1").arg(button), [box] { return box() != nullptr; },
            [box, button] {
                say(QStringLiteral("  ") + box()->text());
                auto buttons = box()->buttons();
                buttons.removeIf([](const auto* one) { return !one->isVisible(); });
                QTest::mouseClick(buttons.at(button), Qt::LeftButton);
            }};
}

Tour::Step Tour::picture(const char* name)
{
    return step(QStringLiteral("picture %1").arg(QLatin1String(name)), [this, name] {
        const QString file = path(QLatin1String(name) + QStringLiteral(".png"));
        if (!top().grab().save(file))
            fail(QStringLiteral("%1 could not be saved").arg(file));
        say(QStringLiteral("  saved %1").arg(file));
    });
}

Tour::Step Tour::print(const QString& text)
{
    return {text, [] { return true; }, [text] { say(text); }};
}

Tour::Step Tour::print(const std::function<QString()>& text)
{
    return step(QStringLiteral("printing"), [text] { say(QStringLiteral("  ") + text()); });
}

Tour::Step Tour::printChanged(const char* control)
{
    const auto changed = [this, control] {
        const QString text = textOf(control);
        return text != m_lastText && !text.isEmpty() && !text.startsWith(u'*');
    };
    return {QStringLiteral("another text in %1").arg(QLatin1String(control)), changed,
            [this, control] {
                m_lastText = textOf(control);
                say(QStringLiteral("  %1").arg(m_lastText));
            }};
}

Tour::Step Tour::printList(const char* list, int rows)
{
    return step(QStringLiteral("list %1").arg(QLatin1String(list)), [this, list, rows] {
        const QAbstractItemModel& model = *find<QAbstractItemView>(list).model();
        constexpr int kWidths[] = {-34, -54, 0};
        for (int row = 0; row < std::min(rows, model.rowCount()); ++row) {
            QString line = QStringLiteral(" ");
            for (int column = 0; column < std::min(3, model.columnCount()); ++column)
                line += QStringLiteral(" %1").arg(model.index(row, column).data().toString(),
                                                  kWidths[column]);
            say(line);
        }
    });
}

Tour::Step Tour::printControls()
{
    return step(QStringLiteral("controls"), [this] {
        for (const auto* label : top().findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy())
                say(QStringLiteral("  %1 %2")
                        .arg(label->text(), -34)
                        .arg(textOfWidget(label->buddy())));
        }
        for (const auto* button : top().findChildren<QRadioButton*>()) {
            const auto* group = qobject_cast<QGroupBox*>(button->parentWidget());
            if (button->isVisible() && button->isChecked() && group)
                say(QStringLiteral("  %1 %2").arg(group->title(), -34).arg(button->text()));
        }
    });
}

Tour::Step Tour::expect(const char* what, std::function<bool()> condition)
{
    return {QStringLiteral("expected: %1").arg(QLatin1String(what)), std::move(condition)};
}

Tour::Step Tour::when(std::function<bool()> condition, Step step)
{
    step.ready = std::move(condition);
    return step;
}

QString Tour::textOf(const char* control) const
{
    return textOfWidget(&findWidget(control));
}

QString Tour::textAt(const char* list, int row, int column) const
{
    return find<QAbstractItemView>(list).model()->index(row, column).data().toString();
}

QWidget& Tour::top() const
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return *modal;
    QWidget* active = QApplication::activeWindow();
    const bool isMenu = active && active->windowType() == Qt::Popup;
    return active && !isMenu ? *active : static_cast<QWidget&>(m_window);
}

QWidget& Tour::findWidget(const char* name) const
{
    for (auto* widget : top().findChildren<QWidget*>(QLatin1String(name))) {
        if (widget->isVisible())
            return *widget;
    }
    fail(QStringLiteral("there is no %1").arg(QLatin1String(name)));
}

Tour::Step Tour::step(const QString& name, std::function<void()> act)
{
    return {name, [this] { return takesInput(); }, std::move(act)};
}

bool Tour::takesInput()
{
    if (QApplication::activeModalWidget())
        return true;
    const int page = m_window.currentPage();
    const bool shown = page >= 0 && (m_wantedPage < 0 || page == m_wantedPage);
    m_idlePasses = shown && !m_window.isBusy() ? m_idlePasses + 1 : 0;
    constexpr int kPasses = 4; // input that came while the program was busy is dropped that late
    return m_idlePasses >= kPasses;
}

} // namespace pelorin
