// SPDX-License-Identifier: MIT
#include "FormGallery/Elements/ButtonsRow.h"
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <QApplication>
#include <QPainter>

#include <array>

using namespace Qt::StringLiterals;
using quor::toolkit::BezelType;
using quor::toolkit::ClickType;
using quor::toolkit::RoundedButton;
using quor::toolkit::RoundedButtonType;

namespace quor::gallery {

namespace {

std::shared_ptr<ButtonsRow> addRow(formkit::Form& form, const QString& labelKey)
{
    auto row = formkit::makeElement<ButtonsRow>();
    row->setLabel(text(labelKey));
    form.addElement(row);
    return row;
}

void addTypes(formkit::Form& form)
{
    const auto small = addRow(form, u"RoundedTypes"_s);
    small->addButton(text(u"RoundedTiny"_s)).setType(RoundedButtonType::tiny);
    small->addButton(text(u"RoundedSmall"_s)).setType(RoundedButtonType::small);
    (void)small->addButton(text(u"RoundedNormal"_s));
    const auto large = addRow(form, {});
    large->addButton(text(u"RoundedLarge"_s)).setType(RoundedButtonType::large);
}

void addBezels(formkit::Form& form)
{
    const auto bezels = std::to_array<std::pair<BezelType, QString>>({
        {BezelType::filled, u"RoundedFilled"_s},
        {BezelType::mouseOverFill, u"RoundedMouseOver"_s},
        {BezelType::none, u"RoundedNone"_s},
    });
    for (const auto& [bezel, labelKey] : bezels) {
        const auto row = addRow(form, labelKey);
        for (const auto* titleKey : {u"RoundedOff", u"RoundedOn", u"RoundedDisabled"}) {
            const QString key = QString::fromUtf16(titleKey);
            RoundedButton& button = row->addButton(text(key));
            button.setType(RoundedButtonType::small);
            button.setBezel(bezel);
            if (bezel != BezelType::filled)
                button.setTitleColor(QApplication::palette().color(QPalette::WindowText));
            if (bezel == BezelType::none)
                button.setFilledTitleColor(QApplication::palette().color(QPalette::Link));
            button.setOn(key == u"RoundedOn"_s);
            button.setEnabled(key != u"RoundedDisabled"_s);
        }
    }
}

QString zone(ClickType type)
{
    switch (type) {
    case ClickType::left:
        return text(u"RoundedZoneLeft"_s);
    case ClickType::right:
        return text(u"RoundedZoneRight"_s);
    case ClickType::middle:
        return text(u"RoundedZoneMiddle"_s);
    }
    Q_UNREACHABLE();
}

QImage playImage()
{
    constexpr int side = 12, ratio = 2;
    QImage image(side * ratio, side * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawConvexPolygon(QPolygonF({{1, 0}, {11, 6}, {1, 12}}));
    return image;
}

void addContents(formkit::Form& form)
{
    const auto row = addRow(form, u"RoundedContents"_s);
    RoundedButton& menu = row->addButton(text(u"RoundedTask"_s));
    menu.setLeftImage(playImage());
    for (const int tag : {1, 2, 3})
        menu.addMenuItem(text(u"RoundedEntry%1"_s.arg(tag)), tag);
    RoundedButton& large = row->addButton(text(u"RoundedMarkdown"_s));
    large.setSubtitle(text(u"RoundedSubtitle"_s));
    large.setParseMarkdown(true);
    large.setTitleInsets({24, 18, 24, 18});
    large.setCornerRadius(8);
    large.setHasShadow(true);

    const auto line = addChangesLine(form);
    for (auto* button : {&menu, &large})
        button->setClickedHandler([line, row = row.get()](RoundedButton& clicked, ClickType type, int tag) {
            printChange(*line, *row, u"%1, %2, %3"_s.arg(clicked.shownTitle(), zone(type)).arg(tag));
        });
}

} // namespace

std::shared_ptr<formkit::Form> makeRoundedButtons(platform::ColorScheme)
{
    auto form = makeForm(u"RoundedTitle"_s);
    addTypes(*form);
    addBezels(*form);
    addContents(*form);
    return form;
}

} // namespace quor::gallery
