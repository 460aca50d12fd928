#pragma once

#include <QLabel>

namespace pelorin {

/// Shows a value as plain text in colours of its own, whatever the desktop's colours are.
class ColorableTextBox : public QLabel
{
    Q_OBJECT

public:
    explicit ColorableTextBox(QWidget* parent = nullptr);

    void foreColor(const QColor& color);
    void backColor(const QColor& color);
};

} // namespace pelorin
