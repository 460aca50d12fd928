#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QTranslator>

#include <memory>
#include <optional>

namespace pelorin {

/// The language modules of an installation. A language has a code that is a single bit: 1
/// English, 2 German, 4 French, 8 Spanish, 16 Italian. The texts of the loaded one are read
/// with languageString(). User-interface thread.
class LanguageManager
{
public:
    LanguageManager() = default;
    LanguageManager(const LanguageManager&) = delete;
    LanguageManager& operator=(const LanguageManager&) = delete;
    ~LanguageManager();

    /// @param installPath the installation path as the settings have it, ending in a backslash
    /// @param applicationName what the file names of the modules begin with
    void init(const QString& installPath, const QString& applicationName);

    /// Loads a module and the toolkit's own texts (buttons, file dialogs) in its language.
    /// @return 1 on success; 0 if the module is missing, damaged, lacks a text or is another one
    /// than the file of its checksum beside it says: the language loaded before stays
    int loadLanguage(int code);

    /// The code of the loaded language, 0 as long as there is none.
    [[nodiscard]] int getCurrentLanguage() const { return m_currentLanguage; }

    /// The codes of all languages that loadLanguage can load, as one bit mask: as found when this
    /// is first asked after init().
    [[nodiscard]] int getAvailLanguages() const;

    void setHelpFile(int code, const QString& file);

    /// The help file of a language, as an absolute path; null if none was set. A relative file
    /// counts from the installation folder. A Windows path stands for the help file that is
    /// installed with the program.
    [[nodiscard]] QString helpFile(int code) const;

    /// Unloads the language.
    void shutDown();

private:
    struct Module
    {
        QByteArray content; ///< what texts is loaded from; goes after it
        QTranslator texts;
    };

    [[nodiscard]] std::unique_ptr<Module> loadModule(int code) const;

    QString m_folder; ///< installation folder
    QString m_moduleName;
    int m_currentLanguage = 0;
    std::unique_ptr<QTranslator> m_toolkitTexts;
    std::unique_ptr<Module> m_module;
    mutable std::optional<int> m_available; ///< once found
    QMap<int, QString> m_helpFiles;         ///< by language code, as set
};

} // namespace pelorin
