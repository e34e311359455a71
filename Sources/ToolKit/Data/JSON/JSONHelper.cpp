// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONHelper.h"

namespace quor::toolkit::JSONHelper {

std::optional<QByteArray> dataFromDictionary(const QJsonObject& dictionary)
{
    return JSONEncoder{JSONEncoder::OutputFormatting::prettyPrinted}.encode(dictionary);
}

std::optional<QJsonObject> dictionaryFromData(const QByteArray& data)
{
    return JSONDecoder().decode<QJsonObject>(data);
}

} // namespace quor::toolkit::JSONHelper
