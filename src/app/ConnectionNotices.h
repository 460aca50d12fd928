#pragma once

#include <QObject>

#include <functional>

namespace pelorin {

class NoticeStrip;
class SensorLink;

/// What the strip above the page says about the connection, and what can be done about it from
/// there.
class ConnectionNotices final : public QObject
{
    Q_OBJECT

public:
    /// @param strip as the link, outlives the notices
    ConnectionNotices(QObject* parent, NoticeStrip& strip, SensorLink& link);

    /// Says what concerns the connection as it is now, in place of what it said before.
    void update();

Q_SIGNALS:
    /// A command of the main window is to be run.
    void commandWanted(int command);

private:
    void tellNoPort();

    NoticeStrip& m_strip;
    SensorLink& m_link;
};

} // namespace pelorin
