// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace quor::formkit {

/// A button that shows an open padlock, or a closed one while it is checked. Main thread only.
class LockButton final : public QToolButton {
    Q_OBJECT

public:
    /// `title` is the tool tip, and the name for screen readers.
    explicit LockButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::formkit
