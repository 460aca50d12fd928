#pragma once

#include <QTranslator>

namespace pelorin::test {

/// A language module that has every text: number 107 is "<language> 107".
class NumberedTexts : public QTranslator
{
public:
    explicit NumberedTexts(const QString& language) : m_language(language) {}

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (context)
            return {};
        return QStringLiteral("%1 %2").arg(m_language, QLatin1String(source));
    }

    bool isEmpty() const override { return false; }

private:
    QString m_language;
};

} // namespace pelorin::test
