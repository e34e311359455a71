// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"
#include "Platform/Lifetime/Trackable.h"
#include "Platform/Views/WidgetHandle.h"

#include <memory>
#include <utility>
#include <vector>

namespace quor::formkit {

/// Base class of the elements of forms.
///
///     class NameInput final : public FormBase {
///     public:
///         using FormBase::FormBase;
///         QWidget* view() const override { return field_.get(); }
///         std::vector<QWidget*> focusableViews() const override { return {view()}; }
///         void setup() override; // connects field_
///     private:
///         platform::WidgetHandle<QLineEdit> field_ = platform::makeWidget<QLineEdit>();
///     };
///     const auto name = makeElement<NameInput>();
///
/// A derived class makes its controls with its fields, and connects them in `setup`. A control changes by the
/// user's hand alone: its handler calls `setHasChanges(true)`, then `notifyValueChanged`. A setter of a value
/// calls neither. A class with controls overrides `setEnabled` to pass it on. Main thread only.
class FormBase : public virtual FormElement, public platform::Trackable {
public:
    /// Only `makeElement` can make one, so that no element is used before its `setup`.
    class Construction final {
        Construction() = default;
        template <class T, class... Arguments>
        friend std::shared_ptr<T> makeElement(Arguments&&... arguments);
    };

    explicit FormBase(Construction);
    ~FormBase() override;

    [[nodiscard]] Form* form() const override { return form_.get(); }
    void setForm(Form* form) override;
    [[nodiscard]] QString id() const override { return id_; }
    virtual void setId(const QString& id) { id_ = id; }
    [[nodiscard]] bool isHidden() const override { return isHidden_; }
    void setHidden(bool hidden) override;
    [[nodiscard]] bool enabled() const override { return enabled_; }
    /// Only stores the value.
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    [[nodiscard]] bool hasChanges() const override { return hasChanges_; }
    void setHasChanges(bool hasChanges) override { hasChanges_ = hasChanges; }
    [[nodiscard]] QString label() const override { return label_; }
    void setLabel(const QString& label) override { label_ = label; }
    [[nodiscard]] int tag() const override { return tag_; }
    void setTag(int tag) override { tag_ = tag; }
    [[nodiscard]] std::shared_ptr<FormDetailElement> detailElement() const override { return detailElement_; }
    void setDetailElement(std::shared_ptr<FormDetailElement> detailElement) override
    {
        detailElement_ = std::move(detailElement);
    }
    /// Returns a new, empty view at each call, owned by this element. Elements with a view override it.
    [[nodiscard]] QWidget* view() const override;
    [[nodiscard]] ValueChanged valueChanged() const override { return valueChanged_; }
    void setValueChanged(ValueChanged valueChanged) override { valueChanged_ = std::move(valueChanged); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override { return {}; }
    void setup() override { }

protected:
    /// Calls `valueChanged`. This element may have ended when it returns.
    void notifyValueChanged() { valueChanged_(*this); }

private:
    platform::TrackedPointer<Form> form_;
    QString id_;
    bool isHidden_ = false;
    bool enabled_ = true;
    bool hasChanges_ = false;
    QString label_;
    int tag_ = 0;
    std::shared_ptr<FormDetailElement> detailElement_;
    ValueChanged valueChanged_;
    mutable std::vector<platform::WidgetHandle<QWidget>> emptyViews_;
};

/// Makes an element from the arguments of its constructor that follow the first one, and sets it up.
template <class T, class... Arguments>
[[nodiscard]] std::shared_ptr<T> makeElement(Arguments&&... arguments)
{
    auto element = std::make_shared<T>(FormBase::Construction(), std::forward<Arguments>(arguments)...);
    element->setup();
    return element;
}

} // namespace quor::formkit
