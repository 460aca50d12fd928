#pragma once

#include <QString>
#include <QStringList>

namespace pelorin {

/// What was sent by hand, and where the user is in it while going back and forth.
class SendHistory
{
public:
    /// The newest; one that was sent before is taken to the end.
    void add(const QString& text)
    {
        m_texts.removeAll(text);
        m_texts << text;
        leave();
    }

    /// @param typed what the user gets back on the way to the newest
    /// @return what was sent before the one that is shown; that one where there is none
    [[nodiscard]] QString older(const QString& typed)
    {
        if (m_at == m_texts.size())
            m_typed = typed;
        m_at = qMax(m_at - 1, qsizetype{0});
        return m_at < m_texts.size() ? m_texts[m_at] : typed;
    }
    /// @return what was sent after the one that is shown; after the newest, what was typed
    [[nodiscard]] QString newer(const QString& typed)
    {
        if (m_at == m_texts.size())
            return typed;
        ++m_at;
        return m_at < m_texts.size() ? m_texts[m_at] : m_typed;
    }
    /// The next step back leads to the newest.
    void leave() { m_at = m_texts.size(); }

private:
    QStringList m_texts; ///< the newest last
    qsizetype m_at = 0;  ///< of the text shown; their count: none of them
    QString m_typed;
};

} // namespace pelorin
