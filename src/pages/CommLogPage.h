#pragma once

#include "pages/SensorPage.h"

#include <QTimer>

#include <cstdint>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListView;

namespace pelorin {

class CommLogModel;
class LogSearch;

/// Shows what the link has sent, received and found failing, with the time of each line, and says
/// what the selected line means. The lines shown are those of the moment when the page was shown,
/// refreshed or cleared, unless it follows the log; the link adds to its log all the time.
class CommLogPage final : public SensorPage
{
    Q_OBJECT

public:
    CommLogPage();

    /// Shows the log as it is now, from its first line, or from its last one while it follows.
    void getCurrentValues() override;
    void setNewValues() override;

protected:
    void setupTranslationMap() override;
    void onInitDialog() override;
    void translate() override;

private:
    /// Where the user wants to go among the lines that were found.
    enum class Jump { None, Here, Next, Previous };

    void connectList();
    void connectSearch();
    void addCopyActions();

    void showLines();
    void showDroppedLines() const;
    void follow(bool on);
    void clearLog();
    void copySelectedLines(bool withTimes) const;
    void saveToDisk();

    void jump(Jump where);
    void onProgressed();
    void renderFound();
    void renderWords();
    [[nodiscard]] std::int64_t currentLine() const;

    CommLogModel* m_model = nullptr;
    LogSearch* m_search = nullptr;
    Jump m_jump = Jump::None; ///< waits for what is still to be found
    QTimer m_following;
    QListView* m_logList = nullptr;
    QLineEdit* m_findEdit = nullptr;
    QLabel* m_foundLabel = nullptr;
    QLabel* m_wordsLabel = nullptr;
    QCheckBox* m_followBox = nullptr;
    QAction* m_copyAction = nullptr;
    QAction* m_copyWithTimesAction = nullptr;
};

} // namespace pelorin
