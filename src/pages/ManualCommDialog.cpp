#include "pages/ManualCommDialog.h"

#include "link/SensorFrame.h"
#include "link/SensorLink.h"
#include "pages/HexFields.h"
#include "pages/SendHistory.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
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
constexpr int kTextLabel = 1057;
constexpr int kTextEdit = 1058;
constexpr int kReadButton = 1059;

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

/// Text with a line break now and then.
void showInParagraphs(QPlainTextEdit& edit, const QByteArray& bytes,
                      QString (*textOf)(const QByteArray&), const QString& separator)
{
    QStringList paragraphs;
    for (qsizetype start = 0; start < bytes.size(); start += kBytesPerParagraph)
        paragraphs << textOf(bytes.mid(start, kBytesPerParagraph));
    edit.setPlainText(paragraphs.join(separator));
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

ManualCommDialog::ManualCommDialog(QWidget* parent, SequenceRunner& runner, SendHistory& history)
    : BaseDialog(QStringLiteral("125_ManualComm"), parent), m_runner(runner), m_history(history)
{
    m_history.leave();
}

void ManualCommDialog::setupTranslationMap()
{
    setTitleString(strings::kManualCommunications);
    addToTranslationMap(kSendLabel, strings::kSend);
    addToTranslationMap(kReceiveLabel, strings::kReceive);
    addToTranslationMap(kTextLabel, strings::kReceivedAsText);
    addToTranslationMap(kExecuteButton, strings::kExecute);
    addToTranslationMap(kReadButton, strings::kReadParameter);
    addToTranslationMap(kOkButton, strings::kOk);
}

void ManualCommDialog::onInitDialog()
{
    m_sendEdit = getControl<QLineEdit>(kSendEdit);
    m_receiveEdit = getControl<QPlainTextEdit>(kReceiveEdit);
    m_textEdit = getControl<QPlainTextEdit>(kTextEdit);
    m_markLabel = getControl<QLabel>(kMarkLabel);
    m_outcomeLabel = getControl<QLabel>(kOutcomeLabel);

    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_sendEdit->setFont(font);
    m_receiveEdit->setFont(font);
    m_textEdit->setFont(font);
    m_sendEdit->setMinimumWidth(kWidthInDigits * QFontMetrics(font).horizontalAdvance(u'0'));

    m_sendEdit->installEventFilter(this);
    m_readMenu = new QMenu(this);
    getControl<QPushButton>(kReadButton)->setMenu(m_readMenu);
    connect(m_sendEdit, &QLineEdit::textChanged, this, &ManualCommDialog::markFields);
    connect(getControl<QPushButton>(kExecuteButton), &QPushButton::clicked, this,
            &ManualCommDialog::execute);
    m_sendEdit->selectAll();
    m_sendEdit->setFocus();
}

void ManualCommDialog::translate()
{
    BaseDialog::translate();
    m_sendEdit->setPlaceholderText(languageString(strings::kSendHint));
    m_sendEdit->setAccessibleDescription(languageString(strings::kSendHint));
    fillReadMenu();
    m_markLabel->setAccessibleDescription(languageString(strings::kMarkName));
    m_outcomeLabel->setAccessibleDescription(languageString(strings::kOutcomeName));
    markFields();
    setOutcome(m_outcomeText);
}

void ManualCommDialog::fillReadMenu()
{
    m_readMenu->clear();
    for (const char id : sensorType(m_runner.link().ssiType()).information) {
        m_readMenu->addAction(parameterInWords(id), this, [this, id] {
            m_sendEdit->setText(hexFieldsText(readFrameOf(id)));
            m_sendEdit->setFocus();
        });
    }
}

bool ManualCommDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_sendEdit && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            const QString typed = m_sendEdit->text();
            m_sendEdit->setText(key == Qt::Key_Up ? m_history.older(typed)
                                                  : m_history.newer(typed));
            return true;
        }
    }
    return BaseDialog::eventFilter(watched, event);
}

void ManualCommDialog::execute()
{
    if (m_runner.isBusy())
        return;
    m_receiveEdit->clear();
    m_textEdit->clear();
    setOutcome(0);
    const auto fields = hexFieldsOf(m_sendEdit->text());
    if (fields.empty())
        return;
    m_history.add(m_sendEdit->text());
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
    showInParagraphs(*m_receiveEdit, bytes, hexFieldsText, QStringLiteral(",\n"));
    showInParagraphs(*m_textEdit, bytes, charactersOf, QStringLiteral("\n"));
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
