// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONEncoder.h"

#include "ToolKit/Data/JSON/RapidJSON.h"

namespace quor::toolkit {

QByteArray JSONEncoder::prettyPrinted(const QByteArray& json)
{
    rapidjson::StringStream text(json.constData());
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag>(
        text, writer);
    return {buffer.GetString(), static_cast<qsizetype>(buffer.GetSize())};
}

} // namespace quor::toolkit
