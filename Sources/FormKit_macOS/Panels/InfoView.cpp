// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Panels/InfoView.h"

#include "FormKit_macOS/Controls/ResizeTextView.h"

#include <QKeyEvent>
#include <QLabel>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace quor::formkit {

namespace {

constexpr int textWidth = 300;
constexpr int padding = 10;
constexpr int distanceFromButton = 10;
constexpr int animationDistance = 20;
constexpr int animationMilliseconds = 150;

} // namespace

InfoView::InfoView(const QString& infoText, QWidget& button)
    : TransientPanel(button, button)
    , hintField_(new ResizeTextView)
    , scrollView_(new QScrollArea(this))
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    hintField_->setContent(infoText, false);
    scrollView_->setFrameShape(QFrame::NoFrame);
    scrollView_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollView_->setWidgetResizable(true);
    scrollView_->setWidget(hintField_);
    scrollView_->viewport()->setAutoFillBackground(false);
    scrollView_->setMinimumHeight(1); // for a text of one line
    scrollView_->setAccessibleName(infoText);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->addWidget(scrollView_);
}

QSize InfoView::wantedSize(const QRect& screen) const
{
    const int height = heightOfAll();
    const bool scrolls = height > screen.height();
    const int bar = scrolls ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, scrollView_) : 0;
    return {textWidth + bar + 2 * (padding + frameWidth()), std::min(height, screen.height())};
}

int InfoView::heightOfAll() const
{
    return hintField_->heightForWidth(textWidth) + 2 * (padding + frameWidth());
}

void InfoView::resizeEvent(QResizeEvent* event)
{
    TransientPanel::resizeEvent(event);
    // By itself, the bar could stay for a text that fits without it, and is too high beside it.
    scrollView_->setVerticalScrollBarPolicy(
        heightOfAll() > height() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

QRect InfoView::placeAt(const QRect& anchor, QSize size, const QRect& screen) const
{
    return placePanelBeside(anchor, size, screen, distanceFromButton, layoutDirection());
}

QWidget& InfoView::keyboardReceiver() const
{
    return *scrollView_;
}

bool InfoView::event(QEvent* event)
{
    // There is no other control that the Tab key could go to.
    const bool isTab = event->type() == QEvent::KeyPress
        && (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab
            || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Backtab);
    if (!isTab)
        return TransientPanel::event(event);
    close();
    return true;
}

void InfoView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool closes = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    TransientPanel::keyPressEvent(event);
    if (closes && !event->isAutoRepeat())
        close();
}

void InfoView::closeEvent(QCloseEvent* event)
{
    showMovingAway();
    TransientPanel::closeEvent(event);
}

void InfoView::showMovingAway()
{
    const bool animates = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!animates || !isVisible() || !parentWidget()->isVisible())
        return;
    // A picture, since the panel gives back the keyboard and the pointer at once.
    auto* const picture
        = new QLabel(parentWidget(), Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput);
    picture->setAttribute(Qt::WA_ShowWithoutActivating);
    picture->setPixmap(grab());
    picture->setGeometry(geometry());
    picture->show();
    const bool isLeft = x() < anchorOnScreen().x();
    auto* const animations = new QParallelAnimationGroup(picture);
    const auto animate = [&](const char* property, const QVariant& end) {
        auto* const animation = new QPropertyAnimation(picture, property, animations);
        animation->setDuration(animationMilliseconds);
        animation->setEndValue(end);
    };
    animate("pos", picture->pos() + QPoint(isLeft ? -animationDistance : animationDistance, 0));
    animate("windowOpacity", 0.0);
    connect(animations, &QAbstractAnimation::finished, picture, &QObject::deleteLater);
    animations->start();
}

} // namespace quor::formkit
