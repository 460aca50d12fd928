#pragma once

class QWidget;

namespace pelorin {

class Journal;
class LanguageManager;
class SensorLink;

/// Shows what helps somebody who is asked for help, and saves it where the user wants it. The gate
/// is free when it runs. User-interface thread.
class SupportFileCommand
{
public:
    /// What it uses; all outlive it.
    struct Shared
    {
        SensorLink& link;
        const Journal& journal;
        const LanguageManager& languages;
    };

    SupportFileCommand(QWidget& window, const Shared& shared) : m_window(window), m_shared(shared)
    {
    }

    void run() const;

private:
    QWidget& m_window;
    const Shared m_shared;
};

} // namespace pelorin
