// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

namespace quor::platform {

/// An image that is either shown as it is or, as a template, serves as a mask: only its alpha
/// counts, and whoever shows it chooses the colour. `pixels` bears its device pixel ratio.
struct TemplateImage {
    QImage pixels;
    bool isTemplate = false;

    friend bool operator==(const TemplateImage&, const TemplateImage&) = default;
};

/// The button of a status item: an image, centred, a template one in the bar's text colour, and
/// above it whatever child widgets it was given, in their own colours.
///
/// Setting what already is repaints nothing. Takes no focus. Main thread only.
class StatusBarButton final : public QWidget {
    Q_OBJECT

public:
    explicit StatusBarButton(QWidget* parent = nullptr);

    [[nodiscard]] const TemplateImage& image() const { return image_; }
    void setImage(TemplateImage image);

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
    /// The window of the button has moved to a screen of another scale.
    void backingScaleChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    TemplateImage image_;
    QColor tint_ = Qt::black;
    bool highlighted_ = false;
};

} // namespace quor::platform
