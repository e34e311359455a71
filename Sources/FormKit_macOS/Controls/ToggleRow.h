// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/FirstBaseline.h"

#include <QWidget>

class QAbstractButton;

namespace quor::formkit {

class ResizeTextView;

/// A check box or radio button with a text beside it, which wraps and may contain links. The box stays at the
/// first line. A click on the text clicks the box, and for screen readers both are one thing. Main thread
/// only.
class ToggleRow final : public QWidget, public FirstBaselineProvider {
    Q_OBJECT

public:
    /// Takes `box`, which has no text of its own.
    explicit ToggleRow(QAbstractButton* box);

    [[nodiscard]] QAbstractButton& box() const { return *box_; }
    [[nodiscard]] ResizeTextView& text() const { return *text_; }
    /// Also the name of the box for screen readers.
    void setText(const QString& text, bool parseMarkdown);

    [[nodiscard]] int firstBaseline() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QSize boxSize() const;
    [[nodiscard]] int textLeft() const; ///< in a left-to-right layout
    [[nodiscard]] int textTop() const;
    void place();

    QAbstractButton* box_;
    ResizeTextView* text_ = nullptr;
};

} // namespace quor::formkit
