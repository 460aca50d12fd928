#include "app/PagePane.h"

#include "app/CommandGate.h"
#include "app/NoticeStrip.h"
#include "app/SensorHeader.h"
#include "pages/CommLogPage.h"
#include "pages/FactoryParamsPage.h"
#include "pages/MagnetPositionPage.h"
#include "pages/OutputSetupPage.h"
#include "pages/SensorInfoPage.h"
#include "pages/SensorPage.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "platform/ui/Pictures.h"
#include "sensor/SafeWriter.h"
#include "tempcomp/TempCompPage.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

namespace pelorin {

namespace {

constexpr QSize kIconSize(16, 16);
constexpr double kListShare = 0.20; ///< of the window's width
constexpr double kPageShare = 0.90; ///< of the window's height
constexpr int kButtonPoints = 18;
constexpr const char* kInfo = "BMP_PELORIN_INFO";
constexpr const char* kWrench = "BMP_PELORIN_WRENCH";

} // namespace

PagePane::PagePane(QWidget* window, SafeWriter& writer, PositionStream& stream,
                   const FormatRestore& formats, bool tempCompEnabled)
    : QWidget(window), m_runner(writer.runner()), m_header(new SensorHeader(this, writer)),
      m_strip(new NoticeStrip(this)), m_pageList(new QListWidget(this)),
      m_refreshButton(new QPushButton(this))
{
    m_pageList->setObjectName(QStringLiteral("pageList"));
    m_pageList->setIconSize(kIconSize);
    m_pageList->installEventFilter(this);
    connect(m_pageList, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int row = m_pageList->row(item);
        markShownPage();
        Q_EMIT pageChosen(row);
    });
    connect(m_pageList, &QListWidget::itemSelectionChanged, this, &PagePane::markShownPage);

    m_refreshButton->setObjectName(QStringLiteral("refreshButton"));
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(kButtonPoints);
    m_refreshButton->setFont(font);
    connect(m_refreshButton, &QPushButton::clicked, this, &PagePane::refreshChosen);

    // In the order of the list.
    addPage({new SensorInfoPage, strings::kSensorInformation, "information", true}, kInfo);
    addPage({new MagnetPositionPage(stream), strings::kMagnetPosition, "position", true}, kInfo);
    addPage({new OutputSetupPage(writer), strings::kOutputSetup, "output", true}, kWrench);
    addPage({new CommLogPage, strings::kCommLog, "log"}, kInfo);
    addPage({new FactoryParamsPage(formats, writer), strings::kFactoryParameters, "factory", true},
            kWrench);
    showTempComp(tempCompEnabled);
    connect(m_header, &SensorHeader::connectedChanged, this, &PagePane::showConnected);
    connect(m_header, &SensorHeader::cancelChosen, this, [this] {
        if (SensorPage* page = shownPage())
            page->cancelReading();
    });
    showConnected(false);
    translate();
    m_pageList->setFocus(); // at the start, whatever the strip has to tell
}

/// Without a sensor that is identified its values stay to be looked at, in gray. Buttons look as
/// what they are: some need no sensor.
void PagePane::showConnected(bool connected)
{
    QPalette colors;
    QPalette buttons;
    if (!connected) {
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            buttons.setColor(group, QPalette::ButtonText,
                             buttons.color(group, QPalette::ButtonText));
        }
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            colors.setColor(role, colors.color(QPalette::Disabled, role));
    }
    for (const Page& page : m_pages) {
        if (!page.ofSensor)
            continue;
        page.area->setPalette(colors);
        for (auto* button : page.area->findChildren<QPushButton*>())
            button->setPalette(buttons);
    }
}

void PagePane::addPage(Page page, const char* icon)
{
    const int row = m_pageList->count();
    page.area = new QScrollArea(this);
    page.area->setFrameShape(QFrame::NoFrame);
    page.area->setWidgetResizable(true);
    page.area->setFocusPolicy(Qt::NoFocus);
    page.area->hide();
    page.widget->makeDialog(page.area->viewport(), m_runner);
    page.area->setWidget(page.widget);
    page.widget->hide();
    connect(page.widget, &SensorPage::noticed, this, &PagePane::noticed);
    connect(page.widget, &SensorPage::entriesChanged, this, &PagePane::entriesChanged);
    connect(page.widget, &SensorPage::readingChanged, this, &PagePane::showReading);
    m_pageList->addItem(new QListWidgetItem(picture(QLatin1String(icon)), QString()));
    page.shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + row)), this);
    connect(page.shortcut, &QShortcut::activated, this, [this, row] { Q_EMIT pageChosen(row); });
    m_pages.push_back(page);
}

void PagePane::showTempComp(bool shown)
{
    if (shown == (m_tempComp != nullptr))
        return;
    if (!shown) {
        m_tempComp = nullptr;
        return removeLastPage();
    }
    m_tempComp = new TempCompPage;
    addPage({m_tempComp, strings::kTemperatureCompensation, "compensation"}, kWrench);
    m_pageList->item(m_pageList->count() - 1)
        ->setText(languageString(strings::kTemperatureCompensation));
}

void PagePane::removeLastPage()
{
    const Page page = m_pages.back();
    if (shownPage() == page.widget)
        switchPage(0);
    m_pages.pop_back();
    delete page.shortcut;
    delete m_pageList->takeItem(m_pageList->count() - 1);
    delete page.area; // and the page in it
}

