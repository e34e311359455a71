// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/FirstBaseline.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTextEdit>

#include <cmath>

namespace quor::formkit {

namespace {

int baselineIn(const QRect& area, const QWidget& view)
{
    return area.y() + centredBaseline(view.font(), area.height());
}

int labelBaseline(const QLabel& label)
{
    const int margin = label.margin();
    const QRect area = label.contentsRect().adjusted(margin, margin, -margin, -margin);
    if (label.alignment().testFlag(Qt::AlignVCenter) && !label.wordWrap() && !label.text().contains(u'\n'))
        return baselineIn(area, label);
    const int hint
        = label.hasHeightForWidth() ? label.heightForWidth(label.width()) : label.sizeHint().height();
    const QSize text(area.width(), hint - (label.height() - area.height()));
    return QStyle::alignedRect(Qt::LeftToRight, label.alignment(), text, area).y()
        + label.fontMetrics().ascent();
}

int lineEditBaseline(const QLineEdit& edit)
{
    QStyleOptionFrame option;
    option.initFrom(&edit);
    option.lineWidth
        = edit.hasFrame() ? edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit) : 0;
    option.features = QStyleOptionFrame::None;
    const QRect contents = edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
    const QFontMetrics metrics = edit.fontMetrics();
    const QRect area = contents.marginsRemoved(edit.textMargins());
    // The half pixel goes to the top here, other than for buttons and labels.
    return area.y() + (area.height() - metrics.height() + 1) / 2 + metrics.ascent();
}

int buttonBaseline(const QAbstractButton& button)
{
    const auto textArea = [&](QStyle::SubElement element) {
        QStyleOptionButton option;
        option.initFrom(&button);
        return button.style()->subElementRect(element, &option, &button);
    };
    if (qobject_cast<const QCheckBox*>(&button))
        return baselineIn(textArea(QStyle::SE_CheckBoxContents), button);
    if (qobject_cast<const QRadioButton*>(&button))
        return baselineIn(textArea(QStyle::SE_RadioButtonContents), button);
    if (qobject_cast<const QPushButton*>(&button))
        return baselineIn(textArea(QStyle::SE_PushButtonContents), button);
    return baselineIn(button.rect(), button);
}

int comboBoxBaseline(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    option.frame = box.hasFrame();
    return baselineIn(
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box), box);
}

template <class TextEdit>
int textEditBaseline(const TextEdit& edit)
{
    return edit.viewport()->y() + int(edit.document()->documentMargin()) + edit.fontMetrics().ascent();
}

std::optional<int> layoutBaseline(const QLayout& layout)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* const item = layout.itemAt(i);
        if (item->isEmpty())
            continue;
        if (QWidget* const widget = item->widget()) {
            if (const auto baseline = firstBaseline(*widget))
                return widget->y() + *baseline;
        } else if (const QLayout* const inner = item->layout()) {
            if (const auto baseline = layoutBaseline(*inner))
                return baseline;
        }
    }
    return std::nullopt;
}

std::optional<int> containerBaseline(const QWidget& view)
{
    QLayout* const layout = view.layout();
    if (!layout)
        return std::nullopt;
    // A hidden view, or one that was resized just now, has not placed its children yet.
    layout->setGeometry(view.testAttribute(Qt::WA_LayoutOnEntireRect) ? view.rect() : view.contentsRect());
    return layoutBaseline(*layout);
}

} // namespace

int centredBaseline(const QFont& font, int height)
{
    // Not from the rounded numbers of QFontMetrics, whose sum can be off by a pixel.
    const QFontMetricsF metrics(font);
    return int(std::lround((height - metrics.height()) / 2 + metrics.ascent()));
}

std::optional<int> firstBaseline(QWidget& view)
{
    if (const auto* provider = dynamic_cast<const FirstBaselineProvider*>(&view))
        return provider->firstBaseline();
    if (const auto* edit = qobject_cast<const QLineEdit*>(&view))
        return lineEditBaseline(*edit);
    if (const auto* label = qobject_cast<const QLabel*>(&view))
        return labelBaseline(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&view))
        return button->text().isEmpty() ? std::nullopt : std::optional(buttonBaseline(*button));
    if (const auto* box = qobject_cast<const QComboBox*>(&view))
        return comboBoxBaseline(*box);
    if (qobject_cast<const QAbstractSpinBox*>(&view))
        return baselineIn(view.rect(), view);
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&view))
        return textEditBaseline(*edit);
    if (const auto* edit = qobject_cast<const QTextEdit*>(&view))
        return textEditBaseline(*edit);
    return containerBaseline(view);
}

} // namespace quor::formkit
