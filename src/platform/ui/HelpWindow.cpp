#include "platform/ui/HelpWindow.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QFile>
#include <QFileInfo>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <cerrno>

namespace pelorin {

namespace {

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
    layout->addWidget(m_browser);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
}

HelpWindow::Failure HelpWindow::showHelp(const QString& path, const QString& anchor)
{
    const Failure failure = tryReading(path);
    if (failure.error != 0)
        return failure;

    setWindowTitle(languageString(strings::kHelpTitle));
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
