#pragma once

#include <QString>

namespace pelorin {

/// The settings file of this run: the one that the environment variable PELORIN_REGISTRY names,
/// else pelorin/pelorin.reg in the user's configuration folder, else in /etc, else the default
/// that is installed with the program. The file need not exist.
[[nodiscard]] QString registryFilePath();

/// Has this run, and what it starts, use a settings file, whatever the environment names. To be
/// called before anything reads the settings.
void nameRegistryFile(const QString& path);

/// The settings file that was named for this run; empty if none was.
[[nodiscard]] QString namedRegistryFile();

/// The settings file of this run without a named one and without the user's own.
[[nodiscard]] QString sitesRegistryFile();

/// The place of the user's own settings file, which need not exist.
[[nodiscard]] QString usersRegistryFile();

/// The folder that the program was installed to: share/pelorin beside the folder of the
/// executable. Needs an application object.
[[nodiscard]] QString programFolder();

/// The folder that an installation path from the settings stands for. A relative path counts
/// from the folder of the settings file; a Windows path, as a site's exported settings have it,
/// stands for programFolder(). Both kinds of slashes separate folders.
[[nodiscard]] QString installationFolder(const QString& installPath,
                                         const QString& settingsFile = registryFilePath());

/// Whether a path begins with a drive letter or a backslash.
[[nodiscard]] bool isWindowsPath(const QString& path);

} // namespace pelorin
