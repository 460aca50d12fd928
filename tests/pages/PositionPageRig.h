#pragma once

#include "link/SensorLink.h"
#include "pages/MagnetPositionPage.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/WindowMessage.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/FormatRestore.h"
#include "support/MainWindowRig.h"

#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace pelorin::test {

using Frames = std::vector<std::string>;

/// Settings that let the main window work with a supply that the user switches.
inline const QByteArray kManualPower =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"ManualPowerMode\"=dword:1\r\n";

/// The real main window with its position page.
class PositionPageRig : public MainWindowRig
{
public:
    using MainWindowRig::MainWindowRig;

    [[nodiscard]] ColorableTextBox& box()
    {
        return *page<MagnetPositionPage>().findChild<ColorableTextBox*>();
    }
    [[nodiscard]] QString shown() { return box().text(); }

    [[nodiscard]] int positionRow()
    {
        const auto found = pageList().findItems(languageString(261), Qt::MatchExactly);
        return found.isEmpty() ? -1 : pageList().row(found.front());
    }

    void clickPositionPage()
    {
        (void)frames();
        clickPage(positionRow());
    }

    /// Waits until the window has connected and its first page has read its values.
    [[nodiscard]] bool waitConnected()
    {
        return QTest::qWaitFor([this] { return window().currentPage() == 0; }) && waitIdle();
    }

    /// Connects, shows the position page and waits for the first position.
    [[nodiscard]] bool startStreaming() { return startConnected() && stream(); }

    /// Shows the position page and waits for the first position. @return false if there is none
    [[nodiscard]] bool stream()
    {
        clickPositionPage();
        return isStreaming();
    }

    [[nodiscard]] bool isStreaming()
    {
        return QTest::qWaitFor([this] {
            return window().currentPage() == positionRow() && !window().isBusy() &&
                   shown() != QStringLiteral("****");
        });
    }

    /// Chooses the first page and waits until it has read its values. @return false if it does not
    [[nodiscard]] bool leave() { return choosePage(0); }

    /// What the sensor has received since the last call.
    /// @param count how many of the frames, 0 for all
    [[nodiscard]] Frames frames(std::size_t count = 0)
    {
        Frames frames = sensor().takeReceivedFrames();
        if (count > 0)
            frames.resize(count);
        return frames;
    }

    /// Of these those that write.
    [[nodiscard]] Frames writes() { return writesOf(frames()); }

    [[nodiscard]] static Frames writesOf(const Frames& frames)
    {
        Frames writes;
        for (const auto& frame : frames)
            if (frame.size() > 1 && frame[1] == 'N')
                writes.push_back(frame);
        return writes;
    }

    [[nodiscard]] QByteArray format() { return QByteArray::fromStdString(sensor().parameter('D')); }

    [[nodiscard]] bool isKept(const QByteArray& own, const QByteArray& streaming)
    {
        return FormatRestore().isKept(
            {kPort, QByteArray::fromStdString(sensor().parameter('V')), own, streaming});
    }
};

/// Answers every message box with OK and keeps their texts.
class BoxAnswers : public QObject
{
public:
    /// @param rig with a supply switched by hand: the second box, which asks to switch it on,
    /// is open until the sensor has heard PROG frames
    explicit BoxAnswers(PositionPageRig* rig = nullptr)
    {
        connect(&m_poll, &QTimer::timeout, this, [this, rig] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            const bool early = rig && m_texts.size() == 1 && rig->sensor().progFrames() <= 5;
            if (!box || !box->button(QMessageBox::Ok) || early)
                return;
            m_texts << box->text();
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        m_poll.start(2);
    }

    [[nodiscard]] const QStringList& texts() const { return m_texts; }

private:
    QStringList m_texts;
    QTimer m_poll;
};

/// Stops a sequence at one place: acts when the answer to a frame has arrived at the main window
/// and before it is handled. The answer comes after what the action posts.
class AnswerGate : public QObject
{
public:
    /// @param frame the last one that the sensor has received; empty acts at once
    AnswerGate(PositionPageRig& rig, std::string frame, std::function<void()> action)
        : m_rig(rig), m_frame(std::move(frame)), m_action(std::move(action))
    {
        (void)m_rig.frames();
        m_rig.window().installEventFilter(this);
        if (m_frame.empty())
            act();
    }

    [[nodiscard]] bool hasActed() const { return m_acted; }

    /// All frames that the sensor has received since the gate was made.
    [[nodiscard]] const Frames& frames()
    {
        for (auto& frame : m_rig.frames())
            m_frames.push_back(std::move(frame));
        return m_frames;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* message = WindowMessage::from(event);
        if (m_acted || !message || message->message() != WM_LINK_REPLY || frames().empty() ||
            frames().back() != m_frame)
            return false;
        act();
        QCoreApplication::postEvent(&m_rig.window(),
                                    new WindowMessage(message->message(), message->wParam(),
                                                      message->lParam(), message->request()));
        return true;
    }

private:
    void act()
    {
        m_acted = true;
        QMetaObject::invokeMethod(
            this, [this] { m_action(); }, Qt::QueuedConnection);
    }

    PositionPageRig& m_rig;
    std::string m_frame;
    std::function<void()> m_action;
    bool m_acted = false;
    Frames m_frames;
};

} // namespace pelorin::test
