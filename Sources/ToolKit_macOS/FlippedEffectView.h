// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// A panel with the background of a sidebar: translucent in a window with `Qt::WA_TranslucentBackground`
/// that paints no background of its own, else opaque; the same in active and inactive windows. Its origin is
/// the upper left corner. Has an empty geometry by default. Main thread only.
class FlippedEffectView : public QWidget {
    Q_OBJECT

public:
    explicit FlippedEffectView(QWidget* parent = nullptr);

    [[nodiscard]] bool isFlipped() const { return true; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::toolkit
