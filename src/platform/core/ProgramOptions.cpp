#include "platform/core/ProgramOptions.h"

#include "platform/core/ProgramVersion.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace pelorin {

namespace {

QString helpOption()
{
    return QStringLiteral("help");
}

QString versionOption()
{
    return QStringLiteral("version");
}

void print(std::FILE* stream, const QString& text)
{
    (void)std::fputs(qUtf8Printable(text), stream); // nobody is left to be told of a failure
}

} // namespace

ProgramOptions::ProgramOptions(const QString& description, const QList<QCommandLineOption>& options)
{
    m_parser.setApplicationDescription(description);
    m_parser.addOption({helpOption(), QStringLiteral("Shows this text and ends.")});
    m_parser.addOption({versionOption(), QStringLiteral("Shows the version and ends.")});
    m_parser.addOptions(options);
}

void ProgramOptions::addText(const QString& name, const QString& description)
{
    m_parser.addPositionalArgument(name, description, QLatin1Char('[') + name + QLatin1Char(']'));
}

void ProgramOptions::parse(const QStringList& arguments)
{
    m_understood = m_parser.parse(arguments);
}

bool ProgramOptions::wantAnswer() const
{
    return m_parser.isSet(helpOption()) || m_parser.isSet(versionOption());
}

void ProgramOptions::answer() const
{
    const QString name = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    print(stdout, m_parser.isSet(helpOption())
                      ? m_parser.helpText()
                      : name + QLatin1Char(' ') + programRelease() + QLatin1Char('\n'));
}

QString ProgramOptions::fault() const
{
    const QString dash = QStringLiteral("-");
    if (m_understood && m_parser.positionalArguments().contains(dash))
        return QStringLiteral("Unknown option '%1'.").arg(dash);
    return m_understood ? QString() : m_parser.errorText();
}

int ProgramOptions::refuse(const QString& fault) const
{
    const QString name = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    print(stderr, QStringLiteral("%1: %2\n\n%3").arg(name, fault, m_parser.helpText()));
    return kRefused;
}

} // namespace pelorin
