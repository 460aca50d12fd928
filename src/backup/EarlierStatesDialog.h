#pragma once

#include "platform/ui/BaseDialog.h"
#include "sensor/Journal.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace pelorin {

class SafeWriter;

/// Shows the states that sensors had before they were changed, the newest first, and all of the one
/// that is selected. Accepted when the user wants that put back, which is the caller's business.
/// Needs no sensor to show them. User-interface thread.
class EarlierStatesDialog final : public BaseDialog
{
    Q_OBJECT

public:
    /// @param writer knows the journal and the connected sensor; outlives the dialog
    /// @param shown the entry that is selected first; empty for the newest
    EarlierStatesDialog(QWidget* parent, const SafeWriter& writer, QString shown = {});

    /// The selected entry; null without one.
    [[nodiscard]] const JournalEntry* selected() const;

    void translate() override;
    void accept() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;

private:
    void fill(const QString& selected);
    void showEntry(int row);
    void showDetails();
    void showNotes();
    void updateButtons();
    void remove();
    [[nodiscard]] bool canBePutBack() const;

    const SafeWriter& m_writer;
    const QString m_shown;
    QList<JournalEntry> m_entries; ///< by row
    int m_unreadable = 0;          ///< entries that are damaged
    QString m_problem;             ///< why what the user wanted was not done

    QCheckBox* m_onlyConnected = nullptr;
    QTableWidget* m_list = nullptr;
    QTableWidget* m_details = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_putBack = nullptr;
    QPushButton* m_delete = nullptr;
};

} // namespace pelorin
