#include "pages/ManualCommDialog.h"

#include "link/SensorLink.h"
#include "pages/HexFields.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/SequenceRunner.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QTextCharFormat>

#include <vector>

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

constexpr int kWidthInDigits = 72;
constexpr std::size_t kMostNamedFields = 3;
constexpr int kMostCharactersOfField = 16;

/// More than the line can deliver within the time limit. A longer text gets line breaks, since
/// one of a million bytes without any would take the toolkit many seconds to lay out.
constexpr qsizetype kBytesPerParagraph = qsizetype{32} * 1024;

/// Underlines the fields that are no hexadecimal bytes.
void underline(QLineEdit& edit, const std::vector<HexField>& fields)
{
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(Qt::red);
    QList<QInputMethodEvent::Attribute> marks;
    for (const HexField& field : fields) {
        if (!field.isHex) { // positions count from the cursor
            marks.append({QInputMethodEvent::TextFormat,
                          static_cast<int>(field.start) - edit.cursorPosition(),
                          static_cast<int>(field.text.size()), format});
        }
    }
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
        named << languageString(strings::kFieldSentAs)
                     .arg(QString::number(index + 1), field.text.left(kMostCharactersOfField),
                          hexFieldsText(QByteArray(1, field.byte)));
    }
    return named.join(QStringLiteral("; "));
}

} // namespace

ManualCommDialog::ManualCommDialog(QWidget* parent, SequenceRunner& runner)
    : BaseDialog(QStringLiteral("125_ManualComm"), parent), m_runner(runner)
{
}

void ManualCommDialog::setupTranslationMap()
{
    setTitleString(strings::kManualCommunications);
    addToTranslationMap(kSendLabel, strings::kSend);
    addToTranslationMap(kReceiveLabel, strings::kReceive);
    addToTranslationMap(kExecuteButton, strings::kExecute);
    addToTranslationMap(kOkButton, strings::kOk);
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
    m_markLabel->setAccessibleDescription(languageString(strings::kMarkName));
    m_outcomeLabel->setAccessibleDescription(languageString(strings::kOutcomeName));
    markFields();
    setOutcome(m_outcomeText);
}

void ManualCommDialog::execute()
{
    if (m_runner.isBusy())
        return;
    m_receiveEdit->clear();
    setOutcome(0);
    const auto fields = hexFieldsOf(m_sendEdit->text());
    if (fields.empty())
        return;
    QByteArray bytes;
    for (const HexField& field : fields)
        bytes.append(field.byte);
    if (m_runner.link().linkFailed() == 1) {
        setOutcome(strings::kNothingSent);
    } else if (!m_runner.start(*this, rawPlan(bytes),
                               {.ended = [this](const Outcome& outcome) { takeReply(outcome); }})) {
        setOutcome(strings::kConnectedLater);
    }
}

/// Bytes that came before the link was lost are shown too.
void ManualCommDialog::takeReply(const Outcome& outcome)
{
    const bool sent =
        outcome.kind != Outcome::Kind::Failed && outcome.kind != Outcome::Kind::StreamNotEnded;
    const RawReply reply = sent ? m_runner.link().rawReply() : RawReply();
    showBytes(reply.bytes);
    if (outcome.kind == Outcome::Kind::StreamNotEnded) {
        setOutcome(strings::kStreamNotEnded);
    } else if (!sent) {
        setOutcome(strings::kNothingSent);
    } else if (outcome.kind == Outcome::Kind::Lost) {
        setOutcome(strings::kExchangeLost);
    } else {
        setOutcome(reply.cut ? strings::kReplyCut : 0);
    }
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
    m_markLabel->setText(named.isEmpty() ? QString()
                                         : languageString(strings::kSentNotHex).arg(named));
}

void ManualCommDialog::setOutcome(int stringNumber)
{
    m_outcomeText = stringNumber;
    m_outcomeLabel->setText(languageString(stringNumber));
}

} // namespace pelorin
