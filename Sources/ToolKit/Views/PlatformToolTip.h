// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Views/PlatformView.h"

#include <QColor>
#include <QMarginsF>
#include <QPoint>
#include <QString>

namespace quor::platform {
class AttributedString;
}

namespace quor::toolkit {

/// A tool tip of up to three lines, one below the other: a headline, a label, a sublabel. It sizes
/// itself to them; its owner puts it into a container, at `position`.
///
/// Texts may bear the marks of `MarkdownParser`; an empty one takes no room. Lengths are
/// device-independent pixels. The setters of texts, font sizes, padding and radius lay the tip out
/// anew and redraw it. Main thread only; on another thread they store the value, and the caller sees
/// to it that nobody reads it meanwhile: the next layout finds it.
class PlatformToolTip : public PlatformView {
    Q_OBJECT

public:
    explicit PlatformToolTip(QWidget* parent = nullptr);

    /// Added behind each line; counts from the next layout on. At first 0.
    [[nodiscard]] double labelSpacing() const { return labelSpacing_; }
    void setLabelSpacing(double spacing) { labelSpacing_ = spacing; }

    /// Where the layout has put the upper left corners of the lines. The sublabel stands below the
    /// label, so a tip without a label has room for a headline or a sublabel, not for both.
    [[nodiscard]] QPointF labelPosition() const { return label_.position; }
    [[nodiscard]] QPointF sublabelPosition() const { return sublabel_.position; }
    [[nodiscard]] QPointF headlinePosition() const { return headline_.position; }

    /// At first 4 above and below, 9 to the left and right.
    [[nodiscard]] QMarginsF contentPadding() const { return contentPadding_; }
    void setContentPadding(const QMarginsF& padding);
    /// At first 5.
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);

    /// At first 10, 12 and 10.
    [[nodiscard]] double sublabelFontSize() const { return sublabel_.fontSize; }
    void setSublabelFontSize(double size);
    [[nodiscard]] double labelFontSize() const { return label_.fontSize; }
    void setLabelFontSize(double size);
    [[nodiscard]] double headlineFontSize() const { return headline_.fontSize; }
    void setHeadlineFontSize(double size);

    [[nodiscard]] const QString& headline() const { return headline_.text; }
    void setHeadline(const QString& headline);
    [[nodiscard]] const QString& label() const { return label_.text; }
    void setLabel(const QString& label);
    [[nodiscard]] const QString& sublabel() const { return sublabel_.text; }
    void setSublabel(const QString& sublabel);

    /// Until set, and after an invalid colour, those of a text field in the view's palette.
    [[nodiscard]] QColor bgColor() const;
    void setBgColor(const QColor& color);
    [[nodiscard]] QColor titleColor() const;
    void setTitleColor(const QColor& color);

    /// Places the lines and resizes the view, in whole pixels; it stays where it is. What the lines say
    /// also becomes its accessible name.
    void updateLayout();

    /// The origin for a tip that speaks of (x, y) in `container`: above the point, and to the right of
    /// it; below it or to the left where the container has no room for that.
    [[nodiscard]] QPoint position(double x, double y, const QWidget& container) const;

protected:
    void draw(QPainter& context) override;
    void changeEvent(QEvent* event) override;

private:
    struct Line {
        double fontSize;
        QString text;
        QPointF position;
    };

    [[nodiscard]] static platform::AttributedString rendered(const Line& line, const QColor& color);
    template <typename Value>
    void layOutWith(Value& field, const Value& value);
    void redrawWith(QColor& field, const QColor& value);

    double labelSpacing_ = 0;
    QMarginsF contentPadding_{9, 4, 9, 4};
    double cornerRadius_ = 5;
    Line sublabel_{10, {}, {}};
    Line label_{12, {}, {}};
    Line headline_{10, {}, {}};
    QColor bgColor_;
    QColor titleColor_;
};

} // namespace quor::toolkit
