#include "app/PortOpener.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/SequenceRunner.h"

#include <chrono>
#include <utility>

namespace pelorin {

namespace {

constexpr std::chrono::seconds kOpeningTold{1}; ///< after which the user hears of it
constexpr std::chrono::seconds kClosing{2}; ///< while the sensor that is left stores what it got

} // namespace

PortOpener::PortOpener(SequenceRunner& runner) : m_runner(runner)
{
    m_timer.setSingleShot(true);
}

void PortOpener::open(int port, QWidget* parent, std::function<void(Result)> done)
{
    m_left = false;
    m_done = std::move(done);
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, this, [this, port, parent] { tell(parent, port); });
    m_timer.start(
        Pacing::timeout(m_runner.link().isOpen() ? kOpeningTold + kClosing : kOpeningTold));
    m_runner.openPort(port, [this](bool opened) {
        m_timer.stop();
        if (m_left)
            return; // by the box, which goes by itself
        delete m_box.data();
        std::exchange(m_done, {})(opened ? Result::Opened : Result::Failed);
    });
}

void PortOpener::tell(QWidget* parent, int port)
{
    m_box = showMessageBox(parent, languageString(strings::kPortOpening).arg(port),
                           QMessageBox::Information, languageString(strings::kSelectPort));
    connect(m_box, &QDialog::finished, this, [this] {
        m_left = true;
        m_runner.closePort(false, [this] { std::exchange(m_done, {})(Result::Left); });
    });
}

} // namespace pelorin
