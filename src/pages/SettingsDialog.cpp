#include "pages/SettingsDialog.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"
#include "platform/ui/CellEditor.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

constexpr int kOkButton = 1;
constexpr int kCancelButton = 2;
constexpr int kFileLabel = 1100;
constexpr int kTabs = 1101;
constexpr int kLowLabel = 1102;
constexpr int kHighLabel = 1103;
constexpr int kFirstTypeLabel = 1104;
constexpr int kFirstLowEdit = 1107; ///< that of the highest revision follows, then the next type
constexpr int kRevisionLabel = 1113;
constexpr int kOverlapLabel = 1114;
constexpr int kManualPowerBox = 1115;
constexpr int kSafeWritesBox = 1116;
constexpr int kTempCompBox = 1117;
constexpr int kPortList = 1118;
constexpr int kPackageList = 1119;
constexpr int kAddButton = 1120;
constexpr int kRemoveButton = 1121;
constexpr int kImportButton = 1122;
constexpr int kDisplayBox = 1123;
constexpr int kDisplayPortLabel = 1124;
constexpr int kDisplayPortCombo = 1125;
constexpr int kNodeLabel = 1126;
constexpr int kNodeSpin = 1127;
constexpr int kNoteLabel = 1128;
constexpr int kSiteButton = 1129;

constexpr QSize kSize(760, 460); ///< logical pixels

enum Tab { kTypesTab, kGeneralTab, kPortsTab, kPackagesTab, kDisplayTab };

constexpr std::array kTabTitles = {strings::kSensorTypesTab, strings::kGeneralTab,
                                   strings::kPortsTab, strings::kPackagesTab,
                                   strings::kDisplayUnitTab};

constexpr std::array<std::pair<int, bool Settings::*>, 4> kSwitches = {
    {{kManualPowerBox, &Settings::manualPower},
     {kSafeWritesBox, &Settings::safeWrites},
     {kTempCompBox, &Settings::tempComp},
     {kDisplayBox, &Settings::displayEnabled}}};

} // namespace

SettingsDialog::SettingsDialog(QWidget* parent, Context context)
    : BaseDialog(QStringLiteral("131_Settings"), parent), m_context(std::move(context)),
      m_file(SettingsFile::placesOfThisRun())
{
}

void SettingsDialog::setupTranslationMap()
{
    setTitleString(strings::kSettingsTitle);
    addToTranslationMap(kLowLabel, strings::kLowestRevision);
    addToTranslationMap(kHighLabel, strings::kHighestRevision);
    addToTranslationMap(kManualPowerBox, strings::kSupplyByHand);
    addToTranslationMap(kSafeWritesBox, strings::kSafeWritesBox);
    addToTranslationMap(kTempCompBox, strings::kTempCompBox);
    addToTranslationMap(kAddButton, strings::kAdd);
    addToTranslationMap(kRemoveButton, strings::kRemove);
    addToTranslationMap(kImportButton, strings::kImport);
    addToTranslationMap(kDisplayBox, strings::kDisplayUnitBox);
    addToTranslationMap(kDisplayPortLabel, strings::kPortLabel);
    addToTranslationMap(kNodeLabel, strings::kNodeLabel);
    addToTranslationMap(kSiteButton, strings::kUseSitesSettings);
    addToTranslationMap(kOkButton, strings::kOk);
    addToTranslationMap(kCancelButton, strings::kCancel);
    addAccessibleName(kTabs, strings::kSettingsTitle);
    addAccessibleName(kPortList, strings::kPortsTab);
    addAccessibleName(kPackageList, strings::kPackagesTab);
}

void SettingsDialog::onInitDialog()
{
    m_problem = getControl<QLabel>(kNoteLabel);
    m_ports.attach(*getControl<QTableWidget>(kPortList));
    m_packages.attach(*getControl<QTableWidget>(kPackageList));
    m_editor = new CellEditor(this);
    for (const int list : {kPortList, kPackageList})
        m_editor->attach(getControl<QTableWidget>(list));
    std::array<RevisionFields::Edits, kSsiTypeCount> edits;
    for (int type = 0; type < kSsiTypeCount; ++type) {
        edits[static_cast<std::size_t>(type)] = {
            getControl<QLineEdit>(kFirstLowEdit + 2 * type),
            getControl<QLineEdit>(kFirstLowEdit + 2 * type + 1)};
    }
    const auto onEdited = [this] { // what was refused is being put right
        showProblem({});
        showOverlaps();
    };
    m_revisions.attach(edits, onEdited);
    connect(m_editor, &CellEditor::typed, this, onEdited);

    const auto onClick = [this](int button, void (SettingsDialog::*act)()) {
        connect(getControl<QPushButton>(button), &QPushButton::clicked, this, act);
    };
    onClick(kAddButton, &SettingsDialog::addPackage);
    onClick(kRemoveButton, &SettingsDialog::removePackage);
    onClick(kImportButton, &SettingsDialog::importPackages);
    onClick(kSiteButton, &SettingsDialog::useSitesSettings);
    resize(kSize.expandedTo(sizeHint()));
    readFile();
}

