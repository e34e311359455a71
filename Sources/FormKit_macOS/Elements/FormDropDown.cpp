// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDropDown.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Views/KeyboardAccess.h"

#include <algorithm>
#include <utility>

namespace quor::formkit {

FormDropDown::~FormDropDown()
{
    close();
}

void FormDropDown::setup()
{
    QObject::connect(button_.get(), &QAbstractButton::clicked, button_.get(),
        platform::whileAlive(*this, [this] { show(*button_); }));
    QObject::connect(button_.get(), &PopUpButton::typed, button_.get(),
        platform::whileAlive(*this, [this](const QString& text) {
            show(*button_);
            if (panel_ && panel_->dropdownView().searchField())
                panel_->dropdownView().searchField()->insert(text);
        }));
}

std::optional<FormItem> FormDropDown::item(int index) const
{
    const bool isThere = index >= 0 && std::size_t(index) < items().size();
    return isThere ? std::optional(items()[std::size_t(index)]) : std::nullopt;
}

std::optional<int> FormDropDown::index(const FormItem& item) const
{
    const auto found = std::find(items().begin(), items().end(), item);
    return found == items().end() ? std::nullopt : std::optional(int(found - items().begin()));
}

void FormDropDown::add(FormItem item)
{
    items_.append(std::move(item));
    itemsDidChange();
}

void FormDropDown::insert(FormItem item)
{
    items_.prepend(std::move(item));
    itemsDidChange();
}

void FormDropDown::removeAllItems()
{
    items_.clear();
    itemsDidChange();
}

void FormDropDown::itemsDidChange()
{
    if (button_)
        button_->setTakesText(DropdownView::showsSearch(items().size()));
    setSelectedIndex(selectedIndex_); // another item may have this index now
}

void FormDropDown::setSelectedIndex(std::optional<int> index)
{
    selectedIndex_ = index;
    if (button_)
        button_->setTitle(selectedName().value_or(QString()));
}

std::optional<FormItem> FormDropDown::selectedItem() const
{
    return selectedIndex_ ? item(*selectedIndex_) : std::nullopt;
}

void FormDropDown::setSelectedItem(const std::optional<FormItem>& item)
{
    setSelectedIndex(item ? index(*item) : std::nullopt);
}

std::optional<QString> FormDropDown::selectedName() const
{
    const auto selected = selectedItem();
    return selected ? std::optional(selected->name) : std::nullopt;
}

std::optional<QString> FormDropDown::selectedValue() const
{
    const auto selected = selectedItem();
    return selected ? std::optional(selected->value) : std::nullopt;
}

void FormDropDown::setSelectedValue(const std::optional<QString>& value)
{
    const auto found = std::find_if(
        items().begin(), items().end(), [&](const FormItem& item) { return value && item.value == *value; });
    setSelectedIndex(found == items().end() ? std::nullopt : std::optional(int(found - items().begin())));
}

bool FormDropDown::isOpen() const
{
    return panel_ && !panel_->isHidden();
}

void FormDropDown::show(QWidget& anchor)
{
    if (isOpen() || items().empty() || !enabled() || !anchor.isVisible())
        return;
    panel_ = new DropdownPanel(items_, selectedIndex_, anchor);
    QObject::connect(&panel_->dropdownView(), &DropdownView::selectionChanged, panel_,
        platform::whileAlive(*this, [this, shown = items_.shared()](int chosen) { choose(shown, chosen); }));
    const auto update = platform::whileAlive(*this, [this] { updateButton(); });
    QObject::connect(panel_, &DropdownPanel::closed, panel_, update);
    // It can end with its window, and by then another one can be open.
    QObject::connect(panel_, &QObject::destroyed, platform::whileAlive(*this, [this, ended = panel_] {
        if (panel_ == ended)
            panel_ = nullptr;
        updateButton();
    }));
    panel_->open();
    updateButton();
}

void FormDropDown::close()
{
    if (isOpen())
        panel_->close();
}

void FormDropDown::updateButton()
{
    if (button_)
        button_->setOpen(isOpen(), isOpen() ? panel_->dropdownView().searchField() : nullptr);
}

void FormDropDown::choose(const std::shared_ptr<const DropdownItems::List>& shown, int chosen)
{
    close();
    const auto index = shown == items_.shared() ? chosen : this->index((*shown)[std::size_t(chosen)]);
    if (!index)
        return;
    setSelectedIndex(index);
    setHasChanges(true);
    notifyValueChanged();
}

void FormDropDown::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (!enabled)
        close();
    if (button_)
        button_->setEnabled(enabled);
}

std::vector<QWidget*> FormDropDown::focusableViews() const
{
    if (platform::isFullKeyboardAccessEnabled())
        return {button_.get()};
    return {};
}

} // namespace quor::formkit
