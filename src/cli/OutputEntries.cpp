#include "cli/OutputEntries.h"

#include "cli/NamedValues.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/OutputRules.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace pelorin::cli {

namespace {

constexpr std::array kDataBitsWords = {"24", "25"}; // as kOfferedDataBits
constexpr const char* kOffsetName = "offset";

/// A setting that has one of a few values.
struct Setting
{
    const char* name;
    std::span<const char* const> words; ///< its value is the number of the word
    void (*apply)(OutputSettings&, int);
    std::optional<int> (*number)(const QString&) = nullptr; ///< in the place of words
    QString (*numbers)() = nullptr;                         ///< which there are
    bool extended = false;
};

void setFlag(OutputSettings& settings, quint8 flag, bool on)
{
    settings.format.flags =
        static_cast<quint8>(on ? settings.format.flags | flag : settings.format.flags & ~flag);
}

/// A decimal number with a point, as everything that scripts exchange.
std::optional<double> decimalOf(const QString& text)
{
    static const QRegularExpression kDecimal(QStringLiteral(R"(\A[+-]?\d+(\.\d+)?\z)"),
                                             QRegularExpression::DontCaptureOption);
    return kDecimal.match(text).hasMatch() ? std::optional(text.toDouble()) : std::nullopt;
}

/// Micrometres, of millimetres.
std::optional<int> resolutionOf(const QString& text)
{
    constexpr double kMicrometres = 1000.0;
    const auto millimetres = decimalOf(text);
    for (const int offered : kOfferedResolutions) {
        if (millimetres && std::abs(*millimetres * kMicrometres - offered) < 1e-6)
            return offered;
    }
    return std::nullopt;
}

QString resolutions()
{
    auto sorted = kOfferedResolutions;
    std::ranges::sort(sorted);
    QStringList texts;
    for (const int micrometres : sorted)
        texts << QString::number(micrometres * 0.001);
    return texts.join(QStringLiteral(", "));
}

std::optional<int> skipCountOf(const QString& text)
{
    const auto number = decimalOf(text);
    const bool fits =
        number && *number >= 0 && *number <= kLargestSkipCount && *number == std::floor(*number);
    return fits ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

QString skipCounts()
{
    return QStringLiteral("0 ... %1").arg(kLargestSkipCount);
}

/// Asynchronous is also none of the other modes.
void setMode(OutputSettings& settings, int mode)
{
    setFlag(settings, DataFormat::kModeOne, mode == 1);
    setFlag(settings, DataFormat::kStream, false);
}

void setOutput(OutputSettings& settings, int mode)
{
    settings.extension.mode = mode;
    settings.extension.magnets = magnetsFor(mode);
}

constexpr std::array kSettings = {
    Setting{"data-bits", kDataBitsWords,
            [](OutputSettings& settings, int index) {
                settings.format.dataBits =
                    static_cast<quint8>(kOfferedDataBits[static_cast<std::size_t>(index)]);
            }},
    Setting{"code", kCodeWords,
            [](OutputSettings& settings, int gray) {
                setFlag(settings, DataFormat::kGray, gray == 1);
            }},
    Setting{"direction", kDirectionWords,
            [](OutputSettings& settings, int reverse) {
                setFlag(settings, DataFormat::kReverse, reverse == 1);
            }},
    Setting{"mode", std::span(kModeWords).first(2), setMode},
    Setting{"resolution",
            {},
            [](OutputSettings& settings, int value) { settings.micrometres = value; },
            resolutionOf,
            resolutions},
    Setting{"skip-count",
            {},
            [](OutputSettings& settings, int value) {
                settings.format.errorSkipCount = static_cast<quint8>(value);
            },
            skipCountOf,
            skipCounts},
    Setting{.name = "output", .words = kOutputWords, .apply = setOutput, .extended = true},
    Setting{
        .name = "extension",
        .words = kExtensionWords,
        .apply = [](OutputSettings& settings, int value) { settings.extension.extension = value; },
        .extended = true},
};

QString namesOfSettings()
{
    QStringList names;
    for (const Setting& setting : kSettings)
        names << QLatin1String(setting.name);
    names << QLatin1String(kOffsetName);
    return names.join(QStringLiteral(", "));
}

std::optional<int> valueOf(const Setting& setting, const QString& text)
{
    if (setting.number)
        return setting.number(text);
    for (std::size_t index = 0; index < setting.words.size(); ++index) {
        if (text == QLatin1String(setting.words[index]))
            return static_cast<int>(index);
    }
    return std::nullopt;
}

QString valuesOf(const Setting& setting)
{
    if (setting.numbers)
        return setting.numbers();
    QStringList words;
    for (const char* word : setting.words)
        words << QLatin1String(word);
    return words.join(QStringLiteral(", "));
}

} // namespace

OutputEntries OutputEntries::of(const QStringList& arguments, QString& fault)
{
    OutputEntries entries;
    for (const QString& argument : arguments) {
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        const QString text = argument.section(QLatin1Char('='), 1);
        const auto setting = std::ranges::find_if(
            kSettings, [&name](const Setting& each) { return name == QLatin1String(each.name); });
        const bool isOffset = name == QLatin1String(kOffsetName);
        const auto index = static_cast<std::size_t>(setting - kSettings.begin());
        if (!argument.contains(QLatin1Char('=')) || (!isOffset && setting == kSettings.end())) {
            fault = languageString(strings::kNoSetting).arg(argument, namesOfSettings());
        } else if (isOffset ? entries.m_offset.has_value() : entries.m_values.contains(index)) {
            fault = languageString(strings::kNamedTwice).arg(name);
        } else if (isOffset) {
            entries.m_offset = decimalOf(text);
            if (!entries.m_offset)
                fault = languageString(strings::kBadSetting).arg(name, text, QStringLiteral("mm"));
        } else if (const auto value = valueOf(*setting, text)) {
            entries.m_values[index] = *value;
        } else {
            fault = languageString(strings::kBadSetting).arg(name, text, valuesOf(*setting));
        }
        if (!fault.isNull())
            break;
    }
    return entries;
}

bool OutputEntries::hasSkipCount() const
{
    return std::ranges::any_of(
        m_values, [](const auto& value) { return kSettings[value.first].number == skipCountOf; });
}

QString OutputEntries::extendedName() const
{
    const auto found = std::ranges::find_if(
        m_values, [](const auto& value) { return kSettings[value.first].extended; });
    return found == m_values.end() ? QString() : QLatin1String(kSettings[found->first].name);
}

OutputSettings OutputEntries::appliedTo(OutputSettings settings) const
{
    for (const auto& [index, value] : m_values)
        kSettings[index].apply(settings, value);
    settings.offsetMm = m_offset.value_or(settings.offsetMm);
    return settings;
}

} // namespace pelorin::cli
