// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Parts.h"

#include "FormGallery/Page.h"

#include <FormKit_macOS/FormViewFactory.h>

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace quor::gallery {

std::shared_ptr<const formkit::FormViewFactoryProtocoll> viewFactory()
{
    return std::make_shared<formkit::FormViewFactory>();
}

std::shared_ptr<formkit::Form> makeForm(const QString& titleKey, double width, double inputSizeRatio)
{
    return std::make_shared<formkit::Form>(text(titleKey), viewFactory(), width, inputSizeRatio);
}

std::shared_ptr<TextField> addField(formkit::Form& form, const QString& labelKey, const QString& value)
{
    auto field = formkit::makeElement<TextField>();
    field->setLabel(text(labelKey));
    field->setValue(value);
    form.addElement(field);
    return field;
}

std::shared_ptr<formkit::FormElementCheckBox> addCheckBox(formkit::Form& form, const QString& titleKey)
{
    auto checkBox = form.viewFactory()->checkBox();
    checkBox->setTitle(text(titleKey));
    form.addElement(checkBox);
    return checkBox;
}

std::shared_ptr<formkit::FormElementHintText> addHint(formkit::Form& form, const QString& key)
{
    auto hint = form.viewFactory()->hintText();
    hint->setParseMarkdown(true);
    hint->setLinkClicked(platform::whileAlive(form, [&form](const QUrl& url) { form.showLink(url); }));
    hint->setValue(text(key));
    form.addElement(hint);
    return hint;
}

std::shared_ptr<formkit::FormElementButton> addButton(
    formkit::Form& form, const QString& titleKey, formkit::FormElementButton::ButtonClicked clicked)
{
    auto button = form.viewFactory()->button();
    button->setTitle(text(titleKey));
    button->setButtonClickedHandler(std::move(clicked));
    form.addElement(button);
    return button;
}

std::shared_ptr<formkit::FormElementHintText> addChangesLine(formkit::Form& form)
{
    auto line = form.viewFactory()->hintText();
    line->setValue(text(u"ChangesNone"_s));
    form.addElement(line);
    return line;
}

void printChange(
    formkit::FormElementHintText& line, const formkit::FormElement& element, const QString& value)
{
    constexpr qsizetype longest = 200;
    line.setTag(line.tag() + 1);
    line.setValue(resources().localizedString(
        u"ChangesLine"_s, {qint64(line.tag()), element.label(), value.left(longest)}));
}

void pressForPicture(const formkit::FormElement& element, int index)
{
    const auto buttons = element.view()->findChildren<QAbstractButton*>();
    if (index < buttons.size())
        buttons[index]->setObjectName(QLatin1String(pressedForPicture));
}

} // namespace quor::gallery
