// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace quor::formkit {

/// What screen readers see of a button that is on or off. Their action clicks the button, as the user would,
/// so that its owner hears of it; that of Qt's own class only changes the mark. Main thread only.
class ToggleAccessible : public QAccessibleWidget {
public:
    ToggleAccessible(QAbstractButton& button, QAccessible::Role role);

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

protected:
    [[nodiscard]] QAbstractButton& button() const;
};

} // namespace quor::formkit
