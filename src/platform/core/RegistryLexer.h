#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>
#include <variant>

namespace pelorin {

/// What a value of a settings file holds.
using RegistryValue = std::variant<QString, quint32>;

/// What one line of a settings file means.
struct RegistryLine
{
    enum class Kind {
        Empty, ///< or a comment
        Header,
        Key,
        Value,     ///< a text or a number
        Bytes,     ///< a value of another kind
        MoreBytes, ///< which goes on from the line before
        Damaged
    };

    Kind kind = Kind::Damaged;
    QString name{}; ///< of a value, as written, empty for the default one; of a key its folded path
    std::optional<RegistryValue> value{}; ///< of a Value
    qsizetype at = 0;   ///< where in the line the path of a key, or the data of a value, begins
    qsizetype size = 0; ///< and how long that is
};

/// Reads the lines of a settings file one after the other: the one place that knows what they mean.
class RegistryLexer
{
public:
    /// @param line without its line feed
    [[nodiscard]] RegistryLine next(QStringView line);

    /// Whether the file may end here.
    [[nodiscard]] bool isComplete() const { return m_headerRead && !m_inBytes; }

private:
    [[nodiscard]] RegistryLine read(QStringView line);
    [[nodiscard]] bool readHeader(QStringView line);
    [[nodiscard]] RegistryLine readKey(QStringView line);
    [[nodiscard]] RegistryLine readEntry(QStringView line);
    [[nodiscard]] RegistryLine readData(QStringView data);
    [[nodiscard]] bool readBytes(QStringView bytes);

    QStringView m_line; ///< the one that is being read
    bool m_headerRead = false;
    bool m_keyRead = false;
    bool m_inBytes = false; ///< the line before announced more bytes of its value
};

/// A key's path as it is compared: without backslashes in front, in one letter case.
[[nodiscard]] QString foldedKeyPath(QStringView keyPath);

/// The text of a settings file: UTF-8, or UTF-16LE with byte order mark. What cannot be decoded
/// comes as replacement characters, the mark not at all.
[[nodiscard]] QString decodedRegistry(const QByteArray& content);

} // namespace pelorin
