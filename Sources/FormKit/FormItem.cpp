// SPDX-License-Identifier: MIT
#include "FormKit/FormItem.h"

#include <utility>

namespace quor::formkit {

FormItem::FormItem(QString shownName, QString storedValue, bool enabled, int indentation,
    std::optional<QColor> mark, std::optional<ImageType> picture)
    : name(std::move(shownName))
    , value(std::move(storedValue))
    , isEnabled(enabled)
    , indentationLevel(indentation)
    , color(mark)
    , image(std::move(picture))
{
}

FormItem::FormItem(QString shownName, int number, bool enabled, int indentation, std::optional<QColor> mark,
    std::optional<ImageType> picture)
    : FormItem(std::move(shownName), QString::number(number), enabled, indentation, mark, std::move(picture))
{
}

bool operator==(const FormItem& left, const FormItem& right)
{
    if (left.isSeparator() && right.isSeparator())
        return left.id == right.id;
    return left.value == right.value && left.name == right.name;
}

} // namespace quor::formkit
