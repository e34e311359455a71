// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/InputField.h"
#include "Platform/Lifetime/Callback.h"

#include <QClipboard>

namespace quor::formkit {

/// A field for one number of a duration. Main thread only.
class DurationField final : public InputField {
    Q_OBJECT

public:
    using InputField::InputField;

    /// Called with a text that the user pastes or drops. If it returns true, the text has been handled, and
    /// the field does not take it.
    platform::Callback<bool(const QString&)> willPaste;

Q_SIGNALS:
    /// An arrow key asks for one more, or for one less: `step` is 1 or -1.
    void stepped(int step);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// Returns whether `willPaste` has handled the text.
    bool offer(QClipboard::Mode source);
};

} // namespace quor::formkit
