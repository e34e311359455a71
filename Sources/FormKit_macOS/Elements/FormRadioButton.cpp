// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormRadioButton.h"

#include "FormKit/Form.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QKeyEvent>
#include <QRadioButton>

#include <algorithm>

namespace quor::formkit {

namespace {

/// A click never turns it off, and it asks for the step that an arrow key stands for.
class RadioBox final : public QRadioButton {
public:
    RadioBox() { setAutoExclusive(false); }

    platform::Callback<void(int)> stepped;

protected:
    void nextCheckState() override { setChecked(true); }
    void keyPressEvent(QKeyEvent* event) override
    {
        const int right = layoutDirection() == Qt::RightToLeft ? -1 : 1;
        switch (event->key()) {
        case Qt::Key_Up:
            return stepped(-1);
        case Qt::Key_Down:
            return stepped(1);
        case Qt::Key_Left:
            return stepped(-right);
        case Qt::Key_Right:
            return stepped(right);
        default:
            return QRadioButton::keyPressEvent(event);
        }
    }
};

} // namespace

FormRadioButton::FormRadioButton(Construction construction)
    : FormBase(construction)
    , row_(platform::makeWidget<ToggleRow>(new RadioBox))
{
}

void FormRadioButton::setup()
{
    auto& box = static_cast<RadioBox&>(row_->box());
    box.stepped = platform::whileAlive(*this, [this](int step) { chooseNeighbour(step); });
    QObject::connect(
        &box, &QAbstractButton::clicked, row_.get(), platform::whileAlive(*this, [this] { choose(); }));
}

std::vector<std::shared_ptr<FormRadioButton>> FormRadioButton::group() const
{
    const Form* const owner = form();
    if (!owner)
        return {};
    std::vector<std::shared_ptr<FormRadioButton>> group;
    bool containsThis = false;
    for (const auto& element : owner->elements()) {
        if (auto radio = std::dynamic_pointer_cast<FormRadioButton>(element)) {
            containsThis = containsThis || radio.get() == this;
            group.push_back(std::move(radio));
        } else if (containsThis) {
            break;
        } else {
            group.clear();
        }
    }
    return group;
}

void FormRadioButton::choose()
{
    setOn(true);
    notifyValueChanged();
}

void FormRadioButton::chooseNeighbour(int step)
{
    auto candidates = group();
    std::erase_if(candidates, [this](const auto& radio) {
        return radio.get() != this && (!radio->enabled() || radio->isHidden() || !radio->row_);
    });
    const auto self = std::find_if(
        candidates.begin(), candidates.end(), [this](const auto& radio) { return radio.get() == this; });
    if (self == candidates.end())
        return;
    const auto count = std::ssize(candidates);
    const auto index = (self - candidates.begin() + step + count) % count;
    const auto neighbour = candidates[static_cast<std::size_t>(index)]; // keeps it during its handler
    if (neighbour.get() == this)
        return;
    neighbour->row_->box().setFocus(Qt::TabFocusReason);
    neighbour->row_->box().click();
}

void FormRadioButton::setTitle(const QString& title)
{
    title_ = title;
    if (row_)
        row_->setText(title, false);
}

void FormRadioButton::setOn(bool isOn)
{
    isOn_ = isOn;
    if (row_)
        row_->box().setChecked(isOn);
    if (!isOn)
        return;
    for (const auto& radio : group()) {
        if (radio.get() != this && radio->isOn())
            radio->setOn(false);
    }
}

void FormRadioButton::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (row_)
        row_->setEnabled(enabled);
}

} // namespace quor::formkit
