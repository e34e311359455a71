// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <QColor>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

class QUrl;

namespace quor::platform {
class ViewController;
}

namespace quor::formkit {

class FormElementButton;
class FormViewFactoryProtocoll;

/// What a form asks of those that show it.
enum class FormEvent {
    internalNeedsRender = 0, ///< the form has changed and must be rendered
    close = 1, ///< the form asks to be closed
    replaceForm = 2, ///< another form takes the place of this one; payload: std::shared_ptr<Form>
    showForm = 3, ///< a further form is pushed onto this one; payload: std::shared_ptr<Form>
    /// A further form or controller is shown in a popover; payload: std::shared_ptr<Form> or
    /// std::shared_ptr<platform::ViewController>.
    presentForm = 4,
    showLink = 5 ///< a link was clicked; payload: QUrl
};

/// A form: a titled list of elements with notices above it, and two buttons. It has no view; the
/// controller that shows it listens to its events.
///
/// An application makes a form, adds elements and gives it to a controller, all as `std::shared_ptr`; or it
/// derives a class that does this in its constructor. Main thread only, except for `trigger`.
class Form : public toolkit::EventProtocol<Form, FormEvent> {
public:
    using Element = std::shared_ptr<FormElement>;
    using Elements = std::vector<Element>;

    enum class Layout {
        leftHeaders = 0, ///< the labels stand left of the inputs
        topHeaders = 1 ///< the labels stand above the inputs
    };

    /// What a validation by the application came to.
    struct Success {
        friend bool operator==(const Success&, const Success&) = default;
    };
    struct Error {
        QString text;
        friend bool operator==(const Error&, const Error&) = default;
    };
    using Validation = std::variant<Error, Success>;

    /// `width` is the least width of the form's view, in device-independent pixels. `inputSizeRatio` is the
    /// share of that width which inputs take in the layout `leftHeaders`; from 1.0 on, rows have no label and
    /// take the whole width.
    Form(std::optional<QString> title, std::shared_ptr<const FormViewFactoryProtocoll> viewFactory,
        double width, double inputSizeRatio);
    virtual ~Form();

    [[nodiscard]] const std::optional<QString>& title() const { return title_; }
    void setTitle(std::optional<QString> title);
    /// Shown below the title, and not without one.
    [[nodiscard]] const std::optional<QString>& subtitle() const { return subtitle_; }
    void setSubtitle(std::optional<QString> subtitle);

    /// Whether the user can operate the form. True at first. Disabling keeps in mind which elements are
    /// enabled, and the next render disables all of them. Enabling restores what was kept, unless elements
    /// have been added or removed in the meantime.
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    /// Whether the form has changed since the last render. True at first. Setting it to true asks for a
    /// render.
    [[nodiscard]] bool needsRender() const { return needsRender_; }
    void setNeedsRender(bool needsRender);

    [[nodiscard]] double width() const { return width_; }
    [[nodiscard]] double inputSizeRatio() const { return inputSizeRatio_; }
    [[nodiscard]] const std::shared_ptr<const FormViewFactoryProtocoll>& viewFactory() const
    {
        return viewFactory_;
    }

    [[nodiscard]] virtual Layout layout() const { return Layout::leftHeaders; }
    /// Whether the user has changed the value of one of `elements`.
    [[nodiscard]] virtual bool hasChanges() const;

    /// Called before the form is shown, and whenever it is brought up to date. A derived class fills or
    /// updates its elements here.
    virtual void prepareForDisplay() { }

    /// Shown above `elements`.
    [[nodiscard]] const Elements& noticeElements() const { return noticeElements_; }
    /// Adds a text with Markdown marks. A click on a link in it triggers `showLink`.
    virtual void addNotice(const QString& text, const QColor& color);
    /// Adds a state element with a button, which runs `action`, or triggers `close` if that is empty.
    virtual void addStateNotice(
        const QString& title, const QString& message, platform::Callback<void()> action = {});
    virtual void removeAllNotices();

    [[nodiscard]] const Elements& elements() const { return elements_; }
    /// Only stores the list. It does not tell the elements their form, and asks for no render.
    void setElements(Elements elements);
    virtual void addElement(Element element);
    /// Inserts after `other`. Ignored if `other` is not in the form.
    virtual void insertElement(Element element, const FormElement& other);
    /// `index` is between 0 and the number of elements; a larger one means that number.
    virtual void insertElement(Element element, std::size_t index);
    /// Removes the element wherever it stands in the list. The application may still use it.
    virtual void removeElement(FormElement& element);
    /// Clears the handler of the element.
    virtual void removeValueChanged(FormElement& element);

    /// Sets `hasChanges` of all `elements` to false.
    virtual void resetChanges();

    /// The button that the Return key presses. Null at first. The setter only stores it.
    [[nodiscard]] const Element& defaultButton() const { return defaultButton_; }
    void setDefaultButton(Element button) { defaultButton_ = std::move(button); }
    /// Triggers `close`. Not part of `elements`; an application that wants it as a row adds it.
    [[nodiscard]] const std::shared_ptr<FormElementButton>& cancelButton() const { return cancelButton_; }

    /// Each of these triggers the event of its name with a payload of exactly the type that presenters
    /// expect; they ignore a pointer to a derived class. Any thread.
    void replaceForm(std::shared_ptr<Form> form) { trigger(Event::replaceForm, std::move(form)); }
    void showForm(std::shared_ptr<Form> form) { trigger(Event::showForm, std::move(form)); }
    void presentForm(std::shared_ptr<Form> form) { trigger(Event::presentForm, std::move(form)); }
    /// Triggers `presentForm`.
    void presentController(std::shared_ptr<platform::ViewController> controller)
    {
        trigger(Event::presentForm, std::move(controller));
    }
    void showLink(const QUrl& url);

private:
    void append(Element notice);
    /// Returns whether this form still exists: a target of its event may have ended it.
    [[nodiscard]] bool changeElements(FormElement& element, Form* form);

    std::optional<QString> title_;
    std::optional<QString> subtitle_;
    bool enabled_ = true;
    bool needsRender_ = true;
    double width_;
    double inputSizeRatio_;
    Elements noticeElements_;
    Elements elements_;
    std::vector<bool> elementEnabledStates_; ///< of `elements_`, while the form is disabled
    Element defaultButton_;
    std::shared_ptr<FormElementButton> cancelButton_;
    std::shared_ptr<const FormViewFactoryProtocoll> viewFactory_;
};

} // namespace quor::formkit
