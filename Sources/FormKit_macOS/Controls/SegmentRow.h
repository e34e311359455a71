// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/SegmentedControl.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;

namespace quor::formkit {

class Segment;

/// A row of buttons that are joined to one, drawn by the user's style. Chosen ones are in the accent colour.
///
/// The row takes the focus as a whole. The arrow keys, Home and End go to another segment, and also choose it
/// if only one can be chosen. Space clicks the segment. Titles that do not fit are elided. Main thread only.
class SegmentRow final : public QWidget, public SegmentedControl {
    Q_OBJECT

public:
    explicit SegmentRow(QWidget* parent = nullptr);

    /// Replaces all segments. None is chosen then. May be called while `segmentClicked` is emitted.
    void setTitles(const QStringList& titles);
    /// Shows those segments as chosen for which `isSelected` returns true.
    void select(const std::function<bool(int segment)>& isSelected);
    /// Whether only one segment can be chosen. True at first.
    [[nodiscard]] bool isExclusive() const { return isExclusive_; }
    void setExclusive(bool isExclusive) { isExclusive_ = isExclusive; }

    [[nodiscard]] int segmentCount() const override { return static_cast<int>(segments_.size()); }
    [[nodiscard]] int selectedSegment() const override;
    [[nodiscard]] QRect segmentRect(int segment) const override;

Q_SIGNALS:
    /// The user has clicked a segment. The receiver decides which are chosen, and calls `select`.
    void segmentClicked(int segment);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void click(int segment);
    void setCurrent(int segment);

    std::vector<Segment*> segments_; ///< children
    QHBoxLayout* layout_;
    bool isExclusive_ = true;
    int current_ = 0; ///< the segment that keys act on
};

} // namespace quor::formkit
