// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDurationInput.h"
#include "FormKit_macOS/Elements/FormBase.h"
#include "Platform/Text/NumberFormatter.h"

class QLabel;

namespace quor::formkit {

class DurationField;
class LockButton;

/// An input of a duration in fields for hours and minutes, and for working days if these have a length. An
/// empty field counts as 0, as it is at first; minutes can exceed 59.
///
/// The arrow keys change the number of a field by one, but not from 0 to a negative one. A text such as
/// "1:30", "1h 30m" or "90m" that is pasted into a field fills all of them. A fraction is spread over the
/// fields when the user leaves its field; if this drops seconds, `valueChanged` is called once more.
class FormDurationInput final : public FormBase, public FormElementDurationInput {
public:
    explicit FormDurationInput(Construction construction);
    ~FormDurationInput() override;

    [[nodiscard]] bool hideLock() const override { return hideLock_; }
    /// Unlocks the fields if `hideLock` is true.
    void setHideLock(bool hideLock) override;
    [[nodiscard]] bool isLocked() const override { return isLocked_; }
    void setLocked(bool isLocked) override;
    [[nodiscard]] double workingDayLength() const override { return workingDayLength_; }
    /// Empties all fields. Requests a render, as the way of the Tab key changes.
    void setWorkingDayLength(double seconds) override;
    [[nodiscard]] double value() const override;
    /// Shows whole minutes; infinity and NaN as 0. All numbers of a negative duration are negative.
    void setValue(double seconds) override;
    [[nodiscard]] LockButtonClicked lockButtonClicked() const override { return lockButtonClicked_; }
    void setLockButtonClicked(LockButtonClicked lockButtonClicked) override
    {
        lockButtonClicked_ = std::move(lockButtonClicked);
    }

    /// Passes the value to the fields, also while they are locked.
    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    struct Unit {
        DurationField* field;
        QLabel* label;
    };

    [[nodiscard]] Unit addUnit(const QString& labelKey);
    [[nodiscard]] bool hasWorkingDays() const { return workingDayLength_ > 0; }
    [[nodiscard]] double number(const DurationField& field) const;
    void showNumber(DurationField& field, double number);
    void arrangeFields();
    void applyLock();
    void changed();
    void step(DurationField& field, int step);
    bool paste(const QString& text);
    /// Shows what the user has typed as whole numbers.
    void normalize(DurationField& field);
    void editingEnded(DurationField& field);
    void lockClicked();

    platform::NumberFormatter formatter_;
    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    // All children of the container:
    LockButton* lockButton_;
    Unit workingDay_;
    Unit hour_;
    Unit minute_;
    LockButtonClicked lockButtonClicked_;
    bool hideLock_ = true;
    bool isLocked_ = false;
    double workingDayLength_ = 0;
};

} // namespace quor::formkit
