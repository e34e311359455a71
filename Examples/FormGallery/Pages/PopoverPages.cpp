// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementButtonSelection.h>
#include <Platform/Lifetime/WhileAlive.h>

#include <array>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

constexpr double popoverWidth = 320;

std::shared_ptr<formkit::Form> makeNewTask()
{
    auto form = makeForm(u"PopoverNewTask"_s, popoverWidth);
    addField(*form, u"PopoverTaskName"_s)->setPlaceholder(text(u"RowsTaskValue"_s));
    addField(*form, u"PopoverTaskProject"_s);
    addCheckBox(*form, u"PopoverStartNow"_s)->setValue(true);
    const auto button = addButton(*form, u"PopoverCreate"_s,
        platform::whileAlive(*form, [form = form.get()](formkit::FormElementButton&) {
            form->trigger(formkit::Form::Event::close);
        }));
    button->setAlignment(formkit::FormTextAlignment::right);
    form->setDefaultButton(button);
    return form;
}

std::shared_ptr<formkit::Form> makePeriod(int tag)
{
    const std::array titleKeys{u"PopoverDay"_s, u"PopoverWeek"_s, u"PopoverMonth"_s};
    auto form = makeForm(titleKeys.at(std::size_t(tag)), popoverWidth);
    addField(*form, u"PopoverTarget"_s, QString::number(tag == 0 ? 8 : tag == 1 ? 40 : 160));
    addCheckBox(*form, u"PopoverWarn"_s);
    return form;
}

} // namespace

std::shared_ptr<formkit::Form> makePopoverFromButton(platform::ColorScheme)
{
    auto form = makeForm(u"PopoverTasksTitle"_s);
    addField(*form, u"PopoverSearch"_s);
    const auto button = addButton(*form, u"PopoverNewTaskButton"_s,
        platform::whileAlive(
            *form, [form = form.get()](formkit::FormElementButton&) { form->presentForm(makeNewTask()); }));
    pressForPicture(*button);
    addHint(*form, u"PopoverHint"_s);
    return form;
}

std::shared_ptr<formkit::Form> makePopoverFromSegment(platform::ColorScheme)
{
    auto form = makeForm(u"PopoverTargetsTitle"_s);
    auto periods = form->viewFactory()->buttonSelection();
    periods->setLabel(text(u"PopoverPeriod"_s));
    periods->setButtons(
        {{0, text(u"PopoverDay"_s)}, {1, text(u"PopoverWeek"_s)}, {2, text(u"PopoverMonth"_s)}});
    periods->setValueChanged(platform::whileAlive(*form, [form = form.get()](formkit::FormElement& element) {
        const auto& selection = dynamic_cast<formkit::FormElementButtonSelection&>(element);
        form->presentForm(makePeriod(selection.selectedTag()));
    }));
    form->addElement(periods);
    pressForPicture(*periods, 1);
    addHint(*form, u"PopoverSegmentHint"_s);
    return form;
}

} // namespace quor::gallery
