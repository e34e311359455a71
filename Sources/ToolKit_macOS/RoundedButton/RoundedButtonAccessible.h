// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

namespace quor::toolkit {

class RoundedButton;

/// What screen readers see of a `RoundedButton`: its title as the name, its subtitle as the description, and
/// whether it is on and has a menu. Main thread only.
class RoundedButtonAccessible final : public QAccessibleWidget {
public:
    /// A factory for `QAccessible::installFactory`. Returns null for objects of other classes.
    [[nodiscard]] static QAccessibleInterface* make(const QString& className, QObject* object);

    explicit RoundedButtonAccessible(RoundedButton& button);

    [[nodiscard]] QString text(QAccessible::Text what) const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    [[nodiscard]] RoundedButton& button() const;
};

} // namespace quor::toolkit
