#include "pages/ManualCommDialog.h"

#include "link/SensorLink.h"
#include "pages/HexFields.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QTextCharFormat>

#include <utility>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kSendLabel = 1050;
constexpr int kSendEdit = 1051;
constexpr int kReceiveLabel = 1052;
constexpr int kReceiveEdit = 1053;
constexpr int kExecuteButton = 1054;
constexpr int kMarkLabel = 1055;
constexpr int kOutcomeLabel = 1056;

constexpr int kMarkText = 1400;
constexpr int kMarkedFieldText = 1401;
constexpr int kNotSentText = 1402;
constexpr int kCutText = 1403;
constexpr int kMarkDescription = 1404;
constexpr int kOutcomeDescription = 1405;
constexpr int kLinkLostText = 1407;

constexpr int kWidthInDigits = 72;
constexpr std::size_t kMostNamedFields = 3;
constexpr int kMostCharactersOfField = 16;

/// More than the line can deliver within the time limit. A longer text gets line breaks, since
/// one of a million bytes without any would take the toolkit many seconds to lay out.
constexpr qsizetype kBytesPerParagraph = 32 * 1024;

/// Underlines the fields that are no hexadecimal bytes.
void underline(QLineEdit& edit, const std::vector<HexField>& fields)
{
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(Qt::red);
    QList<QInputMethodEvent::Attribute> marks;
    for (const HexField& field : fields)
        if (!field.isHex) // positions count from the cursor
            marks.append({QInputMethodEvent::TextFormat,
                          static_cast<int>(field.start) - edit.cursorPosition(),
                          static_cast<int>(field.text.size()), format});
    QInputMethodEvent event(QString(), marks);
    QCoreApplication::sendEvent(&edit, &event);
}

/// The first fields that are no hexadecimal bytes, and what is sent for them.
QString describe(const std::vector<HexField>& fields)
{
    QStringList named;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        const HexField& field = fields[index];
        if (field.isHex)
            continue;
        if (named.size() == kMostNamedFields) {
            named << QStringLiteral("\u2026");
            break;
        }
        named << languageString(kMarkedFieldText)
                     .arg(QString::number(index + 1), field.text.left(kMostCharactersOfField),
                          hexFieldsText(QByteArray(1, field.byte)));
    }
    return named.join(QStringLiteral("; "));
}

} // namespace

ManualCommDialog::ManualCommDialog(QWidget* parent, SensorLink& link)
    : BaseDialog(QStringLiteral("125_ManualComm"), parent), m_link(link)
{
    m_link.setReplyTarget(this, WM_MANUAL_COMM);
}

/// An answer that is still to come finds nobody; the busy state must end all the same.
ManualCommDialog::~ManualCommDialog()
{
    m_link.setReplyTarget(nullptr, 0);
    if (m_outstanding != 0)
        showBusy(0);
}

void ManualCommDialog::setupTranslationMap()
{
    setTitleString(251);
    addToTranslationMap(kSendLabel, 248);
    addToTranslationMap(kReceiveLabel, 249);
    addToTranslationMap(kExecuteButton, 250);
    addToTranslationMap(kOkButton, 241);
}

void ManualCommDialog::onInitDialog()
{
    m_sendEdit = getControl<QLineEdit>(kSendEdit);
    m_receiveEdit = getControl<QPlainTextEdit>(kReceiveEdit);
    m_markLabel = getControl<QLabel>(kMarkLabel);
    m_outcomeLabel = getControl<QLabel>(kOutcomeLabel);

    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_sendEdit->setFont(font);
    m_receiveEdit->setFont(font);
    m_sendEdit->setMinimumWidth(kWidthInDigits * QFontMetrics(font).horizontalAdvance(u'0'));

    connect(m_sendEdit, &QLineEdit::textChanged, this, &ManualCommDialog::markFields);
    connect(getControl<QPushButton>(kExecuteButton), &QPushButton::clicked, this,
            &ManualCommDialog::execute);
    m_sendEdit->selectAll();
    m_sendEdit->setFocus();
}

void ManualCommDialog::translate()
{
    BaseDialog::translate();
    m_markLabel->setAccessibleDescription(languageString(kMarkDescription));
    m_outcomeLabel->setAccessibleDescription(languageString(kOutcomeDescription));
    markFields();
    setOutcome(m_outcomeText);
}

void ManualCommDialog::execute()
{
    m_receiveEdit->clear();
    setOutcome(0);
    const auto fields = hexFieldsOf(m_sendEdit->text());
    if (fields.empty())
        return;
    if (m_link.linkFailed() == 1) {
        setOutcome(kNotSentText);
        return;
    }
    showBusy(1);
    QByteArray bytes;
    for (const HexField& field : fields)
        bytes.append(field.byte);
    m_lossesAtStart = m_link.lossCount();
    m_outstanding = m_link.requestRawExchange(bytes);
}

void ManualCommDialog::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (message && message->message() == WM_MANUAL_COMM && m_outstanding != 0 &&
        message->request() == m_outstanding)
        takeReply(static_cast<int>(message->wParam()));
}

/// Bytes that came before the link was lost are shown too.
void ManualCommDialog::takeReply(int result)
{
    m_outstanding = 0;
    RawReply reply;
    if (result == 1)
        reply = m_link.rawReply();
    showBytes(reply.bytes);
    if (result != 1)
        setOutcome(kNotSentText);
    else if (m_link.lossCount() != m_lossesAtStart)
        setOutcome(kLinkLostText);
    else
        setOutcome(reply.cut ? kCutText : 0);
    showBusy(0);
}

void ManualCommDialog::showBytes(const QByteArray& bytes)
{
    QStringList paragraphs;
    for (qsizetype start = 0; start < bytes.size(); start += kBytesPerParagraph)
        paragraphs << hexFieldsText(bytes.mid(start, kBytesPerParagraph));
    m_receiveEdit->setPlainText(paragraphs.join(QStringLiteral(",\n")));
}

void ManualCommDialog::markFields()
{
    const auto fields = hexFieldsOf(m_sendEdit->text());
    underline(*m_sendEdit, fields);
    const QString named = describe(fields);
    m_markLabel->setText(named.isEmpty() ? QString() : languageString(kMarkText).arg(named));
}

void ManualCommDialog::setOutcome(int stringNumber)
{
    m_outcomeText = stringNumber;
    m_outcomeLabel->setText(languageString(stringNumber));
}

void ManualCommDialog::showBusy(int busy)
{
    QCoreApplication::postEvent(parentWidget()->window(),
                                new WindowMessage(WM_BUSY, static_cast<std::uintptr_t>(busy)));
}

} // namespace pelorin
