// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace quor::formkit {

/// One button of a `SegmentRow`, which has the focus in its place. Main thread only.
class Segment final : public QPushButton {
    Q_OBJECT

public:
    /// The sides, in reading order, at which another segment follows.
    struct Neighbours {
        bool before = false;
        bool after = false;
    };

    Segment(const QString& title, Neighbours neighbours, QWidget* parent);

    /// Whether to show the focus of the row at this segment.
    [[nodiscard]] bool isCurrent() const { return isCurrent_; }
    void setCurrent(bool isCurrent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void nextCheckState() override { } // the owner of the row decides
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString elided() const;
    [[nodiscard]] QSize sizeFor(int titleWidth) const;

    QString title_;
    Neighbours neighbours_;
    bool isCurrent_ = false;
};

} // namespace quor::formkit
