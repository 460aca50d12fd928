#include "app/PageArea.h"

#include "pages/CommLogPage.h"
#include "pages/FactoryParamsPage.h"
#include "pages/MagnetPositionPage.h"
#include "pages/OutputSetupPage.h"
#include "pages/SensorInfoPage.h"
#include "pages/SensorPage.h"
#include "platform/core/LanguageStrings.h"
#include "platform/ui/Pictures.h"
#include "tempcomp/TempCompPage.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

#include <utility>

namespace pelorin {

namespace {

constexpr int kRefreshText = 166;
constexpr int kPageListNameText = 1009;

constexpr QSize kIconSize(16, 16);
constexpr double kListShare = 0.20; ///< of the window's width
constexpr double kPageShare = 0.90; ///< of the window's height
constexpr int kButtonPoints = 18;

} // namespace

PageArea::PageArea(QWidget* window, SensorLink& link, FormatRestore& formats,
                   const Options& options)
    : QWidget(window), m_link(link), m_list(new QListWidget(this)),
      m_refreshButton(new QPushButton(this))
{
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setIconSize(kIconSize);
    m_list->installEventFilter(this);
    connect(m_list, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Q_EMIT pageChosen(m_list->row(item)); });

    m_refreshButton->setObjectName(QStringLiteral("refreshButton"));
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(kButtonPoints);
    m_refreshButton->setFont(font);
    connect(m_refreshButton, &QPushButton::clicked, this, &PageArea::refreshChosen);

    // In the order of the list; a page that does not exist here leaves no gap.
    constexpr const char* kInfo = "BMP_PELORIN_INFO";
    constexpr const char* kWrench = "BMP_PELORIN_WRENCH";
    auto* position = new MagnetPositionPage(formats, options.manualPower);
    auto* output = new OutputSetupPage;
    auto* factory = new FactoryParamsPage;
    addPage({new SensorInfoPage, 110, "information"}, kInfo);
    addPage({position, 261, "position"}, kInfo);
    addPage({output, 168, "output"}, kWrench);
    addPage({new CommLogPage, 188, "log"}, kInfo);
    addPage({factory, 214, "factory"}, kWrench);
    if (options.withTempComp)
        addPage({new TempCompPage, 253, "compensation"}, kWrench);
    connect(position, &MagnetPositionPage::formatKept, this, &PageArea::noticed);
    connect(output, &OutputSetupPage::applyFailed, this, &PageArea::noticed);
    connect(factory, &FactoryParamsPage::writingFailed, this, &PageArea::noticed);
    translate();
}

void PageArea::addPage(const Page& page, const char* icon)
{
    const int row = m_list->count();
    page.widget->makeDialog(this, m_link);
    m_pages.push_back(page);
    m_list->addItem(new QListWidgetItem(picture(QLatin1String(icon)), QString()));
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + row)), this);
    connect(shortcut, &QShortcut::activated, this, [this, row] { Q_EMIT pageChosen(row); });
}

SensorPage* PageArea::shownPage() const
{
    return m_currentPage < 0 ? nullptr : m_pages[static_cast<std::size_t>(m_currentPage)].widget;
}

QString PageArea::helpAnchor() const
{
    return m_currentPage < 0
               ? QString()
               : QString::fromLatin1(m_pages[static_cast<std::size_t>(m_currentPage)].helpAnchor);
}

void PageArea::switchPage(int row)
{
    if (SensorPage* page = shownPage()) {
        page->setNewValues();
        page->hide();
    }
    m_released = false;
    m_currentPage = row;
    m_list->setCurrentRow(row);
    layOut();
    shownPage()->show();
    shownPage()->getCurrentValues();
}

void PageArea::releaseLink()
{
    if (SensorPage* page = shownPage(); page && page->releaseLink())
        m_released = true;
}

void PageArea::resumeLink()
{
    if (std::exchange(m_released, false))
        shownPage()->getCurrentValues();
}

void PageArea::translate()
{
    m_refreshButton->setText(languageString(kRefreshText));
    m_list->setAccessibleName(languageString(kPageListNameText));
    for (std::size_t row = 0; row < m_pages.size(); ++row)
        m_list->item(static_cast<int>(row))->setText(languageString(m_pages[row].caption));
}

/// In the list the arrow keys only move; Enter and Space choose.
bool PageArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            if (m_list->currentRow() >= 0)
                Q_EMIT pageChosen(m_list->currentRow());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void PageArea::resizeEvent(QResizeEvent* event)
{
    layOut();
    QWidget::resizeEvent(event);
}

/// The page's share of the height counts the status bar under this area, too.
void PageArea::layOut()
{
    const int split = static_cast<int>(width() * kListShare);
    const int bottom = static_cast<int>((window()->height() - y()) * kPageShare);
    m_list->setGeometry(0, 0, split, height());
    m_refreshButton->setGeometry(split, bottom, width() - split, height() - bottom);
    if (SensorPage* page = shownPage())
        page->setGeometry(split, 0, width() - split, bottom);
}

} // namespace pelorin
