// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>

namespace quor::formkit {

/// A round swatch of a colour, one of a `ColorRow`, which has the focus in its place. A ring and a mark show
/// that it is on. The tool tip and the name for screen readers are the name of the colour. Main thread only.
class ColorButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit ColorButton(QWidget* parent = nullptr);

    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor& color);
    /// The name of an image of this kit that is drawn instead of the colour. Empty at first.
    [[nodiscard]] QString colorImage() const { return colorImage_; }
    void setColorImage(const QString& name);
    /// Replaces the name of the colour as tool tip and name.
    void setTitle(const QString& title);

    /// Whether to show the focus of the row at this swatch.
    [[nodiscard]] bool isCurrent() const { return isCurrent_; }
    void setCurrent(bool isCurrent);

    /// A square as high as a push button of the same font.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void nextCheckState() override { } // the owner of the row decides
    void paintEvent(QPaintEvent* event) override;

private:
    void paintSwatch(QPainter& painter, const QRectF& swatch) const;
    void paintMark(QPainter& painter, const QRectF& swatch) const;

    QColor color_;
    QString colorImage_;
    bool isCurrent_ = false;
};

} // namespace quor::formkit
