// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Drawing/MenuLine.h"

#include <QLabel>

namespace quor::helper {

/// A label that shows a `MenuLine`: plain text, which screen readers read like any label. Main thread only.
class MenuTextField final : public QLabel {
    Q_OBJECT

public:
    /// `alpha` is the opacity of the text, from 0 to 1.
    explicit MenuTextField(double alpha, QWidget* parent = nullptr);

    void setLine(const QString& text, const QFont& font);

    [[nodiscard]] QSize sizeHint() const override { return {line_.width(), line_.height()}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, line_.height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double alpha_;
    MenuLine line_;
};

} // namespace quor::helper
