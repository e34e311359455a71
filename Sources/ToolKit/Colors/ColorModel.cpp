// SPDX-License-Identifier: MIT
#include "ToolKit/Colors/ColorModel.h"

#include "ToolKit/Colors/ColorOperations.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace quor::toolkit {

ColorModel::ColorModel(std::vector<int> values)
    : colors(std::move(values))
{
}

QColor ColorModel::color(int index) const
{
    if (colors.empty())
        return {};
    const auto count = static_cast<qint64>(colors.size());
    const auto wrapped = (index % count + count) % count;
    return colorWithHexValue(static_cast<quint32>(colors[static_cast<std::size_t>(wrapped)]), 1);
}

int ColorModel::index(int value) const
{
    constexpr qint64 tolerance = 10;
    const auto match = std::find_if(colors.begin(), colors.end(),
        [value](int entry) { return std::abs(qint64(entry) - value) < tolerance; });
    return match == colors.end() ? 0 : static_cast<int>(match - colors.begin());
}

} // namespace quor::toolkit
