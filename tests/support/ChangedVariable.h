#pragma once

#include <QByteArray>

namespace pelorin::test {

/// An environment variable that has another value as long as this object lives.
class ChangedVariable
{
public:
    ChangedVariable(const char* name, const QByteArray& value)
        : m_name(name), m_former(qgetenv(name))
    {
        qputenv(name, value);
    }
    ChangedVariable(const ChangedVariable&) = delete;
    ChangedVariable& operator=(const ChangedVariable&) = delete;
    ~ChangedVariable() { m_former.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_former); }

private:
    const char* m_name;
    const QByteArray m_former; ///< null if it was not set
};

} // namespace pelorin::test
