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

/// A tool tip with up to three texts, one below the other: a headline, a label, a sublabel. Resizes itself
/// to them; its owner puts it into a container, at `position`.
///
/// Texts may contain the marks of `MarkdownParser`; an empty text takes no room. Lengths are
/// device-independent pixels. The setters of texts, font sizes, padding and radius lay out and redraw the
/// tip. Main thread only; on another thread the setters only store the value for the next layout, and the
/// caller has to make sure that the main thread does not use the tip at the same time.
class PlatformToolTip : public PlatformView {
    Q_OBJECT

public:
    explicit PlatformToolTip(QWidget* parent = nullptr);

    /// The room below each text. 0 at first. Takes effect with the next layout.
    [[nodiscard]] double labelSpacing() const { return labelSpacing_; }
    void setLabelSpacing(double spacing) { labelSpacing_ = spacing; }

    /// The upper left corners of the texts, as set by the last layout. Without a label, the sublabel is at
    /// the top, where it overlaps a headline.
    [[nodiscard]] QPointF labelPosition() const { return label_.position; }
    [[nodiscard]] QPointF sublabelPosition() const { return sublabel_.position; }
    [[nodiscard]] QPointF headlinePosition() const { return headline_.position; }

    /// The room around the texts. At first 4 above and below, 9 on the left and right.
    [[nodiscard]] QMarginsF contentPadding() const { return contentPadding_; }
    void setContentPadding(const QMarginsF& padding);
    /// Of the background. 5 at first.
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);

    /// At first 10 for the sublabel, 12 for the label, 10 for the headline.
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

    /// The colours of the background and of the texts. Until set, and after setting an invalid colour, those
    /// of a text field in the view's palette.
    [[nodiscard]] QColor bgColor() const;
    void setBgColor(const QColor& color);
    [[nodiscard]] QColor titleColor() const;
    void setTitleColor(const QColor& color);

    /// Sets the positions of the texts, the size of the view in whole pixels, and its accessible name, which
    /// are the texts without marks. The view stays where it is.
    void updateLayout();

    /// Returns where in `container` to put the upper left corner of a tip about the point (x, y): above the
    /// point and to its right, or below or to its left if the container has no room there.
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
