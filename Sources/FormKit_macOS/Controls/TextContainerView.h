// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QWidget>

namespace quor::formkit {

class PlainTextView;
class ResizeTextView;

/// A text of several lines in the frame of a field, with a hint below it. Main thread only.
class TextContainerView final : public QWidget {
    Q_OBJECT

public:
    explicit TextContainerView(QWidget* parent = nullptr);

    /// The field, owned by this view.
    [[nodiscard]] PlainTextView& textView() const { return *textView_; }

    [[nodiscard]] const QString& hintText() const { return hintText_; }
    /// An empty hint takes no room.
    void setHintText(const QString& hintText);

    /// A handler may delete the view later.
    using Handler = platform::Callback<void(TextContainerView&)>;
    /// Called after the user has changed the text.
    void setDidChangeHandler(Handler handler) { didChangeHandler_ = std::move(handler); }
    /// Called after the keyboard has left the text.
    void setDidEndEditingHandler(Handler handler) { didEndEditingHandler_ = std::move(handler); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* textBackground_; // this and the next two are children, which Qt owns
    PlainTextView* textView_;
    ResizeTextView* hintTextField_;
    QString hintText_;
    Handler didChangeHandler_;
    Handler didEndEditingHandler_;
};

} // namespace quor::formkit
