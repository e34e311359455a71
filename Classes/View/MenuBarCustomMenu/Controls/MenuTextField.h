// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Drawing/MenuLine.h"

#include <QLabel>

namespace quor::helper {

/// A `MenuLine` as a widget: a label without styled text, read out as any label is. Main thread only.
class MenuTextField final : public QLabel {
    Q_OBJECT

public:
    /// `alpha`: of the text's colour.
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
