#pragma once

#include <QLabel>

namespace pelorin {

/// A label of one line that leaves out the middle of its text where it has no room, and then says
/// all of it in its tool tip.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pelorin
