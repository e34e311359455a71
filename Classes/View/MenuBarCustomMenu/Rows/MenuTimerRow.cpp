// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuTimerRow.h"

#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"
#include "View/MenuBarCustomMenu/MenuResources.h"

#include <QBoxLayout>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::helper {

namespace {

constexpr int spacing = 5;
constexpr double labelAlpha = 0.5;
constexpr double delimiterAlpha = 0.3;

/// Returns a name for screen readers, which read "-5" as a mere number.
QString spokenMinutes(int minutes)
{
    return menuResources().localizedString(
        minutes < 0 ? u"MenubarMinutesEarlier"_s : u"MenubarMinutesLater"_s, {qint64(std::abs(minutes))});
}

} // namespace

MenuTimerRow::MenuTimerRow(QWidget* parent)
    : QWidget(parent)
    , labelField_(labelAlpha, this)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(spacing);
    column->addWidget(&labelField_);
    buttonStackView_ = new QHBoxLayout;
    buttonStackView_->setSpacing(spacing);
    column->addLayout(buttonStackView_);
}

void MenuTimerRow::addItems(const std::vector<Item>& items)
{
    for (const Item& item : items) {
        if (item.tag == delimiter) {
            delimiters_.push_back(new MenuTextField(delimiterAlpha, this));
            delimiters_.back()->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            buttonStackView_->addWidget(delimiters_.back(), 0, Qt::AlignVCenter);
        } else if (item.tag == spacer) {
            buttonStackView_->addStretch(1);
        } else {
            addButton(item);
        }
    }
    applyFonts();
}

void MenuTimerRow::addButton(const Item& item)
{
    auto* const button = new MenuTimerButton(item.tag, item.title, this);
    if (item.tag != 0)
        button->setAccessibleName(spokenMinutes(item.tag));
    connect(button, &QAbstractButton::clicked, this, [this, button] { buttonClicked(*button); });
    buttons_.push_back(button);
    buttonStackView_->addWidget(button, 0, Qt::AlignVCenter);
}

void MenuTimerRow::setTaskID(const QString& taskID)
{
    if (taskID == taskID_)
        return;
    taskID_ = taskID;
    for (MenuTimerButton* const button : buttons_)
        button->cancelPress();
}

void MenuTimerRow::setLabel(const QString& text)
{
    labelField_.setLine(text, smallMenuFont());
}

void MenuTimerRow::applyFonts()
{
    setLabel(labelField_.text());
    for (MenuTextField* const field : delimiters_)
        field->setLine(u"|"_s, menuFont());
    for (MenuTimerButton* const button : buttons_)
        button->setFont(smallButtonFont());
}

void MenuTimerRow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyFonts();
}

void MenuTimerRow::keyPressEvent(QKeyEvent* event)
{
    const bool isLeft = event->key() == Qt::Key_Left;
    if (isLeft || event->key() == Qt::Key_Right) {
        focusNeighbour(isLeft == (layoutDirection() == Qt::LeftToRight) ? -1 : 1);
        return;
    }
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        yieldFocus();
    QWidget::keyPressEvent(event); // which passes the key on to the table
}

void MenuTimerRow::focusNeighbour(int offset)
{
    const auto focused = std::find(buttons_.begin(), buttons_.end(), focusWidget());
    const auto target = (focused - buttons_.begin()) + offset;
    if (focused != buttons_.end() && target >= 0 && target < std::ssize(buttons_))
        buttons_[std::size_t(target)]->setFocus(Qt::TabFocusReason);
}

void MenuTimerRow::yieldFocus()
{
    for (QWidget* above = parentWidget(); above && !above->isWindow(); above = above->parentWidget()) {
        if (above->focusPolicy() & Qt::TabFocus) {
            above->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

} // namespace quor::helper
