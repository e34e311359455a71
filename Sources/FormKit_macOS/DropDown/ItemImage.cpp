// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/ItemImage.h"

#include "Platform/Resources/Bundle.h"

#include <QIcon>

namespace quor::formkit {

QPixmap itemImage(const FormItem::ImageType& image, int side, qreal devicePixelRatio)
{
    if (const auto* const library = std::get_if<FormItem::LibraryImage>(&image))
        return QPixmap::fromImage(
            platform::Bundle::main().image(library->name, QSizeF(side, side), devicePixelRatio));
    return QIcon::fromTheme(std::get<FormItem::SystemImage>(image).name)
        .pixmap(QSize(side, side), devicePixelRatio);
}

} // namespace quor::formkit
