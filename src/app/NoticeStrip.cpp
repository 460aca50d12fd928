#include "app/NoticeStrip.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

constexpr int kLines = 3;  ///< what differs in one parameter takes as many
constexpr int kMargin = 4; ///< logical pixels

} // namespace

NoticeStrip::NoticeStrip(QWidget* parent)
    : QFrame(parent), m_light(new QLabel(this)), m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("noticeStrip"));
    m_text->setObjectName(QStringLiteral("noticeText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(m_text);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_light);
    layout->addWidget(area, 1);
    for (std::size_t index = 0; index < m_buttons.size(); ++index) {
        auto* button = new QPushButton(this);
        button->setObjectName(QStringLiteral("noticeButton%1").arg(index + 1));
        button->setAutoDefault(false);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, index] {
            if (index >= m_notice.buttons.size())
                return;
            const auto clicked = m_notice.buttons[index].clicked; // may show another notice
            clicked();
        });
        m_buttons[index] = button;
    }
    const int lines = kLines * fontMetrics().lineSpacing();
    setFixedHeight(std::max(lines, m_buttons[0]->sizeHint().height()) + 2 * kMargin);
    render();
}

void NoticeStrip::show(Notice notice)
{
    const void* former = m_notice.owner;
    m_notice = std::move(notice);
    render();
    if (former && former != m_notice.owner && !isEmpty())
        Q_EMIT replaced(former);
}

void NoticeStrip::clear()
{
    const bool shown = !isEmpty();
    const void* owner = m_notice.owner;
    show({});
    if (shown)
        Q_EMIT emptied(owner);
}

QString NoticeStrip::text() const
{
    return m_text->text();
}

void NoticeStrip::translate()
{
    render();
}

void NoticeStrip::render()
{
    const bool shown = !isEmpty();
    m_light->setPixmap(shown ? lightPixmap(m_notice.light) : QPixmap());
    m_text->setText(shown ? m_notice.text() : QString());
    m_text->setToolTip(m_text->text()); // where it is longer than the strip
    m_text->setVisible(shown);
    m_text->setFocusPolicy(shown ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleName(languageString(strings::kNoticeName));
    for (std::size_t index = 0; index < m_buttons.size(); ++index)
        renderButton(index);
}

void NoticeStrip::renderButton(std::size_t index)
{
    QPushButton& button = *m_buttons[index];
    const bool used = index < m_notice.buttons.size();
    button.setVisible(used);
    const bool opensMenu = used && m_notice.buttons[index].fill;
    if (QMenu* former = button.menu(); former && !opensMenu) {
        button.setMenu(nullptr);
        former->deleteLater(); // an item of it may have brought this notice
    } else if (opensMenu && !former) {
        auto* menu = new QMenu(&button);
        connect(menu, &QMenu::aboutToShow, this, [this, menu, index] {
            menu->clear();
            m_notice.buttons[index].fill(*menu);
        });
        button.setMenu(menu);
    }
    if (used)
        button.setText(languageString(m_notice.buttons[index].caption));
}

} // namespace pelorin
