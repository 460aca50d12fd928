#include "platform/core/Profile.h"

#include "platform/core/IniText.h"

#include <cerrno>

namespace pelorin {

namespace {

constexpr qint64 kLargestFile = qint64{1024} * 1024;

QByteArray section()
{
    return QByteArrayLiteral("Setup");
}

} // namespace

Profile::Profile(const QString& fileName) : m_file(fileName)
{
    read();
}

void Profile::read()
{
    const auto [outcome, content] = m_file.read(kLargestFile);
    const bool missing = outcome.systemError == ENOENT;
    m_unreadable = missing ? WholeFile::Outcome() : outcome;
    m_damaged = IniText(content).isDamaged();
    m_text = m_damaged ? QByteArray() : content;
}

int Profile::readInt(const QString& name, int defaultValue) const
{
    bool isNumber = false;
    const int value = IniText(m_text).value(section(), name.toUtf8()).toInt(&isNumber);
    return isNumber ? value : defaultValue;
}

bool Profile::has(const QString& name) const
{
    return !IniText(m_text).value(section(), name.toUtf8()).isNull();
}

QMap<QString, QString> Profile::readTexts(const QString& name) const
{
    QMap<QString, QString> texts;
    for (const auto& entry : IniText(m_text).entries()) {
        if (entry.section == name.toUtf8()) {
            texts[QString::fromUtf8(entry.key)] =
                QString::fromUtf8(QByteArray::fromPercentEncoding(entry.value));
        }
    }
    return texts;
}

WholeFile::Outcome Profile::write(const QMap<QString, int>& values)
{
    if (values.isEmpty())
        return {};
    return change([&values](IniText& ini) {
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            ini.set(section(), value.key().toUtf8(), QByteArray::number(value.value()));
    });
}

WholeFile::Outcome Profile::writeTexts(const QString& name, const QMap<QString, QString>& texts)
{
    return change([&](IniText& ini) {
        for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
            const QByteArray key = text.key().toUtf8();
            if (text.value().isEmpty()) {
                ini.remove(name.toUtf8(), key);
            } else {
                ini.set(name.toUtf8(), key, text.value().toUtf8().toPercentEncoding("/:?=+@,"));
            }
        }
    });
}

/// Another run of the program may have written the file meanwhile.
WholeFile::Outcome Profile::change(const std::function<void(IniText&)>& edit)
{
    read();
    if (!m_unreadable.isDone())
        return m_unreadable;
    if (m_damaged) {
        if (auto outcome = setDamagedFileAside(); !outcome.isDone())
            return outcome;
    }
    IniText ini(m_text);
    edit(ini);
    const QByteArray text = ini.text();
    if (text == m_text)
        return {};
    if (auto outcome = m_file.makeFolder(); !outcome.isDone())
        return outcome;
    auto outcome = m_file.save(text);
    if (outcome.isDone())
        m_text = text;
    return outcome;
}

WholeFile::Outcome Profile::setDamagedFileAside()
{
    auto outcome = m_file.moveTo(fileName() + QStringLiteral(".damaged"));
    m_damaged = !outcome.isDone();
    return outcome;
}

} // namespace pelorin
