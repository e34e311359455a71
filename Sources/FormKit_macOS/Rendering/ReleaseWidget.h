// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::formkit {

/// Hides `widget`, takes it out of `parent` and leaves it without a parent. Has no effect on a widget that
/// stands elsewhere. A handler of the application that runs when the widget loses the focus may move it.
inline void releaseWidget(QWidget& widget, const QWidget* parent)
{
    if (widget.parentWidget() == parent)
        widget.hide();
    if (widget.parentWidget() == parent)
        widget.setParent(nullptr);
}

} // namespace quor::formkit
