// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/LargerButton.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "ToolKit/Drawing/Text/TextDrawing.h"
#include "ToolKit/Markdown/MarkdownParser.h"
#include "ToolKit_macOS/SyncSpinner.h"

#include <QGraphicsOpacityEffect>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using quor::platform::AttributedString;

namespace quor::formkit {

namespace {

/// Around the title of a button without a frame, for the focus.
constexpr int flatMargin = 2;
/// At each side of the title in a frame, where the style has less.
constexpr int leastMargin = 10;
constexpr int spinnerGap = 6;

QStyleOptionFocusRect focusOption(const QStyleOption& option, const QRect& rect)
{
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = rect;
    return focus;
}

} // namespace

LargerButton::LargerButton(QWidget* parent)
    : QPushButton(parent)
{
    using namespace std::chrono_literals;
    setAutoDefault(true);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    spinnerStart_.setSingleShot(true);
    spinnerStart_.setTimerType(Qt::PreciseTimer);
    spinnerStart_.setInterval(100ms);
    spinnerStart_.callOnTimeout(this, [this] { progressSpinner_->startSpinning(1); });
}

void LargerButton::setTitle(const QString& title, bool parseMarkdown)
{
    title_ = singleLine(title);
    parseMarkdown_ = parseMarkdown;
    updateTitle();
}

void LargerButton::updateTitle()
{
    attributedTitle_.reset();
    if (parseMarkdown_)
        attributedTitle_ = toolkit::MarkdownParser(
            title_, font(), palette().color(isFlat() ? QPalette::WindowText : QPalette::ButtonText))
                               .parse();
    // Also the name for screen readers.
    setText(withoutMnemonic(attributedTitle_ ? attributedTitle_->string() : title_));
    updateGeometry();
    update();
}

void LargerButton::setFlatAlignment(Qt::Alignment alignment)
{
    flatAlignment_ = alignment;
    update();
}

void LargerButton::setShowProgress(bool showProgress)
{
    if (showProgress_ == showProgress)
        return;
    showProgress_ = showProgress;
    if (showProgress && !progressSpinner_) {
        constexpr double opacity = 0.5;
        progressSpinner_ = new toolkit::SyncSpinner(toolkit::SpinnerType::small, this);
        progressSpinner_->setAttribute(Qt::WA_TransparentForMouseEvents);
        auto* const effect = new QGraphicsOpacityEffect(progressSpinner_);
        effect->setOpacity(opacity);
        progressSpinner_->setGraphicsEffect(effect);
    }
    progressSpinner_->setVisible(showProgress);
    if (showProgress) {
        spinnerStart_.start();
    } else {
        spinnerStart_.stop();
        progressSpinner_->stop();
    }
    setEnabled(!showProgress);
    updateGeometry();
    placeSpinner();
    update();
}

int LargerButton::spinnerRoom() const
{
    return showProgress_ ? progressSpinner_->sizeHint().width() + spinnerGap : 0;
}

QSize LargerButton::titleSize() const
{
    if (!attributedTitle_ && !isFlat())
        return {fontMetrics().horizontalAdvance(title_), fontMetrics().height()};
    // Measured as it is drawn, since a fraction of a pixel too little would elide it.
    const QSizeF size = toolkit::textSize(attributedTitle_.value_or(AttributedString(title_)), font(), false);
    return {static_cast<int>(std::ceil(size.width())),
        std::max(static_cast<int>(std::ceil(size.height())), fontMetrics().height())};
}

QSize LargerButton::sizeFor(QSize content) const
{
    if (isFlat())
        return content.grownBy({flatMargin, flatMargin, flatMargin, flatMargin});
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()
        ->sizeFromContents(QStyle::CT_PushButton, &option, content, this)
        .expandedTo({content.width() + 2 * leastMargin, 0});
}

QSize LargerButton::sizeHint() const
{
    return sizeFor(titleSize() + QSize(spinnerRoom(), 0));
}

QSize LargerButton::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    const int ellipsis = fontMetrics().horizontalAdvance(u"…"_s) + spinnerRoom();
    return {std::min(sizeFor({ellipsis, titleSize().height()}).width(), whole.width()), whole.height()};
}

