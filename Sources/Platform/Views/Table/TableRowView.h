// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

namespace quor::platform {

enum class TableViewSelectionStyle {
    none, ///< rows draw no selection
    regular, ///< a bar over the row's full rectangle
    sourceList, ///< a bar with round corners
};

/// The widget that contains a row's view: it sets the view's geometry and draws the selection around it.
/// While the selection is drawn emphasised, its background role is `QPalette::Highlight`, so that a view
/// without a palette of its own writes in the colour for selected text.
///
/// Made by the table or by its delegate, owned by the table. Lengths are device-independent pixels. Main
/// thread only.
class TableRowView : public QWidget {
    Q_OBJECT

public:
    explicit TableRowView(QWidget* parent = nullptr);

    /// The delegate's widget. Null if the row is empty, or after the widget was deleted elsewhere.
    [[nodiscard]] QWidget* view() const { return view_; }
    /// Makes the widget a child of this one, and shows it. The view before stays a child.
    void setView(QWidget* view);
    /// Sets the room above and below the view: together the table's row spacing. The default is 0.
    void setSpacing(int above, int below);
    /// Sets the free room on each side of the view, which the selection covers. The default is 0.
    void setSideMargin(int margin);

    [[nodiscard]] bool isSelected() const { return selected_; }
    void setSelected(bool selected);

    /// Whether the selection is drawn as in a view that has the keyboard focus. Always false with the style
    /// `none`; a class that draws a selection of its own overrides this together with `drawSelection`.
    [[nodiscard]] virtual bool isEmphasized() const
    {
        return emphasized_ && style_ != TableViewSelectionStyle::none;
    }
    virtual void setEmphasized(bool emphasized);

    [[nodiscard]] virtual TableViewSelectionStyle selectionHighlightStyle() const { return style_; }
    virtual void setSelectionHighlightStyle(TableViewSelectionStyle style);

protected:
    /// Called while the row is selected.
    virtual void drawSelection(QPainter& painter) const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeView();
    void selectionAppearanceChanged();
    [[nodiscard]] bool showsEmphasis() const;

    QPointer<QWidget> view_;
    int above_ = 0;
    int below_ = 0;
    int sideMargin_ = 0;
    bool selected_ = false;
    bool emphasized_ = false;
    TableViewSelectionStyle style_ = TableViewSelectionStyle::regular;
};

} // namespace quor::platform
