// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"

#include <optional>

namespace quor::formkit {

/// What a form's layout distinguishes of the elements.
enum class FormRowKind { separator, title, state, checkBox, radioButton, other };

[[nodiscard]] FormRowKind formRowKind(const FormElement& element);

/// How wide a row's view is.
enum class FormRowExtent {
    separator, ///< nearly to the edges of the form
    full, ///< from margin to margin
    input ///< the share of the form's width that its inputs have
};

/// Where a row stands among its neighbours. A value.
struct FormRowStyle {
    FormRowExtent extent = FormRowExtent::full;
    bool showsLabel = false;
    /// In device-independent pixels, between the bottom of the row before, or the top of the form, and this
    /// row: its label if that stands above the view, else its view.
    int gapAbove = 0;

    friend bool operator==(const FormRowStyle&, const FormRowStyle&) = default;
};

/// Returns the style of a row of `kind` that stands below a row of the kind `previous`, if there is one.
[[nodiscard]] FormRowStyle formRowStyle(
    const Form& form, FormRowKind kind, bool hasLabel, std::optional<FormRowKind> previous);

} // namespace quor::formkit
