#include "Program.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin::test;
using namespace Qt::StringLiterals;

/// The Debian packages, of what is built here, unpacked into an empty folder.
class TestPackage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString sources = m_root.filePath(u"sources"_s);
        QVERIFY(QDir().mkdir(sources));
        QVERIFY(runs("cp", {u"-r"_s, QStringLiteral(PELORIN_SOURCE "/debian"), sources}));
        qputenv("PELORIN_BUILT", PELORIN_BUILT);
        qputenv("DEB_RULES_REQUIRES_ROOT", "no");
        qputenv("DEB_BUILD_OPTIONS", "noautodbgsym");
        QVERIFY(runs("env", {u"-C"_s, sources, u"debian/rules"_s, u"binary"_s}));
        const auto packages = QDir(m_root.path()).entryInfoList({u"*.deb"_s});
        for (const QFileInfo& package : packages) {
            m_packages[package.fileName().section(u'_', 0, 0)] = package.filePath();
            QVERIFY(runs("dpkg-deb", {u"--extract"_s, package.filePath(), m_root.path()}));
        }
        const QStringList names{u"pelorin"_s, u"pelorin-cli"_s, u"pelorin-common"_s};
        QCOMPARE(m_packages.keys(), names);
        const QByteArray entry = contentOf(m_entry);
        QVERIFY(entry.contains("\nIcon=pelorin\n"));
        for (const QString& part : QString::fromUtf8(entry).split(u"\nExec="_s))
            m_commands << m_usr + u"bin/"_s + part.section(u'\n', 0, 0);
        QCOMPARE(m_commands.size(), 3);
        qputenv("HOME", m_home.toUtf8());
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qunsetenv("XDG_CONFIG_HOME");
        qunsetenv("PELORIN_REGISTRY");
    }

    /// No program is linked against the screen's plug-ins and the toolkit's texts, so that nobody
    /// finds out by himself that they are needed.
    void whatIsLoadedAtRunTimeIsThere()
    {
        const QByteArray depends = fieldOf(u"pelorin"_s, u"Depends"_s);
        for (const char* name : {"qt6-qpa-plugins", "qt6-translations-l10n", "libqt6widgets6 (>="})
            QVERIFY2(depends.contains(name), name);
        const QByteArray withoutDisplay = fieldOf(u"pelorin-cli"_s, u"Depends"_s);
        QVERIFY2(withoutDisplay.contains("libqt6core6 (>="), withoutDisplay);
        QVERIFY2(!withoutDisplay.contains("qt6gui"), withoutDisplay);
        for (int code = 1; code <= 16; code *= 2) {
            const QString texts = m_usr + u"share/pelorin/languages/pelorin_%1.qm"_s.arg(code);
            QVERIFY2(QFile::exists(texts), qPrintable(texts));
            QVERIFY2(QFile::exists(texts + u".sha256"_s), qPrintable(texts));
            const QString help = m_usr + u"share/pelorin/help/pelorin_%1.html"_s.arg(code);
            QVERIFY2(QFile::exists(help), qPrintable(help));
        }
    }

    void allTellTheSameRelease()
    {
        const QRegularExpression heading(u"^## \\[(\\d[^\\]]*)\\]"_s,
                                         QRegularExpression::MultilineOption);
        const QString changelog =
            QString::fromUtf8(contentOf(m_usr + u"share/doc/pelorin/CHANGELOG.md"_s));
        const QByteArray release = heading.match(changelog).captured(1).toUtf8();
        QVERIFY(!release.isEmpty());
        const QByteArray metainfo =
            contentOf(m_usr + u"share/metainfo/com.korvexsystems.pelorin.metainfo.xml"_s);
        QCOMPARE(metainfo.mid(metainfo.indexOf("<release ")).split('"').value(1), release);
        for (const QString& package : m_packages.keys())
            QCOMPARE(fieldOf(package, u"Version"_s), release);
        for (const QString& name : {u"pelorin"_s, u"pelorin-cli"_s, u"pelorin-simulator"_s})
            QCOMPARE(printedBy(m_usr + u"bin/"_s + name, {u"--version"_s}),
                     name.toUtf8() + ' ' + release);
    }

    void desktopFindsTheProgram()
    {
        QVERIFY(runs(PELORIN_DESKTOP_FILE_VALIDATE, {m_entry}));
        const QStringList arguments{u"validate-tree"_s, u"--pedantic"_s, u"--no-net"_s,
                                    m_root.path()};
        QVERIFY(runs(PELORIN_APPSTREAMCLI, arguments));
        const QString icon = m_usr + u"share/icons/hicolor/scalable/apps/pelorin.svg"_s;
        QVERIFY(contentOf(icon).contains("<svg"));
    }

    /// COM0 is no port: the program gets as far as its first question, in its language.
    void menuStartsTheProgramOnItsDefaultSettings()
    {
        Program pelorin(m_commands[1], {u"/CP:0"_s});
        QCOMPARE(pelorin.endBy(SIGTERM), 0);
        QCOMPARE(contentOf(m_home + u"/.config/Korvex Systems/Pelorin.ini"_s),
                 QByteArray("[Setup]\nLanguage=1\n"));
    }

    /// The sensor stands behind a terminal in the place of the demonstration's. It goes, and its
    /// terminal with it, when its parameter 'D' is read: by the first page, which is shown when the
    /// sensor is identified.
    void menuStartsTheDemonstrationOnASensor()
    {
        const QString path = m_usr + u"share/pelorin/demo.reg"_s;
        const QString line = m_root.filePath(u"sensor"_s);
        QByteArray settings = contentOf(path);
        settings.replace("\"simulator:sensor?type=2&moving=1\"=\"COM99\"",
                         '"' + line.toUtf8() + "\"=\"COM99\"");
        QVERIFY(settings.contains(line.toUtf8()) && putContent(path, settings));
        const Program simulator(m_usr + u"bin/pelorin-simulator"_s,
                                {u"--link"_s, line, u"--fault"_s, u"vanish:0@D"_s});
        QVERIFY(waitFor([&line] { return QFileInfo(line).isSymLink(); }));
        Program pelorin(m_commands[2], {});
        QVERIFY(waitFor([&line] { return !QFileInfo(line).isSymLink(); }));
        QCOMPARE(pelorin.endBy(SIGTERM), 0);
    }

private:
    [[nodiscard]] static bool runs(const char* program, const QStringList& arguments)
    {
        return QProcess::execute(QString::fromUtf8(program), arguments) == 0;
    }

    /// Without the end of its last line.
    [[nodiscard]] static QByteArray printedBy(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished() ? process.readAllStandardOutput().trimmed() : QByteArray();
    }

    [[nodiscard]] QByteArray fieldOf(const QString& package, const QString& field) const
    {
        return printedBy(u"dpkg-deb"_s, {u"--field"_s, m_packages.value(package), field});
    }

    const QTemporaryDir m_root;
    const QString m_usr = m_root.filePath(u"usr/"_s);
    const QString m_entry = m_usr + u"share/applications/pelorin.desktop"_s;
    const QString m_home = m_root.filePath(u"home"_s);
    QMap<QString, QString> m_packages; ///< files by name
    QStringList m_commands;            ///< of the desktop entry, from its second on
};

QTEST_GUILESS_MAIN(TestPackage)
#include "TestPackage.moc"
