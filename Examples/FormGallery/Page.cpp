// SPDX-License-Identifier: MIT
#include "FormGallery/Page.h"

#include "FormGallery/Pages/Pages.h"

using namespace Qt::StringLiterals;

namespace quor::gallery {

const std::vector<Page>& pages()
{
    static const std::vector<Page> list{
        {u"rows-left"_s, u"PageRowsLeft"_s, makeLeftRows},
        {u"rows-top"_s, u"PageRowsTop"_s, makeTopRows},
        {u"sticky"_s, u"PageSticky"_s, makeSticky, true},
        {u"notices"_s, u"PageNotices"_s, makeNotices},
        {u"disabled"_s, u"PageDisabled"_s, makeDisabled},
        {u"details"_s, u"PageDetails"_s, makeDetails},
        {u"detail-buttons"_s, u"PageDetailButtons"_s, makeDetailButtons},
        {u"dates"_s, u"PageDates"_s, makeDates},
        {u"navigation"_s, u"PageNavigation"_s, makeNavigation},
        {u"popover-button"_s, u"PagePopoverButton"_s, makePopoverFromButton},
        {u"popover-segment"_s, u"PagePopoverSegment"_s, makePopoverFromSegment},
        {u"text-inputs"_s, u"PageTextInputs"_s, makeTextInputs},
        {u"multiline-text"_s, u"PageMultilineText"_s, makeMultilineText},
        {u"number-inputs"_s, u"PageNumberInputs"_s, makeNumberInputs},
        {u"duration-inputs"_s, u"PageDurationInputs"_s, makeDurationInputs},
        {u"colors"_s, u"PageColors"_s, makeColors},
        {u"hot-keys"_s, u"PageHotKeys"_s, makeHotKeys},
        {u"rounded-buttons"_s, u"PageRoundedButtons"_s, makeRoundedButtons},
        {u"many-rows"_s, u"PageManyRows"_s, makeManyRows},
    };
    return list;
}

} // namespace quor::gallery
