// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

#include <QToolButton>

namespace quor::formkit {

/// The small button of a detail element, with an image, a title or both. It has a frame only under the
/// pointer and while it is on. Return presses it, like Space. Main thread only.
class DetailToolButton final : public QToolButton {
    Q_OBJECT

public:
    explicit DetailToolButton(QWidget* parent = nullptr);

    /// Shows the image of this name in `images`; no image if there is none. A template is a mask that is
    /// shown in the colour of texts.
    void setImage(const platform::Bundle& images, const QString& name, bool isTemplate);

    /// The title is plain text in one line. Without an image and a title, the button is empty.
    void setTitle(const QString& title);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] int imageSide() const;

    platform::Bundle images_{QString()};
    QString imageName_;
    bool isTemplate_ = false;
};

} // namespace quor::formkit
