// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ScaledFont.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quor::formkit {

namespace {

class FontFollower final : public QObject {
public:
    FontFollower(QWidget& widget, QWidget& container, double factor, QFont::Weight weight)
        : QObject(&widget)
        , widget_(widget)
        , container_(container)
        , factor_(factor)
        , weight_(weight)
    {
        container.installEventFilter(this);
        apply();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange)
            apply();
        return QObject::eventFilter(watched, event);
    }

private:
    void apply()
    {
        QFont font = scaledFont(container_.font(), factor_);
        font.setWeight(weight_);
        widget_.setFont(font);
    }

    QWidget& widget_;
    QWidget& container_;
    double factor_;
    QFont::Weight weight_;
};

} // namespace

QFont scaledFont(QFont font, double factor)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(std::max(static_cast<int>(std::lround(font.pixelSize() * factor)), 1));
    return font;
}

void keepFontScaled(QWidget& widget, QWidget& container, double factor, QFont::Weight weight)
{
    new FontFollower(widget, container, factor, weight);
}

} // namespace quor::formkit
