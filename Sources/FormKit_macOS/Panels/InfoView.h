// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Panels/TransientPanel.h"

class QScrollArea;

namespace quor::formkit {

class ResizeTextView;

/// A panel with an explanation, which stands before the button that opened it. Its text is 300 pixels wide,
/// and is scrolled if the screen is too small for it.
///
/// Space, Return and the Tab key close it too. It moves away from the button as it closes, if the desktop
/// animates. Main thread only.
class InfoView final : public TransientPanel {
    Q_OBJECT

public:
    InfoView(const QString& infoText, QWidget& button);

protected:
    [[nodiscard]] QSize wantedSize(const QRect& screen) const override;
    [[nodiscard]] QRect placeAt(const QRect& anchor, QSize size, const QRect& screen) const override;
    [[nodiscard]] QWidget& keyboardReceiver() const override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int heightOfAll() const; ///< without a scroll bar
    void showMovingAway();

    ResizeTextView* hintField_;
    QScrollArea* scrollView_;
};

} // namespace quor::formkit
