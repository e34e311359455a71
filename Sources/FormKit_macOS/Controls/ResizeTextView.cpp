// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ResizeTextView.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/Controls/ScaledFont.h"
#include "FormKit_macOS/Controls/WrapMode.h"
#include "ToolKit/Markdown/MarkdownParser.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QTextFrame>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using quor::platform::AttributedString;

namespace quor::formkit {

ResizeTextView::ResizeTextView(QWidget* parent)
    : QTextBrowser(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    // It is as high as its text, and must not stay scrolled by a focus that came before it grew.
    for (QScrollBar* const bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::rangeChanged, bar, [bar] { bar->setRange(0, 0); });
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) { linkClicked_(url); });
    render();
}

void ResizeTextView::setContent(const QString& text, bool parseMarkdown)
{
    source_ = text;
    parseMarkdown_ = parseMarkdown;
    render();
}

void ResizeTextView::setColor(Color color)
{
    color_ = color;
    render();
}

void ResizeTextView::setFixedColor(const QColor& color)
{
    fixedColor_ = color;
    render();
}

void ResizeTextView::setFontScale(double factor, QFont::Weight weight)
{
    fontFactor_ = factor;
    fontWeight_ = weight;
    render();
}

void ResizeTextView::setTextAlignment(Qt::Alignment alignment)
{
    alignment_ = alignment;
    render();
}

void ResizeTextView::setSelectable(bool selectable)
{
    isSelectable_ = selectable;
    updateInteraction();
}

QFont ResizeTextView::scaledTextFont() const
{
    QFont font = scaledFont(this->font(), fontFactor_);
    if (fontWeight_ != QFont::Normal)
        font.setWeight(fontWeight_);
    return font;
}

QColor ResizeTextView::resolvedColor() const
{
    if (fixedColor_.isValid() && isEnabled())
        return fixedColor_;
    QColor color = palette().color(QPalette::WindowText);
    constexpr double secondaryOpacity = 0.7; // the usual roles for this are too faint to read
    if (color_ == Color::secondaryText)
        color.setAlphaF(static_cast<float>(color.alphaF() * secondaryOpacity));
    return color;
}

void ResizeTextView::render()
{
    const QFont font = scaledTextFont();
    const QColor color = resolvedColor();
    const bool wasLinkFocused = isLinkFocused_;
    const int focused = linksBefore(textCursor().selectionStart());
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(color);
    content_ = parseMarkdown_ ? toolkit::MarkdownParser(source_, font, color).parse()
                              : AttributedString(source_, format);
    if (!isEnabled()) // links, too
        content_.addAttribute(QTextFormat::ForegroundBrush, QBrush(color), {0, content_.length()});
    hasLinks_ = std::any_of(content_.runs().begin(), content_.runs().end(),
        [](const auto& run) { return !run.format.anchorHref().isEmpty(); });
    document()->clear();
    document()->setDefaultFont(font);
    QTextFrameFormat frame = document()->rootFrame()->frameFormat();
    frame.setTopMargin(lineMargin);
    frame.setBottomMargin(lineMargin);
    document()->rootFrame()->setFrameFormat(frame);
    QTextOption option(QStyle::visualAlignment(layoutDirection(), alignment_ & Qt::AlignHorizontal_Mask)
        | Qt::AlignAbsolute);
    option.setWrapMode(wrapModeFor(content_.string()));
    document()->setDefaultTextOption(option);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (const auto& run : content_.runs())
        insert(cursor, run);
    cursor.endEditBlock();
    isLinkFocused_ = false;
    updateInteraction();
    heights_.clear();
    updateGeometry();
    if (wasLinkFocused && hasLinks_)
        focusLink(std::min(focused, linksBefore(document()->characterCount()) - 1));
}

int ResizeTextView::linksBefore(int position) const
{
    int count = 0;
    QString last;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QString link = it.fragment().charFormat().anchorHref();
            if (!link.isEmpty() && link != last && it.fragment().position() < position)
                ++count;
            last = link;
        }
    }
    return count;
}

void ResizeTextView::focusLink(int index)
{
    isLinkFocused_ = true;
    for (int i = 0; i <= index; ++i)
        QTextBrowser::focusNextPrevChild(true);
}

void ResizeTextView::insert(QTextCursor& cursor, const AttributedString::Run& run)
{
    const auto attachment = content_.attachment(run.start);
    if (!attachment) {
        cursor.insertText(content_.string().mid(run.start, run.length), run.format);
        return;
    }
    const QString name = u"attachment:"_s + QString::number(run.start);
    document()->addResource(QTextDocument::ImageResource, QUrl(name), attachment->image);
    QTextImageFormat image;
    image.setName(name);
    image.setWidth(attachment->bounds.width());
    image.setHeight(attachment->bounds.height());
    cursor.insertImage(image);
}

void ResizeTextView::updateInteraction()
{
    Qt::TextInteractionFlags flags = Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard;
    if (isSelectable_)
        flags |= Qt::TextSelectableByMouse;
    setTextInteractionFlags(flags);
    const auto byMouse = isSelectable_ ? Qt::ClickFocus : Qt::NoFocus;
    setFocusPolicy(hasLinks_ ? Qt::FocusPolicy(byMouse | Qt::TabFocus) : byMouse);
    viewport()->setCursor(isSelectable_ ? Qt::IBeamCursor : Qt::ArrowCursor);
}

