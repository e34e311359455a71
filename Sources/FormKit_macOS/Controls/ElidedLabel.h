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

/// Returns `text` in one line: with spaces for line breaks and tabs, and without those at its ends.
[[nodiscard]] QString singleLine(const QString& text);

/// Returns `text` for a tool tip: wrapped, with its marks as plain characters, and cut after some lines.
[[nodiscard]] QString plainToolTip(const QString& text);

} // namespace quor::formkit
