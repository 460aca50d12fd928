#pragma once

#include "app/NoticeStrip.h"
#include "sensor/KeptFormats.h"

#include <QList>
#include <QObject>
#include <QString>

class QMenu;

namespace pelorin {

class CommandGate;
class PositionStream;
class SensorLink;

/// What the strip above the page says about the connection: that a data format is still to be
/// written back, that no port is open, why a sensor that has answered is not identified, or that
/// its type was chosen by hand. From there the user tries again or forgets the format, and chooses
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
        KeptFormats& formats;
        PositionStream& stream;
    };

    ConnectionNotices(QObject* parent, const Shared& shared);

    /// Says what concerns the connection as it is now, in place of what it said before; behind the
    /// notice of somebody else it waits, unless that says that all is well.
    void update();

    /// Tells of a format that its sensor may not have again until it has it, the user forgets it or
    /// has read of it. While the program closes it is told on the terminal.
    void tellOf(const KeptFormat& format);

Q_SIGNALS:
    /// A command of the main window is to be run.
    void commandWanted(int command);

private:
    void tell();
    void showKeptFormat(const KeptFormat& format);
    void forget(const KeptFormat& format);
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
    KeptFormats& m_formats;
    QList<KeptFormat> m_kept; ///< to be told, the first one now; owner of those notices
    bool m_waiting = false;   ///< for the end of another notice
};

} // namespace pelorin
