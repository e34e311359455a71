// SPDX-License-Identifier: MIT
#include "FormGallery/Pages/Pages.h"
#include "FormGallery/Pages/Parts.h"

#include <FormKit_macOS/Elements/FormHotKeyInput.h>
#include <Platform/Linux/Keyboard/XkbKeyboardLayout.h>
#include <Platform/Linux/Monitors/X11EventMonitors.h>
#include <Platform/Services/HotKeys.h>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

struct Keyboard {
    platform::XkbKeyboardLayout keyboardLayout;
    platform::X11EventMonitors monitors;
};

/// A form that owns what its inputs borrow. A base class, which ends after the form.
class HotKeysForm final : private Keyboard, public formkit::Form {
public:
    using Form::Form;

    std::shared_ptr<formkit::FormHotKeyInput> addHotKey(const QString& labelKey)
    {
        auto input = formkit::makeElement<formkit::FormHotKeyInput>(monitors, keyboardLayout);
        input->setLabel(text(labelKey));
        input->setPlaceholderString(text(u"HotKeysPress"_s));
        addElement(input);
        return input;
    }
};

QString written(const formkit::FormHotKeyInput& input)
{
    const auto& field = *input.textInput();
    return field.keyCode() < 0
        ? text(u"HotKeysNo"_s)
        : field.text() + u" (%1, 0x%2)"_s.arg(field.keyCode()).arg(field.modifier(), 4, 16, QChar(u'0'));
}

} // namespace

std::shared_ptr<formkit::Form> makeHotKeys(platform::ColorScheme)
{
    namespace Modifier = platform::HotKeyModifier;
    constexpr int space = 0x31, keyS = 0x01;
    auto form = std::make_shared<HotKeysForm>(text(u"HotKeysTitle"_s), viewFactory(), pageWidth, inputShare);
    const auto start = form->addHotKey(u"HotKeysStart"_s);
    start->textInput()->setHotkey(space, Modifier::control | Modifier::command);
    const auto stop = form->addHotKey(u"HotKeysStop"_s);
    stop->textInput()->setHotkey(keyS, Modifier::option | Modifier::shift | Modifier::command);
    const auto open = form->addHotKey(u"HotKeysOpen"_s);
    const auto disabled = form->addHotKey(u"HotKeysDisabled"_s);
    disabled->setEnabled(false);
    addHint(*form, u"HotKeysHint"_s);
    const auto line = addChangesLine(*form);
    for (const auto& input : {start, stop, open})
        printChanges(line, *input, written);
    return form;
}

} // namespace quor::gallery
