// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace quor::formkit {

/// A label of one line of plain text, which ends with an ellipsis where it does not fit; a tool tip shows the
/// whole then. It never forces its container to be wider. Main thread only.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Line breaks are shown as spaces.
    void setLine(const QString& text);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString elided() const;
};

} // namespace quor::formkit