void SettingsDialog::readFile()
{
    m_file = SettingsFile(SettingsFile::placesOfThisRun());
    m_before = Settings::of(RegistryFile::parse(m_file.content(), m_file.path()));
    showSettings(m_before);
    getControl<QPushButton>(kSiteButton)->setVisible(m_file.isUsersOwn());
    showProblem(m_file.problem());
    if (!m_file.problem().isEmpty())
        lock();
}

void SettingsDialog::showSettings(const Settings& settings)
{
    m_revisions.show(settings.ranges);
    for (const auto& [box, on] : kSwitches)
        getControl<QCheckBox>(box)->setChecked(settings.*on);
    m_ports.show(settings.ports);
    m_packages.show(settings.packages);
    auto* displayPort = getControl<QComboBox>(kDisplayPortCombo);
    displayPort->clear();
    for (const PresentPort& port : ComPortNames().presentPorts()) {
        if (port.number != 0)
            displayPort->addItem(ComPortNames::nameOf(port.number));
    }
    displayPort->setEditText(settings.displayPort);
    getControl<QSpinBox>(kNodeSpin)->setValue(settings.displayNode);
    showOverlaps();
}

void SettingsDialog::translate()
{
    BaseDialog::translate();
    for (std::size_t tab = 0; tab < kTabTitles.size(); ++tab)
        tabs().setTabText(static_cast<int>(tab), languageString(kTabTitles[tab]));
    for (int type = 0; type < kSsiTypeCount; ++type) {
        getControl<QLabel>(kFirstTypeLabel + type)
            ->setText(languageString(strings::kTypeNumber).arg(type));
    }
    // Their inner edits have the focus.
    for (const auto& [control, caption] : {std::pair(kDisplayPortCombo, strings::kPortLabel),
                                           std::pair(kNodeSpin, strings::kNodeLabel)}) {
        getControl<QWidget>(control)->findChild<QLineEdit*>()->setAccessibleName(
            languageString(caption));
    }
    m_revisions.translate();
    m_ports.translate();
    m_packages.translate();
    showFile();
    showOverlaps();
}

/// Says which file will no longer be read before that comes true.
void SettingsDialog::showFile()
{
    const bool isCopy = !m_file.replaced().isEmpty();
    getControl<QLabel>(kFileLabel)
        ->setText(
            isCopy ? languageString(strings::kSettingsCopied).arg(m_file.replaced(), m_file.path())
                   : languageString(strings::kSettingsFrom).arg(m_file.path()));
    const QByteArray& version = m_context.version;
    getControl<QLabel>(kRevisionLabel)
        ->setText(version.isEmpty()
                      ? languageString(strings::kNoRevision)
                      : languageString(strings::kConnectedRevision)
                            .arg(revisionText(version), QString::fromLatin1(version)));
}

/// What is shown only stays within reach of the keyboard where it holds text.
void SettingsDialog::lock()
{
    for (auto* edit : tabs().findChildren<QLineEdit*>())
        edit->setReadOnly(true);
    for (auto* button : tabs().findChildren<QAbstractButton*>())
        button->setEnabled(false);
    getControl<QSpinBox>(kNodeSpin)->setReadOnly(true);
    getControl<QComboBox>(kDisplayPortCombo)->setEnabled(false);
    getControl<QPushButton>(kOkButton)->setEnabled(false);
    for (const int id : {kPortList, kPackageList}) {
        const auto* list = getControl<QTableWidget>(id);
        for (auto* item : list->findItems(QString(), Qt::MatchContains))
            item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    }
}

void SettingsDialog::showOverlaps()
{
    Settings settings;
    settings.ranges = m_revisions.entered();
    auto* label = getControl<QLabel>(kOverlapLabel);
    label->setText(overlapsOf(settings).join(QLatin1Char('\n')));
    label->setVisible(!label->text().isEmpty());
}

void SettingsDialog::showProblem(const QString& text)
{
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
}

void SettingsDialog::editCell(int list, int row, int column)
{
    auto* view = getControl<QTableWidget>(list);
    m_editor->begin(view, row, column);
}

