// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDetailInfoButton.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Lifetime/WhileAlive.h"

using namespace Qt::StringLiterals;

namespace quor::formkit {

FormDetailInfoButton::FormDetailInfoButton()
{
    button()->setImage(FormMacOSResource::resourceBundle(), u"Info"_s, true);
    QObject::connect(
        button(), &QAbstractButton::clicked, button(), platform::whileAlive(*this, [this](bool) { open(); }));
    updateButton();
}

FormDetailInfoButton::~FormDetailInfoButton()
{
    close();
}

void FormDetailInfoButton::open()
{
    if (infoView_ || infoText_.isEmpty() || !button()->isVisible())
        return;
    infoView_ = new InfoView(infoText_, *button());
    infoView_->open();
}

void FormDetailInfoButton::close()
{
    if (infoView_)
        infoView_->close();
}

void FormDetailInfoButton::setInfoText(const QString& infoText)
{
    infoText_ = infoText;
    updateButton();
}

void FormDetailInfoButton::setEnabled(bool enabled)
{
    FormDetailBase::setEnabled(enabled);
    if (!enabled)
        close();
}

void FormDetailInfoButton::updateButton()
{
    if (!button())
        return;
    const bool hasToolTip = !toolTip().isEmpty();
    button()->setToolTip(hasToolTip ? plainToolTip(toolTip()) : QString());
    button()->setAccessibleName(
        hasToolTip ? toolTip() : FormMacOSResource::localizedString(u"FormDetailInfo"_s));
    button()->setAccessibleDescription(infoText_);
}

} // namespace quor::formkit