bool PagePane::hasTables() const
{
    return m_tempComp && m_tempComp->hasEntries();
}

SensorPage* PagePane::shownPage() const
{
    return m_currentPage < 0 ? nullptr : m_pages[static_cast<std::size_t>(m_currentPage)].widget;
}

int PagePane::entryCount() const
{
    const SensorPage* page = shownPage();
    return page ? page->entryCount() : 0;
}

QStringList PagePane::questionsBefore(Leaving leaving) const
{
    QStringList questions;
    if (entryCount() != 0)
        questions << languageString(strings::kAskToDiscard).arg(entryCount());
    if (leaving == Leaving::Window && hasTables())
        questions << languageString(strings::kAskToDiscardTables);
    return questions;
}

bool PagePane::mayDiscard(CommandGate& gate, Leaving leaving, const QString& reason)
{
    QStringList questions = questionsBefore(leaving);
    if (questions.isEmpty())
        return true;
    if (!reason.isEmpty())
        questions.prepend(reason);
    const CommandGate::Scope scope(gate);
    const int answer =
        askWithButtons(window(), questions.join(QStringLiteral("\n\n")),
                       {languageString(strings::kStay), languageString(strings::kDiscard)}, 0);
    if (answer != 1 || gate.isCloseWanted())
        return false;
    if (entryCount() != 0)
        shownPage()->discardEntries();
    return true;
}

QString PagePane::helpAnchor() const
{
    return m_currentPage < 0
               ? QString()
               : QString::fromLatin1(m_pages[static_cast<std::size_t>(m_currentPage)].helpAnchor);
}

void PagePane::switchPage(int row)
{
    if (SensorPage* page = shownPage()) {
        page->setNewValues();
        page->hide();
        m_pages[static_cast<std::size_t>(m_currentPage)].area->hide();
    }
    m_currentPage = row;
    m_header->showSensor(); // a stop may have found none
    markShownPage();
    m_pageList->setCurrentRow(row, QItemSelectionModel::NoUpdate);
    layOut();
    m_pages[static_cast<std::size_t>(row)].area->show();
    shownPage()->show();
    shownPage()->getCurrentValues();
    Q_EMIT entriesChanged();
}

/// The selected row is always that of the shown page, whatever the list makes of drags and clicks.
void PagePane::markShownPage()
{
    const QSignalBlocker blocker(m_pageList);
    m_pageList->selectionModel()->clearSelection();
    if (m_currentPage >= 0)
        m_pageList->item(m_currentPage)->setSelected(true);
}

void PagePane::showReading()
{
    const SensorPage* page = shownPage();
    m_header->offerCancel(page && page->isReading());
}

void PagePane::translate()
{
    m_refreshButton->setText(languageString(strings::kRefresh));
    m_strip->translate();
    m_pageList->setAccessibleName(languageString(strings::kPageListName));
    for (std::size_t row = 0; row < m_pages.size(); ++row)
        m_pageList->item(static_cast<int>(row))->setText(languageString(m_pages[row].caption));
    layOut();
}

/// In the list the arrow keys only move the frame that shows where one is; Enter and Space choose.
/// Whoever leaves the list finds it at the shown page again.
bool PagePane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pageList)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut && m_currentPage >= 0)
        m_pageList->setCurrentRow(m_currentPage, QItemSelectionModel::NoUpdate);
    return event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent*>(event)->key());
}

/// @return whether the key means something here
bool PagePane::takeKey(int key)
{
    const int last = m_pageList->count() - 1;
    const int row = m_pageList->currentRow();
    int next = 0;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (row >= 0)
            Q_EMIT pageChosen(row);
        return true;
    case Qt::Key_Up:
        next = std::max(row - 1, 0);
        break;
    case Qt::Key_Down:
        next = std::min(row + 1, last);
        break;
    case Qt::Key_Home:
    case Qt::Key_PageUp:
        break;
    case Qt::Key_End:
    case Qt::Key_PageDown:
        next = last;
        break;
    default:
        return false;
    }
    m_pageList->setCurrentRow(next, QItemSelectionModel::NoUpdate);
    return true;
}

void PagePane::resizeEvent(QResizeEvent* event)
{
    layOut();
    QWidget::resizeEvent(event);
}

/// What the list needs to show its captions; in a small window that is more than its share.
int PagePane::captionsWidth() const
{
    constexpr int kRoom = 8; ///< logical pixels
    return m_pageList->sizeHintForColumn(0) + 2 * m_pageList->frameWidth() + kRoom;
}

/// The page's share of the height counts the status bar under this area, too.
void PagePane::layOut()
{
    const int split = std::max(static_cast<int>(width() * kListShare), captionsWidth());
    const int bottom = static_cast<int>((window()->height() - y()) * kPageShare);
    m_pageList->setGeometry(0, 0, split, height());
    m_refreshButton->setGeometry(split, bottom, width() - split, height() - bottom);
    int top = 0;
    for (QWidget* line : {static_cast<QWidget*>(m_header), static_cast<QWidget*>(m_strip)}) {
        line->setGeometry(split, top, width() - split, line->height());
        top += line->height();
    }
    if (m_currentPage >= 0) {
        m_pages[static_cast<std::size_t>(m_currentPage)].area->setGeometry(
            split, top, width() - split, bottom - top);
    }
}

} // namespace pelorin
