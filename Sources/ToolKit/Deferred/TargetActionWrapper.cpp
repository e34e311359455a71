// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/TargetActionWrapper.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace quor::toolkit {

QString typeDescription(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return QString::fromUtf8(name ? name.get() : type.name());
}

} // namespace quor::toolkit
