// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace quor::formkit {

/// Implemented by widgets that consist of segments side by side, so that others can point at a segment. The
/// widgets of the segments are children of it. Main thread only.
class SegmentedControl {
public:
    virtual ~SegmentedControl() = default;

    [[nodiscard]] virtual int segmentCount() const = 0;
    /// The segment that is chosen; of several, the one that the user clicked last. Returns -1 if none is.
    [[nodiscard]] virtual int selectedSegment() const = 0;
    /// Where a segment stands, in the coordinates of the widget. Segments differ in width. Returns an empty
    /// rectangle if there is no such segment.
    [[nodiscard]] virtual QRect segmentRect(int segment) const = 0;

protected:
    SegmentedControl() = default;
    SegmentedControl(const SegmentedControl&) = default;
    SegmentedControl& operator=(const SegmentedControl&) = default;
};

} // namespace quor::formkit
