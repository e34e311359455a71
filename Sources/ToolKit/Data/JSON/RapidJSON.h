// SPDX-License-Identifier: MIT
#pragma once

// Private to this folder: no public header names RapidJSON. Its stacks start out as null pointers that
// it adds offsets to, which clang's undefined-behaviour sanitizer stops at.
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
