#pragma once

#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <map>
#include <memory>

namespace pelorin::test {

/// One call of the program, which runs beside the test.
struct CliRun : QProcess
{
    explicit CliRun(const QStringList& arguments,
                    const QString& program = QStringLiteral(PELORIN_CLI))
    {
        setProgram(program);
        setArguments(arguments);
    }

    /// Lets it run beside what follows.
    void begin()
    {
        m_begun = true;
        start();
    }

    /// @return its exit code; -1 if it does not end, or not by itself
    [[nodiscard]] int end()
    {
        if (!m_begun)
            begin();
        const bool ended = waitFor([this] { return state() == NotRunning; });
        output = readAllStandardOutput();
        errors = QString::fromUtf8(readAllStandardError());
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }

    QByteArray output;
    QString errors;

private:
    bool m_begun = false;
};

inline void interrupt(const CliRun& run, std::initializer_list<int> signals)
{
    for (const int signal : signals)
        QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
}

/// What is wrong with a member of the JSON object, or of an object in it: it is none of those that
/// scripts are told of, or of another kind. Empty if all are as they should be.
inline QString faultOf(const QJsonObject& object, const QString& where = {})
{
    using Type = QJsonValue::Type;
    static const QMap<QString, Type> kMembers = {
        {QStringLiteral("/schema"), Type::Double},
        {QStringLiteral("/command"), Type::String},
        {QStringLiteral("/exit"), Type::Double},
        {QStringLiteral("/port"), Type::Object},
        {QStringLiteral("/port/name"), Type::String},
        {QStringLiteral("/port/device"), Type::String},
        {QStringLiteral("/sensor"), Type::Object},
        {QStringLiteral("/sensor/type"), Type::Double},
        {QStringLiteral("/sensor/byHand"), Type::Bool},
        {QStringLiteral("/sensor/version"), Type::String},
        {QStringLiteral("/values"), Type::Array},
        {QStringLiteral("/values/id"), Type::String},
        {QStringLiteral("/values/raw"), Type::String},
        {QStringLiteral("/values/name"), Type::String},
        {QStringLiteral("/values/value"), Type::Undefined}, // a number or a word
        {QStringLiteral("/values/unit"), Type::String},
        {QStringLiteral("/differences"), Type::Array},
        {QStringLiteral("/differences/id"), Type::String},
        {QStringLiteral("/differences/name"), Type::String},
        {QStringLiteral("/differences/written"), Type::String},
        {QStringLiteral("/differences/found"), Type::String},
        {QStringLiteral("/entry"), Type::String},
        {QStringLiteral("/plan"), Type::Array},
        {QStringLiteral("/plan/id"), Type::String},
        {QStringLiteral("/plan/frame"), Type::String},
        {QStringLiteral("/plan/raw"), Type::String},
        {QStringLiteral("/plan/restart"), Type::Bool},
        {QStringLiteral("/plan/pause"), Type::Double},
        {QStringLiteral("/entries"), Type::Array},
        {QStringLiteral("/summary"), Type::Object},
        {QStringLiteral("/summary/count"), Type::Double},
        {QStringLiteral("/summary/malformed"), Type::Double},
        {QStringLiteral("/summary/minimum"), Type::Double},
        {QStringLiteral("/summary/maximum"), Type::Double},
        {QStringLiteral("/summary/mean"), Type::Double},
        {QStringLiteral("/summary/deviation"), Type::Double},
        {QStringLiteral("/summary/perSecond"), Type::Double},
        {QStringLiteral("/summary/longestGap"), Type::Double},
        {QStringLiteral("/table"), Type::Array},
        {QStringLiteral("/table/point"), Type::Double},
        {QStringLiteral("/table/value"), Type::Double},
        {QStringLiteral("/ports"), Type::Array},
        {QStringLiteral("/ports/number"), Type::Double},
        {QStringLiteral("/ports/name"), Type::String},
        {QStringLiteral("/ports/device"), Type::String},
        {QStringLiteral("/ports/description"), Type::String},
        {QStringLiteral("/ports/serialNumber"), Type::String},
        {QStringLiteral("/error"), Type::Object},
        {QStringLiteral("/error/code"), Type::String},
        {QStringLiteral("/error/text"), Type::String},
        {QStringLiteral("/error/parameter"), Type::String}};
    for (auto member = object.begin(); member != object.end(); ++member) {
        QString path = where + QLatin1Char('/') + member.key();
        const auto type = kMembers.constFind(path);
        if (type == kMembers.constEnd() || (*type != Type::Undefined && *type != member->type()))
            return path;
        QJsonArray inner = member->toArray();
        if (member->isObject())
            inner.append(member->toObject());
        for (const auto value : std::as_const(inner)) {
            if (QString fault = faultOf(value.toObject(), path); !fault.isEmpty())
                return fault;
        }
    }
    return {};
}

/// The one object that the output is; empty if it is anything else.
inline QJsonObject objectOf(const QByteArray& output)
{
    const bool oneLine = output.count('\n') == 1 && output.endsWith('\n');
    return oneLine ? QJsonDocument::fromJson(output).object() : QJsonObject();
}

/// The member at a path such as "error/code", as text.
inline QString at(const QJsonObject& object, const QString& path)
{
    QJsonValue value = object;
    for (const QString& name : path.split(QLatin1Char('/'))) {
        bool isIndex = false;
        const int index = name.toInt(&isIndex);
        value = isIndex ? value.toArray().at(index) : value.toObject().value(name);
    }
    return value.toVariant().toString();
}

/// A call of the program, and how it ends.
struct CliRow
{
    const char* name;
    QString line; ///< "%" stands for the folder of the files
    int exit = 0;
    QString member{}; ///< what the object has, and where
    QString value{};
};

/// Runs them side by side, since they mostly wait; each says how it ends in one object.
inline void checkRows(const std::vector<CliRow>& rows, const QString& folder,
                      const QString& program = QStringLiteral(PELORIN_CLI))
{
    constexpr std::size_t kAtOnce = 10; // more would starve each other's simulated sensors
    std::map<const CliRow*, std::unique_ptr<CliRun>> runs;
    const auto begin = [&](const CliRow& row) {
        QStringList arguments = row.line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        arguments.replaceInStrings(QStringLiteral("%"), folder + QLatin1Char('/'));
        arguments << QStringLiteral("--json");
        runs[&row] = std::make_unique<CliRun>(arguments, program);
        runs[&row]->begin();
    };
    forEachRow(rows, [&](const CliRow& row) {
        const auto end = std::min(std::size_t(&row - rows.data()) + kAtOnce, rows.size());
        while (runs.size() < end)
            begin(rows[runs.size()]);
        CliRun& run = *runs.at(&row);
        QCOMPARE(run.end(), row.exit);
        const QJsonObject object = objectOf(run.output);
        QCOMPARE(faultOf(object), QString());
        QCOMPARE(at(object, QStringLiteral("schema")), QStringLiteral("1"));
        QCOMPARE(at(object, QStringLiteral("exit")), QString::number(row.exit));
        QCOMPARE(at(object, row.member), row.value);
        QCOMPARE(object.contains(QStringLiteral("error")), row.exit > 1);
        QVERIFY2(run.errors.trimmed().endsWith(at(object, QStringLiteral("error/text")).trimmed()),
                 qPrintable(run.errors));
    });
}

} // namespace pelorin::test
