#pragma once

#include "pages/SensorPage.h"

class QListView;

namespace pelorin {

class CommLogModel;

/// Shows what the link has sent, received and found failing. The lines shown are those of the
/// moment when the page was shown, refreshed or cleared; the link adds to its log all the time.
class CommLogPage final : public SensorPage
{
    Q_OBJECT

public:
    CommLogPage();

    /// Shows the log as it is now, from its first line.
    void getCurrentValues() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;

private:
    void showDroppedLines() const;
    void clearLog();
    void copySelectedLines() const;
    void saveToDisk();

    CommLogModel* m_model = nullptr;
    QListView* m_logList = nullptr;
    QAction* m_copyAction = nullptr;
};

} // namespace pelorin
