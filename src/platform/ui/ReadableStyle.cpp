#include "platform/ui/ReadableStyle.h"

#include <QApplication>
#include <QStyleOption>

namespace pelorin {

namespace {

constexpr int kMiddle = 0x82;       ///< a gray that can be read on light and on dark
constexpr int kDark = 0x80;         ///< a lightness below which a window is dark
constexpr int kButtonRoom = 10;     ///< logical pixels beside the text of a wide button
constexpr int kShortestButton = 80; ///< logical pixels; no button is narrower

QString toolkitStyle()
{
    return QStringLiteral("fusion");
}

bool isDark(const QPalette& colors)
{
    return colors.color(QPalette::Window).lightness() < kDark;
}

/// The style draws frames in a darker tint of the window's color, which nobody sees in the dark.
QPalette withFrames(QPalette colors)
{
    colors.setColor(QPalette::Window, QColor(0xa0, 0xa0, 0xa0));
    return colors;
}

} // namespace

ReadableStyle::ReadableStyle() : QProxyStyle(toolkitStyle()) {}

void ReadableStyle::install()
{
    if (QApplication::style()->name() == toolkitStyle())
        QApplication::setStyle(new ReadableStyle);
}

void ReadableStyle::polish(QPalette& colors)
{
    QProxyStyle::polish(colors);
    if (isDark(colors))
        return;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        if (colors.color(QPalette::Disabled, role).lightness() > kMiddle)
            colors.setColor(QPalette::Disabled, role, QColor(kMiddle, kMiddle, kMiddle));
    }
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool isMark = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    if (isMark && button && isDark(option->palette)) {
        QStyleOptionButton framed(*button);
        framed.palette = withFrames(option->palette);
        QProxyStyle::drawPrimitive(element, &framed, painter, widget);
    } else if (element == PE_FrameLineEdit && frame && isDark(option->palette)) {
        QStyleOptionFrame framed(*frame);
        framed.palette = withFrames(option->palette);
        QProxyStyle::drawPrimitive(element, &framed, painter, widget);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int ReadableStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returned) const
{
    if (hint == SH_Table_GridLineColor && option && isDark(option->palette))
        return static_cast<int>(option->palette.color(QPalette::Light).rgba());
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QSize ReadableStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& contents, const QWidget* widget) const
{
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton && size.width() > kShortestButton)
        size.rwidth() += kButtonRoom;
    return size;
}

} // namespace pelorin
