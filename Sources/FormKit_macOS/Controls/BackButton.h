// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace quor::formkit {

/// A small button that leads back. It shows the icon of the desktop's theme, or draws an arrow head if there
/// is none. It has a frame only under the pointer. Main thread only.
class BackButton final : public QToolButton {
    Q_OBJECT

public:
    explicit BackButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void updateIcon();
};

} // namespace quor::formkit
