#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "sensor/SettingsCheck.h"
#include "support/Languages.h"
#include "support/Rows.h"

#include <functional>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(Settings&)>;
using Field = SettingsFault::Field;

/// Quotes are single ones; $ is the product key, # that of the serial ports.
QByteArray fileOf(QByteArray lines)
{
    lines.replace("$", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin")
        .replace("#", "HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM")
        .replace('\'', '"');
    return "REGEDIT4\n" + lines;
}

Settings read(const QByteArray& lines)
{
    return Settings::of(RegistryFile::parse(fileOf(lines), {}));
}

const QByteArray kFile = "[$]\n'SafeWrites'='0'\n'EnableQDL3'=dword:2\n'QDL3Comport'='COM8'\n"
                         "[$\\Firmware Rev Bounds]\n'Type0Low'=dword:110\n'Type0High'='31'\n"
                         "'Type1Low'=dword:20\n'Type1High'=dword:2f\n"
                         "[$\\Package Parameters\\Package0]\n'Name'='A'\n'SEDistance'='1.0 mm'\n"
                         "[$\\Package Parameters\\Package1]\n'Name'='B'\n'Other'='b'\n"
                         "[$\\Package Parameters\\Package3]\n'Name'='D'\n"
                         "[#]\n'\\\\Device\\\\Serial0'='COM7'\n'/dev/a'='COM7'\n'/dev/b'='COM9'\n";

} // namespace

