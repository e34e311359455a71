// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Rendering/FormRowStyle.h"

#include <QLayout>

#include <memory>
#include <vector>

namespace quor::formkit {

/// The layout of the rows of a form. It places all of them in one pass, top to bottom: the width of the form
/// decides the widths, these decide the heights, and the sum of the heights is the height of the form. What a
/// view answers about its size is kept until the view says that it has changed (`QWidget::updateGeometry`).
/// In a right-to-left layout, left and right change sides. Main thread only.
///
/// Its widgets have other owners: when the layout ends, even with its container, they lose their parent and
/// live on.
class FormRowLayout final : public QLayout {
    Q_OBJECT

public:
    /// The widgets may be null, except for `view`. A widget may be in one row only.
    struct Row {
        FormRowStyle style;
        QWidget* view = nullptr;
        QWidget* label = nullptr;
        QWidget* detail = nullptr;
    };

    explicit FormRowLayout(QWidget& container);
    ~FormRowLayout() override;

    /// Replaces all rows. Widgets that are not in `rows` are hidden and lose their parent, new ones become
    /// children of the container and are shown, all others stay as they are. `inputSizeRatio` is the share of
    /// the width for rows of the extent `input`.
    void setRows(const std::vector<Row>& rows, Form::Layout layout, double inputSizeRatio);

    [[nodiscard]] int count() const override { return int(items_.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    /// Has no effect: `setRows` adds the items.
    void addItem(QLayoutItem* item) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(const QRect& rect) override;
    void invalidate() override;

private:
    class Item;
    struct PlacedRow {
        FormRowStyle style;
        Item* view = nullptr;
        Item* label = nullptr;
        Item* detail = nullptr;
    };
    /// Horizontally, in a layout from left to right.
    struct Columns {
        int viewLeft = 0;
        int viewWidth = 0;
        QSize detail;
    };

    void detach(Item& item);
    [[nodiscard]] Columns columns(const PlacedRow& row, int width) const;
    [[nodiscard]] int leastWidth(const PlacedRow& row) const;
    [[nodiscard]] int labelHeightAbove(const PlacedRow& row) const;
    void place(const PlacedRow& row, const Columns& columns, const QRect& area, int top, int height) const;
    /// From the top of the view to the top of a label beside it.
    [[nodiscard]] int labelOffset(const PlacedRow& row, int viewHeight) const;

    std::vector<std::unique_ptr<Item>> items_;
    std::vector<std::unique_ptr<Item>> leaving_; ///< while their widgets are released
    std::vector<PlacedRow> rows_;
    Form::Layout layout_ = Form::Layout::leftHeaders;
    double inputSizeRatio_ = 1;
    mutable int leastWidth_ = -1; ///< -1 while unknown
    mutable QSize lastSize_; ///< a width and the height for it
};

} // namespace quor::formkit
