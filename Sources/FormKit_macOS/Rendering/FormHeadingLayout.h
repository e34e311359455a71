// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>

#include <array>
#include <memory>

class QScrollArea;

namespace quor::formkit {

/// The layout of a form whose heading stays in sight while its rows scroll: title, subtitle and separator,
/// two buttons on the level of the title, below them the scroll area. In a right-to-left layout, left and
/// right change sides. Main thread only.
///
/// Its widgets have other owners: when the layout ends, even with its container, they lose their parent and
/// live on.
class FormHeadingLayout final : public QLayout {
    Q_OBJECT

public:
    /// Each may be null.
    struct Parts {
        QWidget* title = nullptr; ///< without it there is no heading at all
        QWidget* subtitle = nullptr;
        QWidget* separator = nullptr;
        QWidget* defaultButton = nullptr;
        QWidget* cancelButton = nullptr;
        QScrollArea* scrollArea = nullptr;
    };

    explicit FormHeadingLayout(QWidget& container);
    ~FormHeadingLayout() override;

    /// Replaces all parts. Widgets that are no part any more are hidden and lose their parent.
    void setParts(const Parts& parts);

    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    /// Has no effect: `setParts` adds the items.
    void addItem(QLayoutItem* item) override;
    /// False although it has: an area that scrolls the whole would give it the height of all rows, and the
    /// heading would not stay in sight.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
    /// Of the heading and all rows.
    [[nodiscard]] int heightForWidth(int width) const override;
    /// Of the heading and some rows.
    [[nodiscard]] int minimumHeightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    enum Part { title, subtitle, separator, defaultButton, cancelButton, scrollArea, partCount };

    [[nodiscard]] QWidget* widgetOf(Part part) const;
    [[nodiscard]] int leastWidth() const;
    [[nodiscard]] int heightOfRows(int width) const;
    [[nodiscard]] int arrange(const QRect& area, bool apply) const;

    using Items = std::array<std::unique_ptr<QWidgetItem>, partCount>;
    Items items_;
    Items leaving_; ///< while their widgets are released
};

} // namespace quor::formkit
