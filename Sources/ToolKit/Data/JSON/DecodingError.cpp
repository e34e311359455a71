// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/DecodingError.h"

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

void prepend(QString& path, const QString& component)
{
    const bool needsDot = !path.isEmpty() && !path.startsWith(u'[');
    path.prepend(needsDot ? component + u'.' : component);
}

} // namespace

QString DecodingError::text() const
{
    return codingPath.isEmpty() ? description : u"%1 (at %2)"_s.arg(description, codingPath);
}

bool DecodingError::set(Kind newKind, const QString& newDescription)
{
    kind = newKind;
    description = newDescription;
    codingPath.clear();
    return false;
}

bool DecodingError::within(const QString& member)
{
    prepend(codingPath, member);
    return false;
}

bool DecodingError::within(qsizetype index)
{
    prepend(codingPath, u"[%1]"_s.arg(index));
    return false;
}

} // namespace quor::toolkit
