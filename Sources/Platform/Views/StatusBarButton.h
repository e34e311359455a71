// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Resources/Tinting.h"

#include <QAbstractButton>
#include <QColor>

class QPainter;

namespace quor::platform {

/// The button of a status item: a centred image, a template image in the bar's text colour, and above
/// the image a drawing in its own colours.
///
/// Setting a value again does not repaint. Takes no focus. A press with the pointer is not a click: `clicked`
/// is for assistive tools, which see a button with the application's name until another accessible name is
/// set. Main thread only.
class StatusBarButton final : public QAbstractButton {
    Q_OBJECT

public:
    /// Draws above the image. The painter's origin is the upper left corner of the image, whose size is
    /// in device-independent pixels. Any painter state may be left behind.
    using Foreground = Callback<void(QPainter&, QSizeF imageSize)>;

    explicit StatusBarButton(QWidget* parent = nullptr);

    [[nodiscard]] const TemplateImage& image() const { return image_; }
    /// Shows `image`. For the image of a status item see `StatusItem::setImage`, which also has the item
    /// laid out.
    void setImage(TemplateImage image);

    /// Sets the drawing above the image, and repaints. An empty one removes the drawing.
    void setForeground(Foreground foreground);

    /// The upper left corner of the painted image, in device-independent pixels of the button. The image
    /// is centred as well as whole device pixels of the window allow, so at a fractional scale the
    /// corner is not always at a whole number.
    [[nodiscard]] QPointF imageOrigin() const;

    /// The bar's text colour. The host sets it to suit the bar's background.
    [[nodiscard]] QColor tintColor() const { return tint_; }
    void setTintColor(const QColor& color);

    /// Whether the button is drawn as selected, as while its menu is open.
    [[nodiscard]] bool isHighlighted() const { return highlighted_; }
    void highlight(bool on);

    /// The image's size in device-independent pixels, rounded up; (0, 0) without an image.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The scale of the button's screen differs from before: the button came to another screen, or the
    /// screen changed its scale.
    void backingScaleChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void checkBackingScale();

    TemplateImage image_;
    QImage painted_; ///< the image in the tint; null until painted
    Foreground foreground_;
    QColor tint_ = Qt::black;
    double backingScale_;
    bool highlighted_ = false;
};

} // namespace quor::platform
