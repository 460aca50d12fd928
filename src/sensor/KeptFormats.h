#pragma once

#include "platform/core/UserFolders.h"
#include "platform/core/WholeFile.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace pelorin {

/// The own data format ('D') of a sensor that carries the streaming one. Both are six upper-case
/// hexadecimal digits.
struct KeptFormat
{
    QString device;        ///< where the sensor was connected: by-id path, else path
    QByteArray version;    ///< its version answer
    QByteArray own;        ///< what it had, and must have again
    QByteArray streaming;  ///< what was written instead
    bool readBack = false; ///< written back and read as the own one; waits for the next restart

    bool operator==(const KeptFormat&) const = default;
};

/// Which sensor it belongs to, and what that must have again, in the current language.
[[nodiscard]] QString keptFormatInWords(const KeptFormat& format);

/// The data formats that still have to be written back to sensors. Each is a file of its own, so
/// that several runs of the program never rewrite each other's; device, version and streaming
/// format tell them apart. Every question reads the folder anew.
class KeptFormats
{
public:
    /// Takes over the formats of an earlier version's file, as far as they can be stored.
    explicit KeptFormats(const QString& folder = keptFormatsFolder(),
                         const QString& formerFile = formerFormatsPath());

    /// Stores a format, over an earlier one for the same sensor. Once it has succeeded the format
    /// outlasts the program.
    [[nodiscard]] WholeFile::Outcome keep(const KeptFormat& format) const;

    /// Forgets a format, whether it is kept or not.
    /// @param format as all() or of() gave it
    [[nodiscard]] WholeFile::Outcome drop(const KeptFormat& format) const;

    /// All that can be read; damaged files are passed over.
    [[nodiscard]] QList<KeptFormat> all() const;

    /// Those of a sensor. All paths of a device that is plugged in mean the same one.
    [[nodiscard]] QList<KeptFormat> of(const QString& device, const QByteArray& version) const;

private:
    [[nodiscard]] WholeFile fileOf(const KeptFormat& format) const;
    void takeOver(const QString& formerFile) const;

    QString m_folder;
};

} // namespace pelorin
