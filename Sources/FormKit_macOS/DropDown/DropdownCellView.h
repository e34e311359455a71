// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormItem.h"

#include <QWidget>

namespace quor::formkit {

/// A row of a drop-down's list: a check mark if the item is the selected one, its image, its colour mark and
/// its name, cut where it does not fit. Main thread only.
class DropdownCellView final : public QWidget {
    Q_OBJECT

public:
    explicit DropdownCellView(QWidget* parent = nullptr);

    /// `searched` is the folded text that the user searches for; its place in the name is marked.
    void setItem(const FormItem& item, bool isSelected, const QString& searched = {});

    /// As wide as the item needs, but no wider than the widest list.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The places of the parts, from left to right.
    struct Columns {
        int check;
        int image;
        int mark;
        int name;
    };
    [[nodiscard]] Columns columns() const;
    /// The side of the square for a check mark or an image.
    [[nodiscard]] int side() const;
    void drawCheckMark(QPainter& painter, const QRectF& place) const;
    void drawName(QPainter& painter, const QRect& place) const;

    FormItem item_;
    QString name_; ///< what is shown of the item's
    bool isSelected_ = false;
    QString searched_;
};

} // namespace quor::formkit
