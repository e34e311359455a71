// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <functional>

namespace quor::helper {

/// The search field of the menu. It gets the keyboard with the caret behind the last character, so
/// that typing goes on; clicks and a context menu leave caret and selection as a field does. Each
/// change of the text is told at once (`textChanged`). Main thread only.
class MenuSearchView final : public QLineEdit {
    Q_OBJECT

public:
    explicit MenuSearchView(QWidget* parent = nullptr);

    int tag = -1; ///< its row in the list

    /// Asked before the field edits; true: the key is used up.
    std::function<bool(QKeyEvent&)> keyHandler;

    /// Takes the user's font and direction as they stand now; happens by itself when it is shown.
    void followDesktop();

    /// The fitting size.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QRectF glassFrame() const;
};

} // namespace quor::helper
