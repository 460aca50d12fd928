#include "display/DisplayLink.h"

#include "display/DisplayProtocol.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "support/Languages.h"
#include "support/MessageCollector.h"
#include "support/NoThreads.h"
#include "support/Rows.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <cerrno>
#include <clocale>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

/// What a port does, and what was sent to it. A step whose error is not 0 fails with it. Not to be
/// touched while a worker uses the port.
struct Script
{
    int openError = 0, lineError = 0, timeoutsError = 0, queuesError = 0;
    int purgeError = 0, writeError = 0, readError = 0;
    int missing = 0;               ///< bytes at the end of each write that do not leave
    QByteArrayList answers{"*\r"}; ///< to the next writes; the last one to all after it, too
    QByteArray written = {};
};

/// A port whose other end answers each write with bytes that a test has written down.
class ScriptedPort final : public ComPort
{
public:
    explicit ScriptedPort(Script& script) : m_script(script) {}

    int open() override { return m_script.openError; }
    bool isOpen() const override { return m_isOpen; }
    int setLine(const LineSettings&) override { return m_script.lineError; }
    int setTimeouts(const Timeouts&) override { return m_script.timeoutsError; }
    int setQueueSizes(int, int) override { return m_script.queuesError; }
    int purge(Purge) override
    {
        if (m_script.purgeError == 0)
            m_unread.clear();
        return m_script.purgeError;
    }
    int setRts(bool) override { return 0; }
    ReadResult read() override
    {
        m_isOpen = m_script.readError != ENODEV;
        if (m_script.readError != 0 || m_unread.isEmpty())
            return {.error = m_script.readError};
        const char byte = m_unread.front();
        m_unread.remove(0, 1);
        return {.received = true, .byte = byte};
    }
    WriteResult write(std::string_view bytes) override
    {
        const auto size = static_cast<int>(bytes.size());
        m_script.written.append(bytes.data(), size);
        auto& answers = m_script.answers;
        m_unread += answers.size() > 1 ? answers.takeFirst() : answers.first();
        return {.error = m_script.writeError, .written = size - m_script.missing};
    }
    Watch watch() const override { return {}; }
    void beginExchange(std::uint64_t) override {}
    void cutShort(std::uint64_t) override {}
    void interrupt() override {}
    void close() override {}

private:
    Script& m_script;
    QByteArray m_unread;
    bool m_isOpen = true;
};

} // namespace

