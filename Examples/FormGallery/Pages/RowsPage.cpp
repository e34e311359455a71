// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit/Elements/FormElementButtonSelection.h>
#include <FormKit/Elements/FormElementSeparator.h>
#include <FormKit_macOS/Elements/FormRadioButton.h>
#include <FormKit_macOS/Elements/FormTitle.h>

#include <array>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

class TopHeadersForm final : public formkit::Form {
public:
    using Form::Form;
    [[nodiscard]] Layout layout() const override { return Layout::topHeaders; }
};

void addReminders(formkit::Form& form)
{
    auto heading = formkit::makeElement<formkit::FormTitle>(formkit::FormTitle::TitleType::title, false);
    heading->setText(text(u"RowsReminders"_s));
    form.addElement(std::move(heading));
    const std::array keys{u"RowsRemindAtStart"_s, u"RowsRemindAtEnd"_s, u"RowsRemindNever"_s};
    for (const QString& key : keys) {
        auto choice = formkit::makeElement<formkit::FormRadioButton>();
        choice->setTitle(text(key));
        if (key == keys.front()) {
            choice->setLabel(text(u"RowsRemind"_s));
            choice->setOn(true);
        }
        form.addElement(std::move(choice));
    }
}

void addRows(formkit::Form& form)
{
    form.setSubtitle(text(u"RowsSubtitle"_s));
    addField(form, u"RowsTask"_s, text(u"RowsTaskValue"_s));
    addField(form, u"RowsNotes"_s)->setPlaceholder(text(u"RowsNotesPlaceholder"_s));
    auto rounding = form.viewFactory()->buttonSelection();
    rounding->setLabel(text(u"RowsRounding"_s));
    rounding->setButtons(
        {{0, text(u"RowsRoundingNone"_s)}, {5, text(u"RowsRounding5"_s)}, {15, text(u"RowsRounding15"_s)}});
    rounding->setSelectedTag(5);
    form.addElement(std::move(rounding));
    addCheckBox(form, u"RowsBillable"_s)->setValue(true);
    addHint(form, u"RowsHint"_s);
    form.addElement(form.viewFactory()->separator());
    addReminders(form);
    form.addElement(form.viewFactory()->separator());
    addButton(form, u"RowsDelete"_s)->setHasDestructiveAction(true);
}

template <class FormType>
std::shared_ptr<formkit::Form> makeRows()
{
    auto form = std::make_shared<FormType>(text(u"RowsTitle"_s), viewFactory(), pageWidth, inputShare);
    addRows(*form);
    return form;
}

} // namespace

std::shared_ptr<formkit::Form> makeLeftRows(platform::ColorScheme)
{
    return makeRows<formkit::Form>();
}

std::shared_ptr<formkit::Form> makeTopRows(platform::ColorScheme)
{
    return makeRows<TopHeadersForm>();
}

std::shared_ptr<formkit::Form> makeDisabled(platform::ColorScheme)
{
    auto form = makeRows<formkit::Form>();
    form->setEnabled(false);
    return form;
}

} // namespace quor::gallery
