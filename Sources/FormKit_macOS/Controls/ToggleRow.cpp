// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ToggleRow.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Controls/ToggleAccessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QEvent>
#include <QRadioButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

/// At the ends of the text, and above and below it, for the focus.
constexpr int focusMargin = 2;
constexpr int textMargin = focusMargin - lineMargin;

/// Hides a text without links, since it is already the name of the box.
class ToggleRowAccessible final : public QAccessibleWidget {
public:
    explicit ToggleRowAccessible(ToggleRow& row)
        : QAccessibleWidget(&row, QAccessible::Grouping)
    {
    }
    int childCount() const override { return row().text().hasLinks() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        return QAccessible::queryAccessibleInterface(
            index == 0 ? static_cast<QWidget*>(&row().box()) : &row().text());
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        if (!child)
            return -1;
        if (child->object() == &row().box())
            return 0;
        return child->object() == &row().text() && row().text().hasLinks() ? 1 : -1;
    }

private:
    [[nodiscard]] ToggleRow& row() const { return static_cast<ToggleRow&>(*widget()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    if (auto* const row = qobject_cast<ToggleRow*>(object))
        return new ToggleRowAccessible(*row);
    auto* const box = qobject_cast<QAbstractButton*>(object);
    if (!box || !qobject_cast<ToggleRow*>(box->parentWidget()))
        return nullptr;
    const bool isRadio = qobject_cast<QRadioButton*>(box) != nullptr;
    return new ToggleAccessible(*box, isRadio ? QAccessible::RadioButton : QAccessible::CheckBox);
}

} // namespace

ToggleRow::ToggleRow(QAbstractButton* box)
    : box_(box)
{
    static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    Q_UNUSED(isInstalled)
    box_->setParent(this);
    box_->installEventFilter(this);
    text_ = new ResizeTextView(this); // after the box, also for the Tab key
    text_->setSelectable(false);
    connect(text_, &ResizeTextView::clicked, box_, [box] {
        box->setFocus(Qt::MouseFocusReason);
        box->click();
    });
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ToggleRow::setText(const QString& text, bool parseMarkdown)
{
    text_->setContent(text, parseMarkdown);
    box_->setAccessibleName(text_->shownText());
    updateGeometry();
    place();
}

QSize ToggleRow::boxSize() const
{
    return box_->sizeHint();
}

int ToggleRow::textLeft() const
{
    return boxSize().width() + std::max(style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing), focusMargin);
}

int ToggleRow::textTop() const
{
    return std::max((boxSize().height() - fontMetrics().height() + 1) / 2 - lineMargin, textMargin);
}

int ToggleRow::firstBaseline() const
{
    return textTop() + text_->firstBaseline();
}

int ToggleRow::heightForWidth(int width) const
{
    const int text = text_->heightForWidth(std::max(width - textLeft() - focusMargin, 1));
    return std::max(boxSize().height(), textTop() + text + textMargin);
}

QSize ToggleRow::sizeHint() const
{
    const int width = textLeft() + text_->sizeHint().width() + focusMargin;
    return {width, heightForWidth(width)};
}

QSize ToggleRow::minimumSizeHint() const
{
    return {textLeft() + text_->minimumSizeHint().width() + focusMargin,
        std::max(boxSize().height(), textTop() + text_->minimumSizeHint().height() + textMargin)};
}

void ToggleRow::place()
{
    const QSize box = boxSize();
    const int boxTop = std::max(textTop() + lineMargin + (fontMetrics().height() - box.height()) / 2, 0);
    const QRect text(textLeft(), textTop(), std::max(width() - focusMargin - textLeft(), 0),
        std::max(height() - textMargin - textTop(), 1));
    box_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), QRect(QPoint(0, boxTop), box)));
    text_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), text));
}

bool ToggleRow::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        updateGeometry();
        place();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool ToggleRow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

void ToggleRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    place();
}

void ToggleRow::paintEvent(QPaintEvent*)
{
    if (!box_->hasFocus() || text_->shownText().isEmpty())
        return;
    // Around the text, as around that of a check box with a text of its own.
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(box_);
    const QSize text(std::min(text_->sizeHint().width(), text_->width()), text_->height());
    option.rect
        = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignTop, text, text_->geometry())
              .adjusted(-focusMargin, -textMargin, focusMargin, textMargin);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

} // namespace quor::formkit
