// SPDX-License-Identifier: MIT
#include "FormKit/Form.h"

#include "FormKit/Elements/FormElementButton.h"
#include "FormKit/Elements/FormElementHintText.h"
#include "FormKit/Elements/FormElementState.h"
#include "FormKit/FormDetailElement.h"
#include "FormKit/FormResource.h"
#include "FormKit/FormViewFactoryProtocoll.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QUrl>

#include <algorithm>
#include <utility>

namespace quor::formkit {

Form::Form(std::optional<QString> title, std::shared_ptr<const FormViewFactoryProtocoll> viewFactory,
    double width, double inputSizeRatio)
    : title_(std::move(title))
    , width_(width)
    , inputSizeRatio_(inputSizeRatio)
    , viewFactory_(std::move(viewFactory))
{
    cancelButton_ = viewFactory_->button();
    cancelButton_->setTitle(FormResource::localizedString(QStringLiteral("FormCancelButtonTitle")));
    cancelButton_->setButtonClickedHandler(
        platform::whileAlive(*this, [this](FormElementButton&) { trigger(Event::close); }));
}

Form::~Form() = default;

void Form::setTitle(std::optional<QString> title)
{
    title_ = std::move(title);
    setNeedsRender(true);
}

void Form::setSubtitle(std::optional<QString> subtitle)
{
    subtitle_ = std::move(subtitle);
    setNeedsRender(true);
}

void Form::setEnabled(bool enabled)
{
    enabled_ = enabled;
    if (!enabled) {
        elementEnabledStates_.clear();
        for (const auto& element : elements_)
            elementEnabledStates_.push_back(element->enabled());
    } else {
        const auto states = std::exchange(elementEnabledStates_, {});
        const Elements elements = elements_;
        const auto alive = life(); // controls may run handlers when they are enabled
        if (states.size() == elements.size()) {
            for (std::size_t i = 0; i < states.size(); ++i) {
                elements[i]->setEnabled(states[i]);
                if (const auto detail = elements[i]->detailElement())
                    detail->setEnabled(states[i]);
            }
        }
        if (alive.expired())
            return;
    }
    setNeedsRender(true);
}

void Form::setNeedsRender(bool needsRender)
{
    needsRender_ = needsRender;
    if (needsRender)
        trigger(Event::internalNeedsRender);
}

bool Form::hasChanges() const
{
    return std::any_of(
        elements_.begin(), elements_.end(), [](const Element& element) { return element->hasChanges(); });
}

void Form::resetChanges()
{
    for (const auto& element : elements_)
        element->setHasChanges(false);
}

void Form::addNotice(const QString& text, const QColor& color)
{
    const auto notice = viewFactory_->hintText();
    notice->setParseMarkdown(true);
    notice->setTextColor(color);
    notice->setValue(text);
    notice->setLinkClicked(
        platform::whileAlive(*this, [this](const QUrl& link) { trigger(Event::showLink, link); }));
    append(notice);
}

void Form::addStateNotice(const QString& title, const QString& message, platform::Callback<void()> action)
{
    const auto notice = viewFactory_->state();
    notice->setTitle(title);
    notice->setMessage(message);
    notice->setButtonTitle(FormResource::localizedString(QStringLiteral("FormCloseButtonTitle")));
    if (!action)
        action = platform::whileAlive(*this, [this] { trigger(Event::close); });
    notice->setAction(std::move(action));
    append(notice);
}

void Form::append(Element notice)
{
    noticeElements_.push_back(std::move(notice));
    setNeedsRender(true);
}

void Form::removeAllNotices()
{
    noticeElements_.clear();
    setNeedsRender(true);
}

void Form::setElements(Elements elements)
{
    elements_ = std::move(elements);
    std::erase(elements_, nullptr);
    elementEnabledStates_.clear();
}

void Form::addElement(Element element)
{
    insertElement(std::move(element), elements_.size());
}

void Form::insertElement(Element element, const FormElement& other)
{
    const auto found = std::find_if(
        elements_.begin(), elements_.end(), [&](const Element& present) { return present.get() == &other; });
    if (found != elements_.end())
        insertElement(std::move(element), std::size_t(found - elements_.begin()) + 1);
}

void Form::insertElement(Element element, std::size_t index)
{
    if (!element || !changeElements(*element, this))
        return;
    elements_.insert(
        elements_.begin() + std::ptrdiff_t(std::min(index, elements_.size())), std::move(element));
    elementEnabledStates_.clear();
}

void Form::removeElement(FormElement& element)
{
    const auto isElement = [&](const Element& present) { return present.get() == &element; };
    // The list may hold the last reference to the element.
    const auto found = std::find_if(elements_.begin(), elements_.end(), isElement);
    const Element kept = found == elements_.end() ? nullptr : *found;
    if (!changeElements(element, nullptr))
        return;
    std::erase_if(elements_, isElement);
    elementEnabledStates_.clear();
}

bool Form::changeElements(FormElement& element, Form* form)
{
    const auto alive = life();
    element.setForm(form);
    setNeedsRender(true);
    return !alive.expired();
}

void Form::removeValueChanged(FormElement& element)
{
    element.setValueChanged({});
}

void Form::showLink(const QUrl& url)
{
    trigger(Event::showLink, url);
}

} // namespace quor::formkit
