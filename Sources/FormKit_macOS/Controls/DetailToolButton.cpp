// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/DetailToolButton.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/Controls/ToggleAccessible.h"
#include "Platform/Resources/Tinting.h"

#include <QKeyEvent>
#include <QStyleOptionToolButton>

#include <algorithm>

namespace quor::formkit {

namespace {

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* const button = qobject_cast<DetailToolButton*>(object);
    return button && button->isCheckable() ? new ToggleAccessible(*button, QAccessible::CheckBox) : nullptr;
}

} // namespace

DetailToolButton::DetailToolButton(QWidget* parent)
    : QToolButton(parent)
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    setAutoRaise(true);
    // A click leaves the keyboard in the input beside it.
    setFocusPolicy(Qt::TabFocus);
}

void DetailToolButton::setImage(const platform::Bundle& images, const QString& name, bool isTemplate)
{
    images_ = images;
    imageName_ = name;
    isTemplate_ = isTemplate;
    updateGeometry();
    update();
}

void DetailToolButton::setTitle(const QString& title)
{
    setText(withoutMnemonic(singleLine(title)));
}

int DetailToolButton::imageSide() const
{
    return fontMetrics().height();
}

void DetailToolButton::initStyleOption(QStyleOptionToolButton* option) const
{
    QToolButton::initStyleOption(option);
    const QSizeF size(imageSide(), imageSide());
    const QImage image
        = imageName_.isEmpty() ? QImage() : images_.image(imageName_, size, devicePixelRatioF());
    const QColor color = palette().color(QPalette::Active, QPalette::WindowText);
    option->icon
        = QIcon(QPixmap::fromImage(isTemplate_ && !image.isNull() ? platform::tinted(image, color) : image));
    option->iconSize = size.toSize();
    const bool hasImage = !image.isNull();
    option->toolButtonStyle = text().isEmpty() ? Qt::ToolButtonIconOnly
        : hasImage                             ? Qt::ToolButtonTextBesideIcon
                                               : Qt::ToolButtonTextOnly;
}

QSize DetailToolButton::sizeHint() const
{
    const QSize hint = QToolButton::sizeHint();
    return {std::max(hint.width(), hint.height()), hint.height()}; // at least a square
}

void DetailToolButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QToolButton::keyPressEvent(event);
    else if (!event->isAutoRepeat()) // a key that is held down presses once
        click();
}

} // namespace quor::formkit
