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
    setLabel({});
    for (const int minutes : {-30, -10, -5, -1})
        addButton(minutes, QString::number(minutes));
    addDelimiter();
    addButton(5, u"+5"_s);
}

MenuTimerButton& MenuTimerRow::addButton(int minutes, const QString& title)
{
    auto* const button = new MenuTimerButton(minutes, title, this);
    button->setFont(smallButtonFont());
    if (minutes != 0)
        button->setAccessibleName(spokenMinutes(minutes));
    connect(button, &QAbstractButton::clicked, this, [this, button] { buttonClicked(*button); });
    buttons_.push_back(button);
    buttonStackView_->addWidget(button, 0, Qt::AlignVCenter);
    return *button;
}

void MenuTimerRow::addDelimiter()
{
    auto* const delimiter = new MenuTextField(delimiterAlpha, this);
    delimiter->setLine(u"|"_s, menuFont());
    delimiter->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    delimiters_.push_back(delimiter);
    buttonStackView_->addWidget(delimiter, 0, Qt::AlignVCenter);
}

void MenuTimerRow::addSpace()
{
    buttonStackView_->addStretch(1);
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

void MenuTimerRow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    setLabel(labelField_.text());
    for (MenuTextField* const delimiter : delimiters_)
        delimiter->setLine(delimiter->text(), menuFont());
    for (MenuTimerButton* const button : buttons_)
        button->setFont(smallButtonFont());
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
