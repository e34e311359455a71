// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QString>

#include <memory>
#include <vector>

class QWidget;

namespace quor::formkit {

class Form;
class FormDetailElement;

/// One row of a form, as its form and its presenters see it: a view, a label, a value that the user can
/// change.
///
/// Elements are shared between the form and the application. The classes of elements derive from `FormBase`,
/// in the module with the widgets, and are made by the factory of the form. Interfaces of elements derive
/// from this class virtually. Main thread only.
class FormElement {
public:
    virtual ~FormElement() = default;

    /// The form that the element was last added to. Null if it was removed, or if the form has ended.
    [[nodiscard]] virtual Form* form() const = 0;
    /// Called by the form. An application adds elements with `Form::addElement`.
    virtual void setForm(Form* form) = 0;

    /// Unique in this process.
    [[nodiscard]] virtual QString id() const = 0;

    /// A hidden element takes no row. A change makes the form render again. False at first.
    [[nodiscard]] virtual bool isHidden() const = 0;
    virtual void setHidden(bool hidden) = 0;

    /// Whether the user can operate the element. True at first.
    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;

    /// Whether the user has changed the value since the last `Form::resetChanges`. Setting a value from code
    /// does not count as a change.
    [[nodiscard]] virtual bool hasChanges() const = 0;
    virtual void setHasChanges(bool hasChanges) = 0;

    /// The header of the row, shown by the next render. Empty at first.
    [[nodiscard]] virtual QString label() const = 0;
    virtual void setLabel(const QString& label) = 0;

    /// For the application alone. 0 at first.
    [[nodiscard]] virtual int tag() const = 0;
    virtual void setTag(int tag) = 0;

    /// The small control at the end of the row, which may be null. Shown by the next render.
    [[nodiscard]] virtual std::shared_ptr<FormDetailElement> detailElement() const = 0;
    virtual void setDetailElement(std::shared_ptr<FormDetailElement> detailElement) = 0;

    /// The view of the row, owned by the element. Never null.
    [[nodiscard]] virtual QWidget* view() const = 0;

    /// Called after the user has changed the value. It may remove the element from its form, and may release
    /// the element.
    using ValueChanged = platform::Callback<void(FormElement&)>;
    [[nodiscard]] virtual ValueChanged valueChanged() const = 0;
    virtual void setValueChanged(ValueChanged valueChanged) = 0;

    /// The views that the Tab key goes through, in order. They are part of `view`.
    [[nodiscard]] virtual std::vector<QWidget*> focusableViews() const = 0;

    /// Assembles the element. Called once, by the function that makes elements.
    virtual void setup() = 0;

protected:
    FormElement() = default;
    FormElement(const FormElement&) = default;
    FormElement& operator=(const FormElement&) = default;
};

} // namespace quor::formkit
