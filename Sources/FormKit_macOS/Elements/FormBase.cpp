// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormBase.h"

#include "FormKit/Form.h"

#include <QUuid>

namespace quor::formkit {

FormBase::FormBase(Construction)
    : id_(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

FormBase::~FormBase() = default;

void FormBase::setForm(Form* form)
{
    form_ = platform::TrackedPointer(form);
}

void FormBase::setHidden(bool hidden)
{
    const auto alive = life(); // the end of the focus may run handlers
    const bool changes = hidden != isHidden_;
    isHidden_ = hidden;
    // A view without a parent would become a window.
    if (QWidget* const shown = view(); hidden || shown->parentWidget())
        shown->setHidden(hidden);
    if (alive.expired())
        return;
    if (Form* const owner = form(); changes && owner)
        owner->setNeedsRender(true);
}

QWidget* FormBase::view() const
{
    emptyViews_.push_back(platform::makeWidget<QWidget>());
    return emptyViews_.back().get();
}

} // namespace quor::formkit