int ResizeTextView::firstBaseline() const
{
    const QTextBlock first = document()->firstBlock();
    const QRectF place = document()->documentLayout()->blockBoundingRect(first); // lays the block out
    const QTextLayout* const layout = first.layout();
    const double ascent = layout->lineCount() > 0 ? layout->lineAt(0).y() + layout->lineAt(0).ascent()
                                                  : fontMetrics().ascent();
    return static_cast<int>(std::lround(place.top() + ascent));
}

int ResizeTextView::heightForWidth(int width) const
{
    if (const auto known = heights_.find(width); known != heights_.end())
        return known->second;
    constexpr std::size_t keptHeights = 8;
    if (heights_.size() >= keptHeights)
        heights_.clear();
    // Else the view would lay out its text for its present width at once, and that would be measured.
    const QSignalBlocker blocker(document()->documentLayout());
    document()->setTextWidth(std::max(width, 1));
    const int height = static_cast<int>(std::ceil(document()->size().height()));
    document()->setTextWidth(viewport()->width());
    heights_[width] = height;
    return height;
}

QSize ResizeTextView::sizeHint() const
{
    constexpr int characters = 60;
    const int longest = characters * fontMetrics().averageCharWidth();
    if (content_.length() / 3 > characters)
        return {longest, heightForWidth(longest)};
    const QSignalBlocker blocker(document()->documentLayout());
    document()->setTextWidth(-1);
    const int width = std::min(static_cast<int>(std::ceil(document()->idealWidth())), longest);
    document()->setTextWidth(viewport()->width());
    return {width, heightForWidth(width)};
}

QSize ResizeTextView::minimumSizeHint() const
{
    constexpr int characters = 4;
    return {characters * fontMetrics().averageCharWidth(), fontMetrics().height() + 2 * lineMargin};
}

void ResizeTextView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
    case QEvent::LayoutDirectionChange:
        render();
        break;
    default:
        break;
    }
}

void ResizeTextView::focusInEvent(QFocusEvent* event)
{
    QTextBrowser::focusInEvent(event);
    const bool isNext = event->reason() == Qt::TabFocusReason;
    if (!isNext && event->reason() != Qt::BacktabFocusReason)
        return;
    clearSelection(); // one by the mouse is no place to begin at
    focusNextPrevChild(isNext);
}

void ResizeTextView::clearSelection()
{
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

bool ResizeTextView::focusNextPrevChild(bool next)
{
    // Without a link it would go to the next widget, which must be left to the key that does it.
    if (!hasLinks_)
        return QTextBrowser::focusNextPrevChild(next);
    if (!next && isLinkFocused_ && textCursor().selectionStart() == 0) {
        // Qt would find the link at the beginning of the text again and again.
        clearSelection();
        return QTextEdit::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call): see above
    }
    isLinkFocused_ = true; // until the focus goes to another widget
    const bool moved = QTextBrowser::focusNextPrevChild(next);
    isLinkFocused_ = moved && hasFocus() && textCursor().hasSelection();
    for (QWidget* parent = parentWidget(); isLinkFocused_ && parent; parent = parent->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(parent); area && area->widget()) {
            const QPoint place = mapTo(area->widget(), cursorRect().center());
            area->ensureVisible(place.x(), place.y());
        }
    }
    return moved;
}

void ResizeTextView::focusOutEvent(QFocusEvent* event)
{
    const bool comesBack
        = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    isLinkFocused_ = isLinkFocused_ && comesBack;
    QTextBrowser::focusOutEvent(event);
}

QUrl ResizeTextView::focusedLink() const
{
    // A cursor has the format of the character before it, and the link was perhaps selected from its end.
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart() + 1);
    return {cursor.charFormat().anchorHref()};
}

void ResizeTextView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (opens && isLinkFocused_ && event->isAutoRepeat())
        return; // a key that is held down opens once
    if (opens && isLinkFocused_)
        linkClicked_(focusedLink());
    else if (isSelectable_ && event->matches(QKeySequence::Copy))
        copy();
    else if (isSelectable_ && event->matches(QKeySequence::SelectAll))
        selectAll();
    else
        event->ignore(); // keys that scroll are for the container
}

bool ResizeTextView::pressesText(const QMouseEvent& event) const
{
    return !isSelectable_ && event.button() == Qt::LeftButton && anchorAt(event.pos()).isEmpty();
}

void ResizeTextView::mousePressEvent(QMouseEvent* event)
{
    isLinkFocused_ = false;
    isTextPressed_ = pressesText(*event);
    QTextBrowser::mousePressEvent(event);
}

void ResizeTextView::mouseDoubleClickEvent(QMouseEvent* event)
{
    isTextPressed_ = pressesText(*event);
    QTextBrowser::mouseDoubleClickEvent(event);
}

void ResizeTextView::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicks = isTextPressed_ && pressesText(*event) && viewport()->rect().contains(event->pos());
    isTextPressed_ = false;
    if (!clicks)
        QTextBrowser::mouseReleaseEvent(event);
    else
        Q_EMIT clicked();
}

void ResizeTextView::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace quor::formkit
