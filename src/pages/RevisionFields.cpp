#include "pages/RevisionFields.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace pelorin {

namespace {

QString textOf(std::optional<int> bound)
{
    return bound ? revisionText(*bound) : QString();
}

std::optional<int> boundIn(const QLineEdit& edit)
{
    bool isNumber = false;
    const int bound = edit.text().toInt(&isNumber, 16);
    return isNumber ? std::optional(bound) : std::nullopt;
}

} // namespace

void RevisionFields::attach(const std::array<Edits, kSsiTypeCount>& edits,
                            const std::function<void()>& changed)
{
    m_edits = edits;
    const QRegularExpression twoDigits(QStringLiteral("[0-9A-Fa-f]{0,2}"));
    for (const auto& [low, high] : m_edits) {
        for (QLineEdit* edit : {low, high}) {
            edit->setValidator(new QRegularExpressionValidator(twoDigits, edit));
            QObject::connect(edit, &QLineEdit::textChanged, edit, changed);
        }
    }
}

void RevisionFields::show(const Ranges& ranges)
{
    for (std::size_t type = 0; type < m_edits.size(); ++type) {
        m_edits[type].low->setText(textOf(ranges[type].low));
        m_edits[type].high->setText(textOf(ranges[type].high));
    }
}

RevisionFields::Ranges RevisionFields::entered() const
{
    Ranges ranges;
    for (std::size_t type = 0; type < m_edits.size(); ++type)
        ranges[type] = {boundIn(*m_edits[type].low), boundIn(*m_edits[type].high)};
    return ranges;
}

void RevisionFields::translate()
{
    for (std::size_t type = 0; type < m_edits.size(); ++type) {
        const QString name = languageString(strings::kTypeNumber).arg(type) + QStringLiteral(", ");
        m_edits[type].low->setAccessibleName(name + languageString(strings::kLowestRevision));
        m_edits[type].high->setAccessibleName(name + languageString(strings::kHighestRevision));
    }
}

} // namespace pelorin