/// The settings as one value: from a file, checked, and back into the file.
class TestSettingsValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileIsReadAsTheProgramUsesIt()
    {
        const Settings settings = read(kFile);
        QVERIFY(!settings.safeWrites && !settings.displayEnabled && !settings.manualPower);
        QVERIFY(settings.displayPort == u"COM8" && settings.displayNode == 1);
        QVERIFY(settings.ranges[0] == (RevisionRange{0x10, 31}) && !settings.ranges[2].isSet());
        QVERIFY(settings.packages.size() == 2 && settings.packages[1].name == u"B");
        QCOMPARE(settings.ports,
                 (QList<PortSetting>{{u"/dev/a"_s, u"COM7"_s}, {u"/dev/b"_s, u"COM9"_s}}));
        QVERIFY(read("").safeWrites && read("").displayPort == u"COM1");
    }

    void onlyWhatWasChangedIsEntered()
    {
        struct Row
        {
            const char* name;
            Change change;
            std::vector<std::pair<QByteArray, QByteArray>> replaced; ///< in the file
        };
        const std::vector<Row> rows{
            {"nothing", [](Settings&) {}, {}},
            {"switches, node, port",
             [](Settings& to) {
                 to.safeWrites = to.displayEnabled = true;
                 to.displayNode = 4;
                 to.displayPort = u"COM3"_s;
             },
             {{"'SafeWrites'='0'", "'SafeWrites'='1'"},
              {"dword:2\n'QDL3Comport'='COM8'\n",
               "dword:00000001\n'QDL3Comport'='COM3'\n'QDL3NodeID'=dword:00000004\n"}}},
            {"bounds",
             [](Settings& to) {
                 to.ranges[0] = {0, {}};
                 to.ranges[2].high = 0x3f;
             },
             {{"dword:110\n'Type0High'='31'\n", "dword:00000000\n"},
              {"dword:2f\n", "dword:2f\n'Type2High'=dword:0000003f\n"}}},
            {"package in the place of another",
             [](Settings& to) {
                 to.packages.removeFirst();
                 to.packages.append({u"C\"D"_s, u"5"_s, u"6"_s});
             },
             {{"[$\\Package Parameters\\Package0]\n'Name'='A'\n'SEDistance'='1.0 mm'\n", ""},
              {"Package1]\n", "Package0]\n"},
              {"'COM9'\n", "'COM9'\n\n[$\\Package Parameters\\Package1]\n'Name'='C\\'D'\n"
                           "'SEDistance'='5'\n'InactiveZone'='6'\n"}}},
            {"package before one behind a gap",
             [](Settings& to) {
                 to.packages.append({u"C"_s, u"5"_s, u"6"_s});
             },
             {{"Package3]\n", "Package4]\n"},
              {"'COM9'\n", "'COM9'\n\n[$\\Package Parameters\\Package2]\n'Name'='C'\n"
                           "'SEDistance'='5'\n'InactiveZone'='6'\n"}}},
            {"ports",
             [](Settings& to) {
                 to.ports = {{u"/dev/b"_s, u"COM7"_s}, {u"/dev/c"_s, u"COM3"_s}};
             },
             {{"'/dev/a'='COM7'\n'/dev/b'='COM9'\n", "'/dev/b'='COM7'\n'/dev/c'='COM3'\n"}}}};
        forEachRow(rows, [](const Row& row) {
            RegistryFileEditor editor(fileOf(kFile));
            const Settings before = read(kFile);
            Settings after = before;
            row.change(after);
            after.enter(editor, before);
            QByteArray expected = kFile;
            for (const auto& [from, to] : row.replaced)
                QVERIFY(expected.contains(from) && !expected.replace(from, to).isEmpty());
            QCOMPARE(editor.content(), fileOf(expected));
        });
    }

    void faultIsFoundBeforeAnythingIsStored()
    {
        struct Row
        {
            const char* name;
            Change change;
            std::optional<Field> field;
            qsizetype row = 0;
        };
        const std::vector<Row> rows{
            {"as it is", [](Settings&) {}, {}},
            {"low above high",
             [](Settings& to) {
                 to.ranges[1] = {0x30, 0x2f};
             },
             Field::LowestRevision, 1},
            {"no upper bound",
             [](Settings& to) {
                 to.ranges[2] = {1, {}};
             },
             Field::LowestRevision, 2},
            {"same number", [](Settings& to) { to.ports[1].name = u"com7"_s; }, Field::Port, 0},
            {"no number", [](Settings& to) { to.ports[1].name = u"COM0"_s; }, Field::Port, 1},
            {"package unnamed", [](Settings& to) { to.packages[1].name = u" "_s; },
             Field::PackageName, 1},
            {"no distance",
             [](Settings& to) {
                 to.packages.append({u"C"_s, u"5"_s, u"x"_s});
             },
             Field::PackageInactiveZone, 2},
            {"display unit elsewhere", [](Settings& to) { to.displayEnabled = true; }, {}},
            {"display unit's port",
             [](Settings& to) {
                 to.displayEnabled = true;
                 to.displayPort = u"com9"_s;
             },
             Field::DisplayPort},
            {"display unit's device",
             [](Settings& to) {
                 to.displayEnabled = true;
                 to.displayPort = u"COM5"_s;
                 to.ports[1].name = u"COM5"_s;
             },
             Field::DisplayPort},
            {"same port, switched off", [](Settings& to) { to.displayPort = u"COM9"_s; }, {}}};
        const Languages languages(1);
        forEachRow(rows, [](const Row& row) {
            Settings settings = read(kFile);
            row.change(settings);
            const auto fault = faultOf(settings, read(kFile), {9, u"/dev/b"_s});
            QCOMPARE(fault.has_value(), row.field.has_value());
            if (fault)
                QVERIFY(fault->field == *row.field && fault->row == row.row &&
                        !fault->text.isEmpty());
        });
        Settings settings = read(kFile);
        QVERIFY(overlapsOf(settings).isEmpty());
        settings.ranges[2] = {0x1f, 0x21};
        QVERIFY(overlapsOf(settings).size() == 2 &&
                overlapsOf(settings).at(1).contains(u"1 and 2 both have the revisions 20 to 21"_s));
    }
};

QTEST_GUILESS_MAIN(TestSettingsValue)
#include "TestSettingsValue.moc"
