// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/Segment.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/Controls/SegmentRow.h"
#include "FormKit_macOS/Controls/ToggleAccessible.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <QHelpEvent>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

/// At each side of the title.
constexpr int titleMargin = 10;

/// Has the focus in place of its row.
class SegmentAccessible final : public ToggleAccessible {
public:
    explicit SegmentAccessible(Segment& segment)
        : ToggleAccessible(segment, QAccessible::CheckBox)
    {
    }
    QAccessible::Role role() const override
    {
        const auto* const row = qobject_cast<const SegmentRow*>(button().parentWidget());
        return row && row->isExclusive() ? QAccessible::RadioButton : QAccessible::CheckBox;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = ToggleAccessible::state();
        state.focusable = true;
        state.focused = static_cast<const Segment&>(button()).isCurrent();
        return state;
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* const segment = qobject_cast<Segment*>(object);
    return segment ? new SegmentAccessible(*segment) : nullptr;
}

} // namespace

Segment::Segment(const QString& title, Neighbours neighbours, QWidget* parent)
    : QPushButton(parent)
    , title_(singleLine(title))
    , neighbours_(neighbours)
{
    static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    Q_UNUSED(isInstalled)
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(title_);
    setText(withoutMnemonic(title_));
}

void Segment::setCurrent(bool isCurrent)
{
    isCurrent_ = isCurrent;
    update();
}

QSize Segment::sizeFor(int titleWidth) const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear(); // styles have a least width for buttons with a text
    const int height
        = style()
              ->sizeFromContents(QStyle::CT_PushButton, &option, {titleWidth, fontMetrics().height()}, this)
              .height();
    return {titleWidth + 2 * titleMargin, height};
}

QSize Segment::sizeHint() const
{
    return sizeFor(fontMetrics().horizontalAdvance(title_));
}

QSize Segment::minimumSizeHint() const
{
    const QSize least = sizeFor(fontMetrics().horizontalAdvance(u"…"_s));
    return least.boundedTo(sizeHint());
}

QString Segment::elided() const
{
    constexpr int leastMargin = titleMargin / 2;
    return fontMetrics().elidedText(title_, Qt::ElideRight, width() - 2 * leastMargin);
}

bool Segment::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QPushButton::event(event);
    showWholeText(static_cast<QHelpEvent&>(*event), *this, title_, elided() == title_);
    return true;
}

void Segment::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QPalette colors = option.palette;
    if (isChecked() && isEnabled()) {
        option.palette.setColor(QPalette::Button, colors.color(QPalette::Highlight));
        option.palette.setColor(QPalette::ButtonText, colors.color(QPalette::HighlightedText));
    } else if (isChecked()) {
        // Styles make it darker, which is hardly seen in the dark.
        constexpr double share = 0.12;
        option.state.setFlag(QStyle::State_On, false);
        option.palette.setColor(QPalette::Button,
            toolkit::mixWithColor(
                colors.color(QPalette::Button), colors.color(QPalette::Active, QPalette::ButtonText), share));
    }
    // A frame goes on below the neighbours, where it is cut off together with its round corners.
    constexpr int overlap = 12;
    auto [left, right] = neighbours_;
    if (layoutDirection() == Qt::RightToLeft)
        std::swap(left, right);
    QStyleOptionButton bevel = option;
    bevel.rect.adjust(left ? -overlap : 0, 0, right ? overlap : 0, 0);
    painter.drawControl(QStyle::CE_PushButtonBevel, bevel);
    if (left) {
        constexpr float faint = 0.25F;
        constexpr int inset = 2;
        QColor line = palette().color(QPalette::ButtonText);
        line.setAlphaF(faint);
        painter.fillRect(QRect(0, inset, 1, height() - 2 * inset), line);
    }
    option.text = withoutMnemonic(elided());
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    if (isCurrent_) {
        constexpr int inset = 2;
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.state |= QStyle::State_HasFocus;
        if (isChecked()) // a frame in the colour of the segment would not be seen
            focus.palette.setColor(QPalette::Highlight, palette().color(QPalette::HighlightedText));
        focus.rect = rect().adjusted(inset, inset, -inset, -inset);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

} // namespace quor::formkit
