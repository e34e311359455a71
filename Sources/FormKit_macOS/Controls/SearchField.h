// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/InputField.h"

namespace quor::formkit {

/// A field for a text to search for, with a magnifying glass before the text and a button that clears it.
/// Main thread only.
class SearchField final : public InputField {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The side of the square that the glass fills.
    [[nodiscard]] int glassSide() const;
    void makeRoomForGlass();
};

} // namespace quor::formkit
