// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// An input of a length of time, in working days, hours and minutes.
class FormElementDurationInput : public virtual FormElement {
public:
    /// Whether the lock is absent. True at first.
    [[nodiscard]] virtual bool hideLock() const = 0;
    virtual void setHideLock(bool hideLock) = 0;

    /// False at first.
    [[nodiscard]] virtual bool isLocked() const = 0;
    virtual void setLocked(bool isLocked) = 0;

    /// In seconds. 0 or less, as at first, means that there is no input of working days.
    [[nodiscard]] virtual double workingDayLength() const = 0;
    virtual void setWorkingDayLength(double seconds) = 0;

    /// In seconds.
    [[nodiscard]] virtual double value() const = 0;
    virtual void setValue(double seconds) = 0;

    /// Called after a click on the lock has taken effect.
    using LockButtonClicked = platform::Callback<void()>;
    [[nodiscard]] virtual LockButtonClicked lockButtonClicked() const = 0;
    virtual void setLockButtonClicked(LockButtonClicked lockButtonClicked) = 0;
};

} // namespace quor::formkit
