// SPDX-License-Identifier: MIT
#pragma once

#include "FormGallery/Elements/TextField.h"
#include "FormGallery/Texts.h"

#include <FormKit/Elements/FormElementButton.h>
#include <FormKit/Elements/FormElementCheckBox.h>
#include <FormKit/Elements/FormElementHintText.h>
#include <FormKit/Form.h>
#include <FormKit/FormViewFactoryProtocoll.h>

#include <utility>

/// What several pages are made of. Keys are those of the gallery's texts.
namespace quor::gallery {

/// The width of the pages, and the share of it that inputs take.
constexpr double pageWidth = 520;
constexpr double inputShare = 0.62;

[[nodiscard]] std::shared_ptr<const formkit::FormViewFactoryProtocoll> viewFactory();

[[nodiscard]] std::shared_ptr<formkit::Form> makeForm(
    const QString& titleKey, double width = pageWidth, double inputSizeRatio = inputShare);

/// Each of these adds an element to the form and returns it.
std::shared_ptr<TextField> addField(formkit::Form& form, const QString& labelKey, const QString& value = {});
std::shared_ptr<formkit::FormElementCheckBox> addCheckBox(formkit::Form& form, const QString& titleKey);
std::shared_ptr<formkit::FormElementHintText> addHint(formkit::Form& form, const QString& key);
std::shared_ptr<formkit::FormElementButton> addButton(
    formkit::Form& form, const QString& titleKey, formkit::FormElementButton::ButtonClicked clicked = {});

/// Adds a line of text for `printChanges`.
std::shared_ptr<formkit::FormElementHintText> addChangesLine(formkit::Form& form);

/// Shows in `line` what the user has changed: the label of `element` and `value`, and how many changes the
/// line has shown.
void printChange(
    formkit::FormElementHintText& line, const formkit::FormElement& element, const QString& value);

/// Prints each `valueChanged` of `element` in `line`, with the text that `describe(*element)` returns.
template <class Element, class Describe>
void printChanges(
    const std::shared_ptr<formkit::FormElementHintText>& line, Element& element, Describe describe)
{
    element.setValueChanged([line, &element, describe = std::move(describe)](
                                formkit::FormElement&) { printChange(*line, element, describe(element)); });
}

/// Has the button of `element` pressed before a picture is made; its `index`-th, if it has several.
void pressForPicture(const formkit::FormElement& element, int index = 0);

} // namespace quor::gallery
