// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/RoundedButton/RoundedButtonAccessible.h"

#include "ToolKit_macOS/RoundedButton/RoundedButton.h"

#include <QMenu>

namespace quor::toolkit {

QAccessibleInterface* RoundedButtonAccessible::make(const QString& /*className*/, QObject* object)
{
    auto* const button = qobject_cast<RoundedButton*>(object);
    return button ? new RoundedButtonAccessible(*button) : nullptr;
}

RoundedButtonAccessible::RoundedButtonAccessible(RoundedButton& button)
    : QAccessibleWidget(&button, QAccessible::Button)
{
}

RoundedButton& RoundedButtonAccessible::button() const
{
    return static_cast<RoundedButton&>(*widget());
}

QString RoundedButtonAccessible::text(QAccessible::Text what) const
{
    QString text = QAccessibleWidget::text(what);
    if (text.isEmpty() && what == QAccessible::Name)
        return button().shownTitle();
    if (text.isEmpty() && what == QAccessible::Description)
        return button().shownSubtitle();
    return text;
}

QAccessible::State RoundedButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = button().isDown();
    state.checkable = button().isOn();
    state.checked = button().isOn();
    state.hasPopup = !button().menu().isEmpty();
    return state;
}

QStringList RoundedButtonAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (!button().isEnabled())
        return names;
    if (!button().menu().isEmpty())
        names.prepend(showMenuAction());
    names.prepend(pressAction());
    return names;
}

void RoundedButtonAccessible::doAction(const QString& actionName)
{
    if (actionName == pressAction())
        button().click();
    else if (actionName == showMenuAction())
        (void)button().openMenu();
    else
        QAccessibleWidget::doAction(actionName);
}

} // namespace quor::toolkit
