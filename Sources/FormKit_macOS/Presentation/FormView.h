// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

#include <memory>

namespace quor::formkit {

/// The view of a controller that shows a form: as large as its content wants to be, and scrolling that where
/// it gets less room. Its vertical scroll bar may cover the margin of the content. Main thread only.
class FormView final : public QScrollArea {
    Q_OBJECT

public:
    FormView();

    /// Shows `content` instead of the content before it, which ends.
    void setContent(std::unique_ptr<QWidget> content);
    /// Makes the content at least `width` wide, in device-independent pixels, and takes up what it wants now.
    void updateContentSize(double width);

    /// The least width of the content, and the height that it wants at that width.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    /// Scrolls by keys only where there is something to scroll, so that others get the keys.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void updateHorizontalScrolling();
};

} // namespace quor::formkit
