#pragma once

#include <QProxyStyle>

namespace pelorin {

/// The toolkit's own style, with what it draws too faintly made readable: disabled texts in light
/// colors, the frames of fields and check marks and the lines of tables in dark ones. Long texts on
/// buttons get room.
class ReadableStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    /// Has the application use it, unless it has been told to use another style.
    static void install();

    void polish(QPalette& colors) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;

private:
    ReadableStyle();
};

} // namespace pelorin
