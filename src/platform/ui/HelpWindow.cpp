#include "platform/ui/HelpWindow.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

#include <cerrno>
#include <initializer_list>
#include <tuple>
#include <utility>

namespace pelorin {

namespace {

constexpr int kBarMargin = 4; ///< logical pixels

HelpWindow::Failure tryReading(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return {1, ENOENT};
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly) || (file.read(1).isEmpty() && file.size() > 0))
        return {2, errno};
    return {};
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), m_browser(new QTextBrowser(this))
{
    resize(820, 640);
    m_browser->setObjectName(QStringLiteral("helpText"));
    m_browser->setOpenExternalLinks(true);
    m_browser->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(makeBar());
    layout->addWidget(m_browser);
    m_browser->setFocus();
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
}

QToolButton* HelpWindow::addArrow(QHBoxLayout& bar, const char* name, Qt::ArrowType arrow)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    bar.addWidget(button);
    return button;
}

QHBoxLayout* HelpWindow::makeBar()
{
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, 0);
    m_back = addArrow(*bar, "helpBack", Qt::LeftArrow);
    m_forward = addArrow(*bar, "helpForward", Qt::RightArrow);
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    connect(m_back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QWidget::setEnabled);

    bar->addStretch();
    m_findResult = new QLabel(this);
    m_findResult->setObjectName(QStringLiteral("helpFindResult"));
    m_findLabel = new QLabel(this);
    m_findEdit = new QLineEdit(this);
    m_findEdit->setObjectName(QStringLiteral("helpFind"));
    m_findEdit->setClearButtonEnabled(true);
    m_findLabel->setBuddy(m_findEdit);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_findResult, m_findLabel, m_findEdit})
        bar->addWidget(widget);
    m_previous = addArrow(*bar, "helpFindPrevious", Qt::UpArrow);
    m_next = addArrow(*bar, "helpFindNext", Qt::DownArrow);

    connect(m_findEdit, &QLineEdit::textChanged, this, [this] { find(Direction::FromHere); });
    connect(m_findEdit, &QLineEdit::returnPressed, this, [this] { find(Direction::Next); });
    for (const auto& [button, keys, direction] :
         {std::tuple(m_next, QKeySequence::FindNext, Direction::Next),
          std::tuple(m_previous, QKeySequence::FindPrevious, Direction::Previous)}) {
        const auto findThere = [this, direction = direction] { find(direction); };
        connect(button, &QToolButton::clicked, this, findThere);
        connect(new QShortcut(keys, this), &QShortcut::activated, this, findThere);
    }
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_findEdit->setFocus();
        m_findEdit->selectAll();
    });
    return bar;
}

/// The captions have the language of the text, which stays as it is until help is asked for again.
void HelpWindow::translate()
{
    setWindowTitle(languageString(strings::kHelpTitle));
    m_findLabel->setText(languageString(strings::kFind));
    for (const auto& [button, caption] :
         {std::pair(m_back, strings::kHelpBack), std::pair(m_forward, strings::kHelpForward),
          std::pair(m_previous, strings::kFindPrevious), std::pair(m_next, strings::kFindNext)}) {
        button->setToolTip(languageString(caption));
        button->setAccessibleName(languageString(caption));
    }
}

/// At the end of the text it goes on from the other side.
void HelpWindow::find(Direction direction)
{
    const QString text = m_findEdit->text();
    QTextCursor cursor = m_browser->textCursor();
    if (direction == Direction::FromHere || text.isEmpty()) {
        cursor.setPosition(cursor.selectionStart());
        m_browser->setTextCursor(cursor);
    }
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, direction == Direction::Previous);
    bool found = text.isEmpty() || m_browser->find(text, flags);
    if (!found) {
        const QTextCursor before = m_browser->textCursor();
        m_browser->moveCursor(direction == Direction::Previous ? QTextCursor::End
                                                               : QTextCursor::Start);
        found = m_browser->find(text, flags);
        if (!found)
            m_browser->setTextCursor(before);
    }
    m_findResult->setText(found ? QString() : languageString(strings::kNotFound));
}

HelpWindow::Failure HelpWindow::showHelp(const QString& path, const QString& anchor)
{
    const Failure failure = tryReading(path);
    if (failure.error != 0)
        return failure;

    translate();
    show(); // first, since only a shown text has places to scroll to
    raise();
    activateWindow();
    QUrl source = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    source.setFragment(anchor);
    m_browser->setSource(source);
    m_browser->setAccessibleName(m_browser->documentTitle());
    return {};
}

} // namespace pelorin
