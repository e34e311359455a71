// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/FirstBaseline.h"

#include <QPointer>
#include <QWidget>

#include <array>
#include <vector>

namespace quor::formkit {

/// Shows two views beside each other, with their first lines on one baseline and in widths in proportion to
/// those that they ask for. A view that is hidden leaves its room to the other. Main thread only.
class SideBySide final : public QWidget, public FirstBaselineProvider {
    Q_OBJECT

public:
    using QWidget::QWidget;
    ~SideBySide() override;

    /// Both are borrowed: at the end of this view they stay, without a parent.
    void setViews(QWidget* left, QWidget* right);

    [[nodiscard]] int firstBaseline() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Part {
        QPointer<QWidget> view;
        int width;
        int height;
        int baseline; ///< from the top of the view
    };

    [[nodiscard]] std::vector<Part> parts(int width) const;
    void place();

    std::array<QPointer<QWidget>, 2> views_;
};

} // namespace quor::formkit
