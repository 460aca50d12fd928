#pragma once

#include "app/NoticeStrip.h"

#include <QObject>
#include <QString>

class QMenu;

namespace pelorin {

class CommandGate;
class SensorLink;

/// What the strip above the page says about the connection: that no port is open, why a sensor that
/// has answered is not identified, or that its type was chosen by hand. From there the user chooses
/// a port, or the type, for now or in the settings.
class ConnectionNotices final : public QObject
{
    Q_OBJECT

public:
    /// What the notices work with; all outlive them.
    struct Shared
    {
        NoticeStrip& strip;
        CommandGate& gate;
        SensorLink& link;
    };

    ConnectionNotices(QObject* parent, const Shared& shared);

    /// Says what concerns the connection as it is now, in place of what it said before; behind the
    /// notice of somebody else it waits, unless that says that all is well.
    void update();

Q_SIGNALS:
    /// A command of the main window is to be run.
    void commandWanted(int command);

private:
    void tell();
    void tellNoPort();
    void tellNotIdentified();
    void tellChosen();
    [[nodiscard]] std::vector<NoticeStrip::Button> typeButtons();
    void fillTypes(QMenu& menu);
    void useAs(int type);
    void useAlways(int type);
    void widenRange(int type, int revision);

    NoticeStrip& m_strip;
    CommandGate& m_gate;
    SensorLink& m_link;
    bool m_waiting = false; ///< for the end of another notice
};

} // namespace pelorin
