#include "platform/ui/ColorableTextBox.h"

namespace pelorin {

ColorableTextBox::ColorableTextBox(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
}

void ColorableTextBox::foreColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(foregroundRole(), color);
    setPalette(colors);
}

void ColorableTextBox::backColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(backgroundRole(), color);
    setPalette(colors);
}

} // namespace pelorin
