#include "DarkColors.h"

namespace pelorin {

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb color;
};

constexpr RoleColor kColors[] = {
    {QPalette::WindowText, 0xfff0f0f0},
    {QPalette::Button, 0xff323232},
    {QPalette::Light, 0xff4b4b4b},
    {QPalette::Midlight, 0xff2a2a2a},
    {QPalette::Dark, 0xff212121},
    {QPalette::Mid, 0xff262626},
    {QPalette::Text, 0xfff0f0f0},
    {QPalette::BrightText, 0xff4b4b4b},
    {QPalette::ButtonText, 0xfff0f0f0},
    {QPalette::Base, 0xff242424},
    {QPalette::Window, 0xff323232},
    {QPalette::Shadow, 0xff191919},
    {QPalette::Highlight, 0xff308cc6},
    {QPalette::HighlightedText, 0xfff0f0f0},
    {QPalette::Link, 0xff308cc6},
    {QPalette::AlternateBase, 0xff2b2b2b},
    {QPalette::ToolTipBase, 0xffffffdc},
    {QPalette::ToolTipText, 0xff000000},
    {QPalette::PlaceholderText, 0x80f0f0f0},
};

constexpr RoleColor kDisabledColors[] = {
    {QPalette::WindowText, 0xff828282}, {QPalette::Dark, 0xffbebebe},
    {QPalette::Text, 0xff828282},       {QPalette::ButtonText, 0xff828282},
    {QPalette::Base, 0xff323232},       {QPalette::Shadow, 0xff252525},
    {QPalette::Highlight, 0xff919191},
};

} // namespace

QPalette darkColors()
{
    QPalette colors;
    for (const auto& [role, color] : kColors)
        colors.setColor(role, QColor::fromRgba(color));
    for (const auto& [role, color] : kDisabledColors)
        colors.setColor(QPalette::Disabled, role, QColor::fromRgba(color));
    return colors;
}

} // namespace pelorin
