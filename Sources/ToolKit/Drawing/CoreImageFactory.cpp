// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/CoreImageFactory.h"

#include "Platform/Resources/Bundle.h"

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

QString resourceName(CoreImageFactory::ImageName name)
{
    switch (name) {
    case CoreImageFactory::ImageName::syncSpinner:
        return u"SyncSpinner"_s;
    case CoreImageFactory::ImageName::syncSpinnerSmall:
        return u"SyncSpinnerSmall"_s;
    }
    return {};
}

} // namespace

platform::TemplateImage CoreImageFactory::image(ImageName name, bool isTemplate, qreal devicePixelRatio)
{
    static const platform::Bundle resources = platform::Bundle::named(u"Cabinet_ToolKit"_s);
    const QString resource = isTemplate ? resourceName(name) + u"Template"_s : resourceName(name);
    return {resources.image(resource, {}, devicePixelRatio), isTemplate};
}

} // namespace quor::toolkit
