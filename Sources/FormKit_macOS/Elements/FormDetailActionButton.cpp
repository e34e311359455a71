// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDetailActionButton.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QTimer>

#include <algorithm>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

constexpr auto toolTipDuration = 800ms;
constexpr int toolTipDistance = 10;

/// Where a tool tip of this size stands in the superview of `button`: above it, where both end, or below it
/// if there is nothing to be seen above.
QPoint toolTipPlace(const QWidget& button, QSize size)
{
    const QRect visible = button.parentWidget()->visibleRegion().boundingRect();
    const bool isMirrored = button.layoutDirection() == Qt::RightToLeft;
    const int wanted = isMirrored ? button.x() : button.x() + button.width() - size.width();
    const int rightmost = std::max(visible.left(), visible.right() + 1 - size.width());
    const int above = button.y() - toolTipDistance - size.height();
    return {std::clamp(wanted, visible.left(), rightmost),
        above >= visible.top() ? above : button.y() + button.height() + toolTipDistance};
}

} // namespace

FormDetailActionButton::FormDetailActionButton()
{
    button()->setCheckable(true);
    QObject::connect(button(), &QAbstractButton::clicked, button(),
        platform::whileAlive(*this, [this](bool) { clicked(); }));
}

FormDetailActionButton::~FormDetailActionButton()
{
    delete platformToolTip_;
}

void FormDetailActionButton::clicked()
{
    setOn(!isOn_);
    setHasChanges(true);
    showToolTip();
    notifyValueChanged();
}

void FormDetailActionButton::showToolTip()
{
    delete platformToolTip_;
    QWidget* const superview = button() ? button()->parentWidget() : nullptr;
    if (!superview || shownToolTip().isEmpty())
        return;
    platformToolTip_ = new toolkit::PlatformToolTip(superview);
    const QPalette& colors = button()->palette();
    // The reverse of the form, so that it stands out.
    platformToolTip_->setBgColor(colors.color(QPalette::Active, QPalette::WindowText));
    platformToolTip_->setTitleColor(colors.color(QPalette::Active, QPalette::Window));
    platformToolTip_->setLabel(singleLine(shownToolTip()));
    platformToolTip_->move(toolTipPlace(*button(), platformToolTip_->size()));
    platformToolTip_->show();
    platformToolTip_->raise();
    QTimer::singleShot(toolTipDuration, platformToolTip_, &QObject::deleteLater);
}

void FormDetailActionButton::updateButton()
{
    if (!button())
        return;
    const QString image = (isOn_ && onImageName_ ? onImageName_ : offImageName_).value_or(QString());
    const QString name = title_.value_or(QString());
    button()->setChecked(isOn_);
    button()->setImage(platform::Bundle::main(), image, image.endsWith(u"Template"_s));
    button()->setTitle(name);
    button()->setToolTip(shownToolTip().isEmpty() ? QString() : plainToolTip(shownToolTip()));
    // Constant, since screen readers also say whether the button is on.
    button()->setAccessibleName(singleLine(name.isEmpty() ? toolTip() : name));
    button()->setAccessibleDescription(shownToolTip());
}

void FormDetailActionButton::setOffImageName(const std::optional<QString>& name)
{
    offImageName_ = name;
    updateButton();
}

void FormDetailActionButton::setOnImageName(const std::optional<QString>& name)
{
    onImageName_ = name;
    updateButton();
}

void FormDetailActionButton::setTitle(const std::optional<QString>& title)
{
    title_ = title;
    updateButton();
}

void FormDetailActionButton::setOn(bool isOn)
{
    isOn_ = isOn;
    updateButton();
}

void FormDetailActionButton::setIsOnToolTip(const QString& toolTip)
{
    isOnToolTip_ = toolTip;
    updateButton();
}

} // namespace quor::formkit
