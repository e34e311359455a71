// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// A container with the background of a sidebar, for panels. In a window that lets the desktop
/// shine through (`Qt::WA_TranslucentBackground`) so does the panel, else it is opaque; it looks the
/// same whether its window is active or not. A widget's y axis points down already, so there is
/// nothing to turn. Main thread only.
class FlippedEffectView : public QWidget {
    Q_OBJECT

public:
    explicit FlippedEffectView(QWidget* parent = nullptr);

    [[nodiscard]] bool isFlipped() const { return true; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::toolkit
