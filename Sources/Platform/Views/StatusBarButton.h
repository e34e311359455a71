// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QImage>

namespace quor::platform {

/// An image that is either shown as it is or, as a template, serves as a mask: only its alpha
/// counts, and whoever shows it chooses the colour. `pixels` bears its device pixel ratio.
struct TemplateImage {
    QImage pixels;
    bool isTemplate = false;

    /// Equal pixels of an equal device pixel ratio, shown in the same way.
    friend bool operator==(const TemplateImage& a, const TemplateImage& b);
};

/// The button of a status item: an image, centred, a template one in the bar's text colour, and
/// above it whatever child widgets it was given, in their own colours.
///
/// Setting what already is repaints nothing. Takes no focus. Its children get no mouse events: a
/// press on one is a press on the button. Assistive tools see a button and can press it too; its
/// accessible name is the application's until another is set. Main thread only.
class StatusBarButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit StatusBarButton(QWidget* parent = nullptr);

    [[nodiscard]] const TemplateImage& image() const { return image_; }
    void setImage(TemplateImage image);

    /// Where the image's top left corner is painted, in device-independent pixels of the button:
    /// centred as nearly as whole device pixels of the window allow, so at a fractional scale not
    /// always a whole number. A child that must fit the image to the pixel paints from here.
    [[nodiscard]] QPointF imageOrigin() const;

    /// The bar's text colour. The host sets it to suit the bar's background.
    [[nodiscard]] QColor tintColor() const { return tint_; }
    void setTintColor(const QColor& color);

    /// Drawn as chosen, as while its menu is open.
    [[nodiscard]] bool isHighlighted() const { return highlighted_; }
    void highlight(bool on);

    /// The image's size in device-independent pixels; empty without one.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// A left or right press on the button or on anything in it.
    void mouseDown();
    /// The button's screen has another scale than before: one that it was moved to, or the same one.
    void backingScaleChanged();

protected:
    bool event(QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] const QImage& paintedImage();
    void checkBackingScale();

    TemplateImage image_;
    QImage tinted_; ///< The template image in the tint; null until painted.
    QColor tint_ = Qt::black;
    double backingScale_;
    bool highlighted_ = false;
};

} // namespace quor::platform
