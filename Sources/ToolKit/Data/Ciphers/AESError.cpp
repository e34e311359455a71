// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AESError.h"

namespace quor::toolkit {

AESError::AESError(Case kind, const QString& message, int status)
    : kind_(kind)
    , message_(message)
    , what_(message.toUtf8())
    , status_(status)
{
}

AESError AESError::KeyError(const QString& message, int status)
{
    return {Case::KeyError, message, status};
}

AESError AESError::IVError(const QString& message, int status)
{
    return {Case::IVError, message, status};
}

AESError AESError::CryptorError(const QString& message, int status)
{
    return {Case::CryptorError, message, status};
}

} // namespace quor::toolkit
