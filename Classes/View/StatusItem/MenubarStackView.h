// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"

#include <QMarginsF>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {
class StatusBarButton;
}

namespace quor::helper {

/// Elements in a row, centred on each other, or in a column, leading edges aligned.
///
/// Owns its elements, which are also its child widgets: they are created with the stack as parent. The
/// outermost stack lies above the whole button and shows its live elements in the places that they
/// have in the button's image.
class MenubarStackView final : public MenubarElement {
    Q_OBJECT

public:
    MenubarStackView(Qt::Orientation orientation, int tag, QWidget* parent = nullptr);

    void setSpacing(double spacing) { spacing_ = spacing; }
    void setEdgeInsets(const QMarginsF& insets) { insets_ = insets; }

    void addArrangedSubview(std::unique_ptr<MenubarElement> element);
    /// Room behind the element added last, in place of the stack's spacing, where another follows.
    void setCustomSpacing(double spacing);
    /// Adds an element without a place of its own: it lies over the middle of `center`, which is in
    /// this stack.
    void addSubview(std::unique_ptr<MenubarElement> element, const MenubarElement& center);
    /// Empties the stack. The elements, in the order of being added, stay child widgets while they live.
    [[nodiscard]] std::vector<std::unique_ptr<MenubarElement>> takeSubviews();

    [[nodiscard]] QSizeF fittingSize() const override;

    /// Gives this stack that size, and all within it their frames.
    void layOut(QSizeF size);

    /// Draws those elements alone that bear the stack's own tag.
    void draw(QPainter& painter) const override;
    /// The same with another tag.
    void drawTagged(QPainter& painter, int tag) const;

    /// Lies over `button` from now on and shows the live elements, and only those. `layOut` was for
    /// the size of the button's image.
    void showOver(platform::StatusBarButton& button);
    /// Leaves the button.
    void detach();

protected:
    void paintEvent(QPaintEvent* event) override; ///< nothing: its elements paint themselves
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Subview {
        std::unique_ptr<MenubarElement> element;
        std::optional<double> spacingAfter;
        const MenubarElement* center = nullptr; ///< none for an arranged element
    };

    [[nodiscard]] double spacingAfter(const Subview& subview) const;
    void cover(const platform::StatusBarButton& button);

    Qt::Orientation orientation_;
    double spacing_ = 0;
    QMarginsF insets_;
    std::vector<Subview> subviews_;
    QPointer<platform::StatusBarButton> button_;
};

} // namespace quor::helper