QRect LargerButton::titleRect() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QRect contents = isFlat() ? rect().marginsRemoved({flatMargin, flatMargin, flatMargin, flatMargin})
                              : style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    if (layoutDirection() == Qt::RightToLeft)
        contents.setLeft(contents.left() + spinnerRoom());
    else
        contents.setRight(contents.right() - spinnerRoom());
    return contents;
}

void LargerButton::placeSpinner()
{
    if (!showProgress_)
        return;
    // The title is centred in its rectangle, and the spinner stands beside the title.
    const QRect room = titleRect();
    const int width = std::min(titleSize().width(), room.width());
    const QSize size = progressSpinner_->sizeHint();
    const int half = isFlat() ? width - room.width() / 2 : width / 2;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? room.center().x() - half - spinnerGap - size.width()
                             : room.center().x() + half + spinnerGap;
    progressSpinner_->setGeometry({QPoint(x, room.center().y() - size.height() / 2), size});
}

bool LargerButton::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QPushButton::event(event);
    showWholeText(static_cast<QHelpEvent&>(*event), *this,
        attributedTitle_ ? attributedTitle_->string() : title_, titleSize().width() <= titleRect().width());
    return true;
}

void LargerButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    const auto type = event->type();
    if (parseMarkdown_
        && (type == QEvent::FontChange || type == QEvent::PaletteChange || type == QEvent::EnabledChange))
        updateTitle();
    placeSpinner();
}

void LargerButton::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->isAutoRepeat())
        return; // a key that is held down presses once
    QPushButton::keyPressEvent(event);
}

void LargerButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    placeSpinner();
}

void LargerButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (isFlat()) {
        option.palette.setColor(QPalette::ButtonText, option.palette.color(QPalette::WindowText));
        AttributedString text = attributedTitle_.value_or(AttributedString(title_));
        const bool isPointedAt = option.state.testFlag(QStyle::State_MouseOver) && isEnabled();
        if (isPointedAt)
            text.addAttribute(QTextFormat::TextUnderlineStyle,
                static_cast<int>(QTextCharFormat::SingleUnderline), {0, text.length()});
        paintAttributed(painter, text, flatAlignment_);
        if (hasFocus())
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focusOption(option, rect()));
        return;
    }
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    paintTitle(painter, option);
    if (hasFocus())
        painter.drawPrimitive(QStyle::PE_FrameFocusRect,
            focusOption(option, style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this)));
}

void LargerButton::paintTitle(QPainter& painter, const QStyleOptionButton& option) const
{
    if (attributedTitle_) {
        paintAttributed(painter, *attributedTitle_, Qt::AlignHCenter);
        return;
    }
    QStyleOptionButton label = option;
    label.rect = titleRect();
    label.text = withoutMnemonic(fontMetrics().elidedText(title_, Qt::ElideRight, label.rect.width()));
    style()->drawControl(QStyle::CE_PushButtonLabel, &label, &painter, this);
}

void LargerButton::paintAttributed(
    QPainter& painter, const AttributedString& text, Qt::Alignment alignment) const
{
    const QRectF room = titleRect();
    const auto visual = QStyle::visualAlignment(layoutDirection(), alignment);
    const auto side = visual.testFlag(Qt::AlignLeft) ? Qt::AlignLeft
        : visual.testFlag(Qt::AlignRight)            ? Qt::AlignRight
                                                     : Qt::AlignHCenter;
    const double x = side == Qt::AlignLeft ? room.left()
        : side == Qt::AlignRight           ? room.right()
                                           : room.center().x();
    painter.setFont(font());
    painter.setPen(palette().color(isFlat() ? QPalette::WindowText : QPalette::ButtonText));
    // Where a style draws its texts. Sizes of texts are rounded up, so half of one is not exact enough.
    const double line = QFontMetricsF(font()).height();
    const double height = toolkit::textSize(text, font(), false).height();
    const double top = room.center().y() - (height > toolkit::roundedTextLength(line) ? height : line) / 2;
    toolkit::drawAttributedText(
        painter, text, side, toolkit::TextVerticalAlignment::top, false, std::nullopt, x, top, room.width());
}

} // namespace quor::formkit
