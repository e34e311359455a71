// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ToggleAccessible.h"

#include <QAbstractButton>

namespace quor::formkit {

ToggleAccessible::ToggleAccessible(QAbstractButton& button, QAccessible::Role role)
    : QAccessibleWidget(&button, role)
{
}

QAbstractButton& ToggleAccessible::button() const
{
    return static_cast<QAbstractButton&>(*widget());
}

QAccessible::State ToggleAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button().isChecked();
    return state;
}

QStringList ToggleAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (button().isEnabled())
        names.prepend(toggleAction());
    return names;
}

void ToggleAccessible::doAction(const QString& actionName)
{
    if (actionName == toggleAction() || actionName == pressAction())
        button().click();
    else
        QAccessibleWidget::doAction(actionName);
}

} // namespace quor::formkit
