#include "platform/ui/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kSmallestWidth = 72; ///< logical pixels; less says nothing

} // namespace

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize size = sizeHint();
    return {std::min(size.width(), kSmallestWidth), size.height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    setToolTip(shown == text() ? QString() : text());
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shown, foregroundRole());
}

} // namespace pelorin
