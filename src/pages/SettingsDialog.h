#pragma once

#include "pages/PackageList.h"
#include "pages/PortNumberList.h"
#include "pages/RevisionFields.h"
#include "platform/core/SettingsFile.h"
#include "platform/ui/BaseDialog.h"
#include "sensor/SettingsCheck.h"

#include <functional>

class QLabel;
class QTabWidget;

namespace pelorin {

class CellEditor;

/// Shows the settings and has the user change them. OK checks them as a whole and then stores all
/// of them or nothing; what follows from them is the caller's business. A file that cannot be
/// edited is shown only, with the reason. User-interface thread.
class SettingsDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// What the dialog asks of the program.
    struct Context
    {
        SensorPort sensor;                   ///< the port that is open
        QByteArray version;                  ///< of the connected sensor; empty without an answer
        std::function<bool()> isSensorInUse; ///< nothing may be changed then
        std::function<bool()> hasTables; ///< whether the temperature page holds what would be lost
    };

    SettingsDialog(QWidget* parent, Context context);

    void translate() override;
    void accept() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void readFile();
    void showSettings(const Settings& settings);
    void showFile();
    void lock();
    void showOverlaps();
    void showProblem(const QString& text);
    void showFault(const SettingsFault& fault);
    void editCell(int list, int row, int column);

    void addPackage();
    void removePackage();
    void importPackages();
    void useSitesSettings();

    [[nodiscard]] Settings entered() const;
    [[nodiscard]] bool confirmLosses(const Settings& settings);
    [[nodiscard]] bool confirmOverwriting();
    [[nodiscard]] bool isSensorInUse();
    [[nodiscard]] QTabWidget& tabs() const;

    const Context m_context;
    SettingsFile m_file;
    Settings m_before; ///< as the file has them

    RevisionFields m_revisions;
    PortNumberList m_ports;
    PackageList m_packages;
    CellEditor* m_editor = nullptr; ///< one over both lists
    QLabel* m_problem = nullptr;
};

} // namespace pelorin
