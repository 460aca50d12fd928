#pragma once

#include "app/Light.h"

#include <QFrame>

#include <array>
#include <functional>
#include <vector>

class QLabel;
class QMenu;
class QPushButton;

namespace pelorin {

/// What is worth knowing and needs no answer: a strip above the page with a text, a light and at
/// most two buttons. Its height is always kept free, so that nothing moves under the mouse. It
/// stays until what it was about is over, or until Escape.
class NoticeStrip final : public QFrame
{
    Q_OBJECT

public:
    struct Button
    {
        int caption; ///< string number
        std::function<void()> clicked{};
        std::function<void(QMenu&)> fill{}; ///< of a button that opens a menu: fills it anew
    };

    struct Notice
    {
        std::function<QString()> text; ///< in the current language
        Light light = Light::Gray;
        std::vector<Button> buttons{}; ///< at most two
        const void* owner = nullptr;   ///< whose notice it is
    };

    explicit NoticeStrip(QWidget* parent);

    /// Takes the place of the notice before.
    void show(Notice notice);
    void clear();
    [[nodiscard]] bool isEmpty() const { return !m_notice.text; }
    [[nodiscard]] Light light() const { return m_notice.light; }
    [[nodiscard]] bool isOf(const void* owner) const { return m_notice.owner == owner; }
    /// All of the text, of which a long one is scrolled.
    [[nodiscard]] QString text() const;

    void translate();

Q_SIGNALS:
    /// The notice was closed, and no other has taken its place.
    /// @param owner whose notice it was
    void emptied(const void* owner);
    /// The notice of another owner has taken its place.
    void replaced(const void* owner);

private:
    void render();
    void renderButton(std::size_t index);

    Notice m_notice;
    QLabel* m_light;
    QLabel* m_text;
    std::array<QPushButton*, 2> m_buttons{};
};

} // namespace pelorin
