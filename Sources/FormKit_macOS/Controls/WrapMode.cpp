// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/WrapMode.h"

namespace quor::formkit {

QTextOption::WrapMode wrapModeFor(QStringView text)
{
    constexpr int longestWord = 1000;
    int length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        if (length > longestWord)
            return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

} // namespace quor::formkit
