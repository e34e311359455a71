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

/// The widget under a row's view: it draws the selection and lays the view out. While the selection
/// is drawn emphasised, the view lies on the palette's `Highlight`, so that its text takes the colour
/// for selected text, unless the view sets its own.
///
/// Made by the table or by its delegate, owned by the table. Main thread only.
class TableRowView : public QWidget {
    Q_OBJECT

public:
    explicit TableRowView(QWidget* parent = nullptr);

    /// The delegate's widget; null for none, and once it was deleted elsewhere.
    [[nodiscard]] QWidget* view() const { return view_; }
    /// Takes the widget as its child and shows it.
    void setView(QWidget* view);
    /// The room above and below the view, half of the table's row spacing each.
    void setSpacing(int above, int below);
    /// Free room on both sides of the view; the selection is drawn over it.
    void setSideMargin(int margin);

    [[nodiscard]] bool isSelected() const { return selected_; }
    void setSelected(bool selected);

    /// Whether the selection is drawn as that of the view which has the keyboard. Never without a
    /// selection style, unless overridden together with `drawSelection`.
    [[nodiscard]] virtual bool isEmphasized() const
    {
        return emphasized_ && style_ != TableViewSelectionStyle::none;
    }
    virtual void setEmphasized(bool emphasized);

    [[nodiscard]] virtual TableViewSelectionStyle selectionHighlightStyle() const { return style_; }
    virtual void setSelectionHighlightStyle(TableViewSelectionStyle style);

protected:
    /// Asked while the row is selected.
    virtual void drawSelection(QPainter& painter) const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeView();
    void selectionLookChanged();
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