/// What goes out to the unit, what counts as an answer, and what the user is told.
class TestDisplayLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(std::setlocale(LC_ALL, "")); }
    void init() { m_script = {}; }
    void cleanup() { m_link.reset(); }

    void readingIsTheAnswerWithoutItsEnds()
    {
        const std::pair<const char*, const char*> rows[] = {
            {"*12.345\r", "12.345"},
            {"*\r", ""},
            {"*1.5\r*9\r", "1.5"},                       // nothing after CR is read
            {"*123456789012345678\r", "12345678901234"}, // at most 16 bytes
            {"*12.345", "12.34"},                        // time runs out before CR
            {"*", "none"},
            {"?\r", "none"},
            {"12.345\r", "none"}};
        for (const auto& [answer, reading] : rows) {
            m_script.answers = {answer};
            QCOMPARE(DisplayProtocol(m_port, 1).readDisplay().value_or("none"), reading);
            QCOMPARE(takeWritten(), QByteArray("$1RD\r"));
        }
    }

    void applySendsTheSettings()
    {
        const std::tuple<std::uint8_t, DisplaySettings, const char*> rows[] = {
            {1, {0x47, 25, 5}, "$1WE\r$1SXTSSIGRAY\r$1SXB25\r$1SPR0.005\r"},
            {0, {0x42, 24, 100}, "$0WE\r$0SXTSSIBIN\r$0SXB24\r$0SPR0.100\r"},
            {9, {0, 255, 1}, "$9WE\r$9SXTSSIGRAY\r$9SXB255\r$9SPR0.001\r"}}; // any other mode
        for (const auto& [node, settings, frames] : rows) {
            QVERIFY(DisplayProtocol(m_port, node).apply(settings));
            QCOMPARE(takeWritten(), QByteArray(frames));
        }
    }

    void onlyStarAndOneMoreByteAcknowledge()
    {
        for (const char* answer : {"", "*", "?\r", "\r*", "00000"}) {
            m_script.answers = {"*\r", answer};
            QVERIFY2(!DisplayProtocol(m_port, 1).setUp(), answer);
            QCOMPARE(takeWritten(), QByteArray("$1WE\r$1SdP3\r"));
        }
        m_script.answers = {"**", "*\r*\r", "*\r"};
        QVERIFY(DisplayProtocol(m_port, 1).setUp());
        QCOMPARE(takeWritten(), QByteArray("$1WE\r$1SdP3\r$1SPUMM\r$1SXAOFF\r"
                                           "$1SXE00000000\r$1SXeFFFFFFFF\r"));
    }

    void linkOpensAsTheSettingsSayOrTellsWhyNot()
    {
        const QByteArray node = "\"QDL3NodeID\"=dword:0000000";
        for (const auto& [settings, sent] :
             {std::pair(QByteArray(), "$1"), {node + "9\r\n", "$9"}}) {
            QVERIFY(open(settings) && m_link->isOpen());
            QCOMPARE(takeWritten().left(2), sent);
            QCOMPARE(m_link->takeMessage(), QString());
        }
        const std::tuple<const char*, QByteArray, Script> rows[] = {
            {"The value QDL3NodeID of the settings is 10.", node + "A\r\n", Script()},
            {"/dev/ttyS6 is the port of the", "\"QDL3Comport\"=\"/dev/ttyS6\"\r\n", Script()},
            {"Port unit could not be opened (system error 16).\nunit", kUnit, {.openError = 16}},
            {"Port unit could not be opened (system error 13).\nYou", kUnit, {.openError = 13}},
            {"The line settings of port unit could not be set", kUnit, {.lineError = 22}},
            {"The time-outs of port unit could not be set", kUnit, {.timeoutsError = 22}},
            {"The queue sizes of port unit could not be set", kUnit, {.queuesError = 22}},
            {"The display unit on unit (node 1) did not acknowledge its set-up.\nError in ReadFile",
             kUnit,
             {.readError = 5}}};
        for (const auto& [told, settings, script] : rows) {
            m_script = script;
            QVERIFY2(!open(settings) && !m_link->isOpen(), told);
            QVERIFY2(m_link->takeMessage().startsWith(QLatin1String(told)), told);
            QVERIFY(!await(m_link->requestReading()));
        }
        const NoThreads none;
        QVERIFY(!open(kUnit) && m_link->takeMessage().startsWith(u"The communication could not"_s));
    }

    /// The answer alone decides whether a request has worked.
    void failureOfThePortIsToldAgainOnceItHasWorked()
    {
        QVERIFY(open(kUnit));
        const QString readError = u"Error in ReadFile. Error = 5"_s;
        const QString cut = u"Byte count mismatch in WriteFile. Wrote = 3, Correct = 5,Error = 0"_s;
        const std::tuple<Script, bool, QString> rows[] = {
            {{.readError = 5}, false, readError},
            {{.readError = 5}, false, {}},
            {{.purgeError = 5}, true, {}},  // not as it should
            {{.answers = {""}}, false, {}}, // nor is silence a sign that the port works
            {{.readError = 5}, false, {}},
            {Script(), true, {}},
            {{.readError = 5}, false, readError},
            {Script(), true, {}},
            {{.writeError = 19}, true, u"Error in WriteFile. Error = 19"_s},
            {Script(), true, {}},
            {{.missing = 2}, true, cut},
            {Script(), true, {}}};
        for (const auto& [script, works, told] : rows) {
            m_script = script;
            QCOMPARE(await(m_link->requestReading()), works);
            QCOMPARE(m_link->takeMessage(), told);
        }
        m_script = {.purgeError = 5}; // at each of four commands
        QVERIFY(await(m_link->requestApply({})));
        QCOMPARE(m_link->takeMessage(), u"Error in PurgeComm. Error = 5"_s);
    }

    void portThatGoesDuringARequestIsToldOnce()
    {
        QVERIFY(open(kUnit));
        m_script.readError = ENODEV;
        QVERIFY(!await(m_link->requestReading()));
        const auto told = u"Error in ReadFile. Error = 19\nThe port unit no longer exists."_s;
        QVERIFY(m_link->takeMessage().startsWith(told));
        QVERIFY(!await(m_link->requestReading()));
        QCOMPARE(m_link->takeMessage(), QString());
        QCOMPARE(m_window->messages().size(), std::size_t{3}); // the answers alone
    }

private:
    inline static const QByteArray kUnit = "\"QDL3Comport\"=\"unit\"\r\n";

    QByteArray takeWritten() { return std::exchange(m_script.written, {}); }
    /// Opens the link beside a sensor at COM7. @return whether that succeeds
    bool open(const QByteArray& settings)
    {
        m_registry.write("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n" + settings);
        m_link.reset();
        m_window.emplace();
        m_link = std::make_unique<DisplayLink>(m_factory);
        m_link->setReplyTarget(&*m_window, 1);
        return await(m_link->open(7));
    }
    /// @return whether a request succeeds
    bool await(RequestId request)
    {
        (void)waitFor([&] { return m_window->resultOf(request) >= 0; });
        return m_window->resultOf(request) == 1;
    }

    const Languages m_languages{1};
    const TestRegistry m_registry{""};
    std::optional<MessageCollector> m_window;
    Script m_script;
    ScriptedPort m_port{m_script};
    const ComPortFactory m_factory{[&](auto&) { return std::make_unique<ScriptedPort>(m_script); }};
    std::unique_ptr<DisplayLink> m_link;
};

QTEST_GUILESS_MAIN(TestDisplayLink)
#include "TestDisplayLink.moc"
