// SPDX-License-Identifier: MIT
#pragma once

// Only for sources of this folder: no public header includes RapidJSON. It adds offsets to null pointers,
// which clang's sanitizer of undefined behaviour reports.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif

#include <rapidjson/error/en.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#ifdef __clang__
#pragma clang attribute pop
#endif
