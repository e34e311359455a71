// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QLineF>
#include <QPlainTextEdit>

#include <vector>

namespace quor::formkit {

class SpellingMarks;

/// A field without a frame for a plain text of any length and any number of lines, which it can undo. It
/// tells texts that the user enters, by whatever means, from those that are set from code. Tab leaves the
/// field. Each paragraph runs in the direction of its first letter. Main thread only.
class PlainTextView final : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit PlainTextView(QWidget* parent = nullptr);

    /// The text, with '\n' for each line break, and without what an input method is composing.
    [[nodiscard]] const QString& shownText() const { return shownText_; }
    /// Shows `text`, which is no change by the user and cannot be undone. Keeps the caret if the text is
    /// shown already.
    void setShownText(const QString& text);

    /// Whether the user has changed the text that was last set from code.
    [[nodiscard]] bool isEdited() const { return isEdited_; }

    [[nodiscard]] bool checksSpelling() const;
    /// True at first.
    void setChecksSpelling(bool checks);

    /// The lines of the text that are in sight, even if only in part.
    [[nodiscard]] platform::TextRange visibleRange() const;
    /// The baselines that the text of `range`, within one paragraph, stands on, one for each line. From left
    /// to right, in coordinates of the viewport.
    [[nodiscard]] std::vector<QLineF> baselines(platform::TextRange range) const;

    /// Five lines.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has changed the text.
    void edited();
    /// The keyboard has gone to another view, or nowhere.
    void endedEditing();

protected:
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void noteChange();
    /// Lets lines break anywhere if the words of `coming` are too long, which must be done before Qt breaks
    /// it into lines.
    void breakAnywhereIfNeeded(QStringView coming);
    /// Sets how lines break, and in which direction they run.
    void setTextOption(QTextOption::WrapMode wrapMode);

    QString shownText_;
    bool isSetting_ = false;
    bool isEdited_ = false;
    SpellingMarks* spelling_; // child of this view
};

} // namespace quor::formkit