/// Leads to what has to be put right.
void SettingsDialog::showFault(const SettingsFault& fault)
{
    using Field = SettingsFault::Field;
    showProblem(fault.text);
    const int row = static_cast<int>(fault.row);
    switch (fault.field) {
    case Field::LowestRevision:
        tabs().setCurrentIndex(kTypesTab);
        m_revisions.lowest(fault.row)->setFocus();
        m_revisions.lowest(fault.row)->selectAll();
        break;
    case Field::Port:
        tabs().setCurrentIndex(kPortsTab);
        editCell(kPortList, m_ports.rowOf(fault.row), PortNumberList::kNumberColumn);
        break;
    case Field::PackageName:
    case Field::PackageSeDistance:
    case Field::PackageInactiveZone:
        tabs().setCurrentIndex(kPackagesTab);
        editCell(kPackageList, row,
                 fault.field == Field::PackageName         ? PackageList::kNameColumn
                 : fault.field == Field::PackageSeDistance ? PackageList::kSeDistanceColumn
                                                           : PackageList::kInactiveZoneColumn);
        break;
    case Field::DisplayPort:
        tabs().setCurrentIndex(kDisplayTab);
        getControl<QComboBox>(kDisplayPortCombo)->setFocus();
        break;
    }
}

void SettingsDialog::addPackage()
{
    m_editor->commit();
    m_packages.add({});
    editCell(kPackageList, getControl<QTableWidget>(kPackageList)->rowCount() - 1,
             PackageList::kNameColumn);
}

void SettingsDialog::removePackage()
{
    m_editor->commit();
    m_packages.removeCurrent();
}

void SettingsDialog::importPackages()
{
    m_editor->commit();
    const QString path =
        chooseFile(this, QFileDialog::AcceptOpen, languageString(strings::kImportTitle),
                   languageString(strings::kSettingsFileFilter), QStringLiteral("reg"));
    if (path.isNull())
        return;
    const QList<PackageSetting> packages = packagesOf(RegistryFile::read(path));
    if (const QString fault = settingsFault(path); !fault.isNull()) {
        showProblem(fault);
    } else if (packages.isEmpty()) {
        showProblem(languageString(strings::kNoPackagesInFile).arg(path));
    } else {
        showProblem({});
        m_packages.import(packages);
    }
}

void SettingsDialog::useSitesSettings()
{
    const auto answer =
        messageBox(this, languageString(strings::kAskForSites).arg(m_file.asidePath()),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::Question, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    const QString sites = sitesRegistryFile();
    if (const QString fault = settingsFault(sites); !fault.isNull())
        return showProblem(fault);
    if (!confirmLosses(Settings::of(RegistryFile::read(sites))) || isSensorInUse())
        return;
    if (const auto outcome = m_file.setAside(); !outcome.isDone())
        return showProblem(outcome.message());
    BaseDialog::accept();
}

Settings SettingsDialog::entered() const
{
    Settings settings = m_before;
    settings.ranges = m_revisions.entered();
    for (const auto& [box, on] : kSwitches)
        settings.*on = getControl<QCheckBox>(box)->isChecked();
    settings.ports = m_ports.entered();
    settings.packages = m_packages.entered();
    settings.displayPort = getControl<QComboBox>(kDisplayPortCombo)->currentText().trimmed();
    const auto* node = getControl<QSpinBox>(kNodeSpin);
    if (node->value() != std::clamp(m_before.displayNode, node->minimum(), node->maximum()))
        settings.displayNode = node->value();
    return settings;
}

bool SettingsDialog::confirmLosses(const Settings& settings)
{
    return settings.tempComp || !m_context.hasTables() ||
           messageBox(this, languageString(strings::kAskForTables),
                      QMessageBox::Yes | QMessageBox::No, QMessageBox::Question,
                      QMessageBox::No) == QMessageBox::Yes;
}

/// @return whether what is in the file may be overwritten
bool SettingsDialog::confirmOverwriting()
{
    if (!m_file.hasChanged())
        return true;
    const int answer =
        askWithButtons(this, languageString(strings::kSettingsChanged).arg(m_file.path()),
                       {languageString(strings::kOverwrite), languageString(strings::kReadAgain)});
    if (answer == 1) {
        readFile();
        showFile();
    }
    return answer == 0;
}

bool SettingsDialog::isSensorInUse()
{
    const bool inUse = m_context.isSensorInUse();
    if (inUse)
        showProblem(languageString(strings::kSettingsInUse));
    return inUse;
}

void SettingsDialog::accept()
{
    m_editor->commit();
    showProblem({});
    const Settings settings = entered();
    if (settings == m_before) { // what another program has entered holds from now on, too
        if (confirmLosses(settings))
            BaseDialog::accept();
        return;
    }
    if (const auto fault = faultOf(settings, m_before, m_context.sensor))
        return showFault(*fault);
    if (!confirmLosses(settings) || !confirmOverwriting() || isSensorInUse())
        return;
    RegistryFileEditor editor(m_file.content());
    settings.enter(editor, m_before);
    const auto outcome = m_file.save(editor.content());
    if (!outcome.isDone())
        return showProblem(outcome.message());
    BaseDialog::accept();
}

QTabWidget& SettingsDialog::tabs() const
{
    return *getControl<QTabWidget>(kTabs);
}

} // namespace pelorin
